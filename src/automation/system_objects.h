#pragma once

#include <chrono>
#include <optional>
#include <string_view>

#include "vbscript/values/value.h"

/// Objects that are the system's, and those of programs that are installed there. A system without
/// any has none by whatever name. All is for the one thread that runs scripts; docs/engine.md has
/// the rules.
namespace quorvane::automation {

/// A new object of the class with this name. Nothing where there is no such class, or where it
/// can't be had; error 430 for one that scripts can't use.
std::optional<vbs::Value> createObject(std::string_view progId);

/// Whether there is a class with this name.
bool hasClass(std::string_view progId);

/// What a path or another name of an object stands for, `progId` may be empty; without a path, the
/// object of a class that a program has made known to all. Throws ScriptError.
vbs::Value getObject(std::string_view pathName, std::string_view progId);

/// Lets in what others want of objects here: calls from other threads and programs. To be called
/// often while the thread that has objects does nothing else, where `othersCall()`.
void takeCalls();
bool othersCall();

/// Waits so long, and takes calls meanwhile.
void sleep(std::chrono::milliseconds time);

}  // namespace quorvane::automation
