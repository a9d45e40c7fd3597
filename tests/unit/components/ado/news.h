#pragma once

#include <string_view>

namespace quorvane {

/// What stands before each case: Db is open, its table news has three rows.
inline constexpr std::string_view kNews =
    "Set Db = CreateObject(\"ADODB.Connection\")\n"
    "Db.Open \"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=:memory:\"\n"
    "Db.Execute \"CREATE TABLE news (id COUNTER PRIMARY KEY, title TEXT(50), body MEMO, \" & _\n"
    "  \"added DATETIME, shown YESNO, price CURRENCY, hits LONG DEFAULT 0)\"\n"
    "Db.Execute \"INSERT INTO news (title, body, added, shown, price, hits) VALUES ('First', \" & "
    "_\n"
    "  \"'It''s one', #1/31/2024 10:20:30 PM#, True, 12.35, 5)\"\n"
    "Db.Execute \"INSERT INTO news (title, added, shown, price, hits) VALUES ('Second', \" & _\n"
    "  \"#2/1/2024#, False, 0.1, 2)\"\n"
    "Db.Execute \"INSERT INTO news (title, body, added, shown, price, hits) VALUES ('Third', \" & "
    "_\n"
    "  \"'three', '2/2/2024 8:00', True, 1000, 7)\"\n";

}  // namespace quorvane
