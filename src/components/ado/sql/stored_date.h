#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvane::ado {

/// How a database file holds dates: "2024-01-31 13:45:30", and "2024-01-31" for midnight. That is
/// what the file's own date functions and most other programs write and read, it sorts as it is
/// (midnight before the rest of its day), and it equals the date as people write it in a text.

/// The stored form of a date as scripts hold it; nothing when it is out of range.
std::optional<std::string> storedDate(double days);

/// The stored form of a date as SQL spells it, in any locale: year first, or month, day and year,
/// with "/", "-" or "." between; months by name; eight digits; a time of day with AM or PM, behind
/// a blank or "T", or alone. Nothing for what is no date.
std::optional<std::string> storedDate(std::string_view text);

/// The date that storedDate() of a text would store.
std::optional<double> dateOfText(std::string_view text);

/// The same for the stored form alone: year first, "-" between, a time with ":" behind.
std::optional<double> dateOfStored(std::string_view text);

}  // namespace quorvane::ado
