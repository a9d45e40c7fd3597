#pragma once

#include <string>

namespace quorvane::event_record {

/// The system's record of what its services do. Texts are those of the system's code page.

/// Tells the record where the texts of a source's entries are: in the program itself.
void registerSource(const std::wstring& source, const std::wstring& program);
void forgetSource(const std::wstring& source);

/// An entry that informs; lost without a word when there is no place for it.
void note(const std::wstring& source, const std::string& sentence);

}  // namespace quorvane::event_record
