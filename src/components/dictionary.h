#pragma once

#include "vbscript/value.h"

/// What CreateObject("Scripting.Dictionary") makes.
vbs::Value createDictionary();
