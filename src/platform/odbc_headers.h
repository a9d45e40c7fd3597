#pragma once

/// The driver manager's headers, which build on the system's where it is a part of the system.

#if __has_include(<windows.h>)
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
