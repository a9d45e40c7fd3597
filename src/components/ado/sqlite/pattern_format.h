#pragma once

#include <string>
#include <string_view>

namespace quorvane::ado {

/// A date by a pattern of letters (d, dd, ddd, dddd, m to mmmm, yy, yyyy, h, n, s, AM/PM, q, w, ww,
/// y; "mm" behind hours are minutes), or by one of the named formats. UTF-8.
std::string formattedDate(double days, std::string_view pattern);

/// A number by a pattern of places ("#,##0.00", "0%", with other characters as they are), or by one
/// of the named formats.
std::string formattedNumber(double number, std::string_view pattern);

/// A date in one of the numbered styles of CONVERT; an unknown one is like 0.
std::string dateInStyle(double days, int style);

}  // namespace quorvane::ado
