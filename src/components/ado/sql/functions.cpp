#include <algorithm>
#include <array>
#include <utility>

#include "components/ado/sql/grammar.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

using Kind = ColumnKind;

/// A function whose arguments stay in their places.
struct Rename {
  std::string_view name;  ///< lower case
  std::string_view sqlite;
  Kind kind;
};

constexpr std::array kRenames = {
    Rename{"abs", "abs", Kind::Number},
    Rename{"asc", "vb_ascw", Kind::Number},
    Rename{"ascii", "vb_ascw", Kind::Number},
    Rename{"ascw", "vb_ascw", Kind::Number},
    Rename{"atn", "atan", Kind::Number},
    Rename{"cbool", "q_truth", Kind::Number},
    Rename{"cbyte", "vb_cbyte", Kind::Number},
    Rename{"ccur", "q_money", Kind::Number},
    Rename{"cdate", "vb_cdate", Kind::Date},
    Rename{"cdbl", "vb_cdbl", Kind::Number},
    Rename{"ceiling", "ceil", Kind::Number},
    Rename{"char", "vb_chrw", Kind::Text},
    Rename{"chr", "vb_chr", Kind::Text},
    Rename{"chrw", "vb_chrw", Kind::Text},
    Rename{"cint", "vb_cint", Kind::Number},
    Rename{"clng", "vb_clng", Kind::Number},
    Rename{"concat", "q_concat", Kind::Text},
    Rename{"csng", "vb_csng", Kind::Number},
    Rename{"cstr", "vb_cstr", Kind::Text},
    Rename{"curdate", "vb_date", Kind::Date},
    Rename{"curtime", "vb_time", Kind::Date},
    Rename{"cvdate", "vb_cdate", Kind::Date},
    Rename{"datalength", "q_bytes", Kind::Number},
    Rename{"dateserial", "vb_dateserial", Kind::Date},
    Rename{"datevalue", "vb_datevalue", Kind::Date},
    Rename{"day", "vb_day", Kind::Number},
    Rename{"first", "q_first", Kind::Unknown},
    Rename{"fix", "vb_fix", Kind::Number},
    Rename{"floor", "floor", Kind::Number},
    Rename{"format", "q_format", Kind::Text},
    Rename{"formatcurrency", "vb_formatcurrency", Kind::Text},
    Rename{"formatdatetime", "vb_formatdatetime", Kind::Text},
    Rename{"formatnumber", "vb_formatnumber", Kind::Text},
    Rename{"formatpercent", "vb_formatpercent", Kind::Text},
    Rename{"getdate", "vb_now", Kind::Date},
    Rename{"getutcdate", "q_utc", Kind::Date},
    Rename{"hour", "vb_hour", Kind::Number},
    Rename{"identity", "last_insert_rowid", Kind::Number},
    Rename{"ifnull", "coalesce", Kind::Unknown},
    Rename{"int", "vb_int", Kind::Number},
    Rename{"isdate", "vb_isdate", Kind::Number},
    Rename{"isnumeric", "vb_isnumeric", Kind::Number},
    Rename{"last", "q_last", Kind::Unknown},
    Rename{"last_insert_id", "last_insert_rowid", Kind::Number},
    Rename{"lcase", "vb_lcase", Kind::Text},
    Rename{"len", "length", Kind::Number},
    Rename{"length", "length", Kind::Number},
    Rename{"locate", "vb_instr", Kind::Number},
    Rename{"log", "ln", Kind::Number},
    Rename{"lower", "vb_lcase", Kind::Text},
    Rename{"ltrim", "ltrim", Kind::Text},
    Rename{"mid", "substr", Kind::Text},
    Rename{"minute", "vb_minute", Kind::Number},
    Rename{"month", "vb_month", Kind::Number},
    Rename{"monthname", "vb_monthname", Kind::Text},
    Rename{"newid", "q_newid", Kind::Text},
    Rename{"newsequentialid", "q_newid", Kind::Text},
    Rename{"now", "vb_now", Kind::Date},
    Rename{"nullif", "nullif", Kind::Unknown},
    Rename{"patindex", "q_patindex", Kind::Number},
    Rename{"rand", "q_rnd", Kind::Number},
    Rename{"replace", "replace", Kind::Text},
    Rename{"replicate", "q_replicate", Kind::Text},
    Rename{"reverse", "vb_strreverse", Kind::Text},
    Rename{"right", "vb_right", Kind::Text},
    Rename{"rnd", "q_rnd", Kind::Number},
    Rename{"round", "round", Kind::Number},
    Rename{"rtrim", "rtrim", Kind::Text},
    Rename{"second", "vb_second", Kind::Number},
    Rename{"sgn", "vb_sgn", Kind::Number},
    Rename{"sign", "vb_sgn", Kind::Number},
    Rename{"space", "vb_space", Kind::Text},
    Rename{"sqr", "sqrt", Kind::Number},
    Rename{"stdev", "q_stdev", Kind::Number},
    Rename{"stdevp", "q_stdevp", Kind::Number},
    Rename{"str", "q_str", Kind::Text},
    Rename{"strcomp", "vb_strcomp", Kind::Number},
    Rename{"string", "vb_string", Kind::Text},
    Rename{"strreverse", "vb_strreverse", Kind::Text},
    Rename{"stuff", "q_stuff", Kind::Text},
    Rename{"substr", "substr", Kind::Text},
    Rename{"substring", "substr", Kind::Text},
    Rename{"sysdate", "vb_now", Kind::Date},
    Rename{"sysdatetime", "vb_now", Kind::Date},
    Rename{"timeserial", "vb_timeserial", Kind::Date},
    Rename{"timevalue", "vb_timevalue", Kind::Date},
    Rename{"trim", "trim", Kind::Text},
    Rename{"ucase", "vb_ucase", Kind::Text},
    Rename{"unicode", "vb_ascw", Kind::Number},
    Rename{"upper", "vb_ucase", Kind::Text},
    Rename{"val", "q_val", Kind::Number},
    Rename{"var", "q_var", Kind::Number},
    Rename{"varp", "q_varp", Kind::Number},
    Rename{"weekday", "vb_weekday", Kind::Number},
    Rename{"weekdayname", "vb_weekdayname", Kind::Text},
    Rename{"year", "vb_year", Kind::Number},
};
static_assert(std::is_sorted(kRenames.begin(), kRenames.end(),
                             [](const Rename& a, const Rename& b) { return a.name < b.name; }));

/// Spellings of the parts of a date, and the script language's.
struct Unit {
  std::string_view name;
  std::string_view script;
};
constexpr std::array kUnits = {
    Unit{"d", "d"},     Unit{"day", "d"},     Unit{"dayofyear", "y"}, Unit{"dd", "d"},
    Unit{"dw", "w"},    Unit{"dy", "y"},      Unit{"h", "h"},         Unit{"hh", "h"},
    Unit{"hour", "h"},  Unit{"m", "m"},       Unit{"mi", "n"},        Unit{"minute", "n"},
    Unit{"mm", "m"},    Unit{"month", "m"},   Unit{"n", "n"},         Unit{"q", "q"},
    Unit{"qq", "q"},    Unit{"quarter", "q"}, Unit{"s", "s"},         Unit{"second", "s"},
    Unit{"ss", "s"},    Unit{"w", "w"},       Unit{"week", "ww"},     Unit{"weekday", "w"},
    Unit{"wk", "ww"},   Unit{"ww", "ww"},     Unit{"y", "y"},         Unit{"year", "yyyy"},
    Unit{"yy", "yyyy"}, Unit{"yyyy", "yyyy"},
};

Piece call(std::string_view function, const std::vector<Piece>& args, Kind kind) {
  Piece piece;
  piece.text = std::string(function) + "(";
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (i > 0) piece.text += ", ";
    piece.text += args[i].text;
  }
  piece.text += ')';
  piece.kind = kind;
  return piece;
}

Piece ofText(std::string text, Kind kind) {
  Piece piece;
  piece.text = std::move(text);
  piece.kind = kind;
  return piece;
}

/// The arguments up to the closing parenthesis.
std::vector<Piece> arguments(SqlParser& p) {
  std::vector<Piece> list;
  if (!p.isSymbol(")")) list = expressionList(p);
  p.expectSymbol(")");
  return list;
}

void expectCount(const std::vector<Piece>& args, std::size_t least, std::size_t most) {
  if (args.size() >= least && args.size() <= most) return;
  throw SqlRefused{"Wrong number of arguments used with function in query expression."};
}

/// 'd', "d", d or day, in the script language's spelling.
std::string unit(SqlParser& p, bool ofSqlServer) {
  std::string name = lowerCase(p.name());
  if (ofSqlServer && name == "y") name = "year";
  const auto found =
      std::find_if(kUnits.begin(), kUnits.end(), [&](const Unit& one) { return one.name == name; });
  if (found == kUnits.end())
    throw SqlRefused{"'" + name + "' is not a recognized datepart option."};
  return quotedText(found->script);
}

Piece dateFunction(SqlParser& p, const std::string& name) {
  const bool bare = p.peek().kind == TokenKind::Word && p.isSymbol(",", 1);
  const bool named =
      bare || ((p.peek().kind == TokenKind::Text || p.peek().kind == TokenKind::Quoted) &&
               p.isSymbol(",", 1) && p.peek().text.size() <= 9);
  if (!named) {  // DATEDIFF(a, b) counts the days from b to a
    const std::vector<Piece> args = arguments(p);
    expectCount(args, 2, 2);
    return call("vb_datediff", {ofText("'d'", Kind::Text), args[1], args[0]}, Kind::Number);
  }
  const std::string interval = unit(p, bare);
  p.expectSymbol(",");
  std::vector<Piece> args = arguments(p);
  args.insert(args.begin(), ofText(interval, Kind::Text));
  if (name == "datename") return call("q_datename", args, Kind::Text);
  return call("vb_" + name, args, name == "dateadd" ? Kind::Date : Kind::Number);
}

std::string asType(const std::string& value, Kind kind, const std::string& sqlType) {
  switch (kind) {
    case Kind::Date:
      return "q_date(" + value + ")";
    case Kind::Boolean:
      return "q_truth(" + value + ")";
    case Kind::Unknown:
      return value;
    default:
      return "CAST(" + value + " AS " + sqlType + ")";
  }
}

/// A type with what it keeps of a value.
struct Cast {
  Kind kind = Kind::Unknown;
  std::string sqlType;
  std::string length;
};

Piece castTo(const Piece& value, const Cast& cast, const std::string& style) {
  std::string text = value.text;
  if (cast.kind == Kind::Text && value.kind != Kind::Text && !style.empty()) {
    text = "q_styled(" + text + ", " + style + ")";
  } else {
    text = asType(text, cast.kind, cast.sqlType);
  }
  if (cast.length.empty()) return ofText(text, cast.kind);
  if (cast.kind == Kind::Text)
    return ofText("substr(" + text + ", 1, " + cast.length + ")", cast.kind);
  if (cast.sqlType == "NUMERIC")
    return ofText("round(" + text + ", " + cast.length + ")", cast.kind);
  return ofText(text, cast.kind);
}

Cast castType(SqlParser& p) {
  Cast cast;
  cast.kind = typeOperand(p, cast.sqlType);
  if (p.acceptSymbol("(")) {
    cast.length = p.peek().kind == TokenKind::Number ? p.take().text : std::string();
    if (cast.length.empty()) p.take();  // varchar(max)
    if (cast.sqlType == "NUMERIC") cast.length = "0";
    if (p.acceptSymbol(",")) {
      if (p.peek().kind != TokenKind::Number) p.refuseHere();
      cast.length = p.take().text;
    }
    p.expectSymbol(")");
  }
  return cast;
}

Piece castCall(SqlParser& p) {
  const Piece value = expression(p);
  p.expectWord("AS");
  const Cast cast = castType(p);
  p.expectSymbol(")");
  return castTo(value, cast, "");
}

Piece convertCall(SqlParser& p) {
  const Cast cast = castType(p);
  p.expectSymbol(",");
  const Piece value = expression(p);
  std::string style;
  if (p.acceptSymbol(",")) style = expression(p).text;
  p.expectSymbol(")");
  return castTo(value, cast, style);
}

/// SWITCH(condition, value, ...).
Piece switchCall(const std::vector<Piece>& args) {
  if (args.empty() || args.size() % 2 != 0) expectCount(args, 1, 0);
  std::string text = "CASE";
  for (std::size_t i = 0; i < args.size(); i += 2) {
    text += " WHEN " + args[i].text + " THEN " + args[i + 1].text;
  }
  return ofText(text + " END", args[1].kind);
}

Piece chooseCall(const std::vector<Piece>& args) {
  expectCount(args, 2, 100);
  std::string text = "CASE vb_int(" + args[0].text + ")";
  for (std::size_t i = 1; i < args.size(); ++i) {
    text += " WHEN " + std::to_string(i) + " THEN " + args[i].text;
  }
  return ofText(text + " END", args[1].kind);
}

/// Places are found without regard to letter case: vb_instr(start, text, part, 1).
Piece placeOf(const Piece& start, const Piece& text, const Piece& part) {
  return call("vb_instr", {start, text, part, ofText("1", Kind::Number)}, Kind::Number);
}

Piece inStrCall(std::vector<Piece> args) {
  expectCount(args, 2, 4);
  if (args.size() == 2) args.insert(args.begin(), ofText("1", Kind::Number));
  return placeOf(args[0], args[1], args[2]);
}

Piece charIndexCall(const std::vector<Piece>& args) {
  expectCount(args, 2, 3);
  const Piece start = args.size() == 3 ? ofText("max(1, " + args[2].text + ")", Kind::Number)
                                       : ofText("1", Kind::Number);
  return placeOf(start, args[1], args[0]);
}

Piece isNullCall(const std::vector<Piece>& args) {
  expectCount(args, 1, 2);
  if (args.size() == 1) return ofText("(" + args[0].text + " IS NULL)", Kind::Number);
  return call("coalesce", args, args[0].kind);
}

Piece aggregate(SqlParser& p, const std::string& name) {
  p.aggregates = true;
  std::string text = name + "(";
  Kind kind = Kind::Number;
  if (p.acceptWord("DISTINCT")) text += "DISTINCT ";
  p.acceptWord("ALL");
  if (name == "count" && p.isSymbol("*") && p.isSymbol(")", 1)) {
    p.take();
    p.take();
    return ofText(text + "*)", kind);
  }
  const std::vector<Piece> args = arguments(p);
  if (args.empty()) expectCount(args, 1, 1);
  for (std::size_t i = 0; i < args.size(); ++i) text += (i > 0 ? ", " : "") + args[i].text;
  if (name == "min" || name == "max") kind = args[0].kind;
  return ofText(text + ")", kind);
}

/// Those whose arguments are a matter of their own; false for all others.
bool specialCall(SqlParser& p, const std::string& name, Piece& result) {
  if (name == "count" || name == "sum" || name == "avg" || name == "min" || name == "max") {
    result = aggregate(p, name);
  } else if (name == "count_big") {
    result = aggregate(p, "count");
  } else if (name == "cast" || name == "try_cast") {
    result = castCall(p);
  } else if (name == "convert" || name == "try_convert") {
    result = convertCall(p);
  } else if (name == "dateadd" || name == "datediff" || name == "datepart" || name == "datename") {
    result = dateFunction(p, name);
  } else if (name == "isnull") {
    result = isNullCall(arguments(p));
  } else if (name == "instr") {
    result = inStrCall(arguments(p));
  } else if (name == "charindex") {
    result = charIndexCall(arguments(p));
  } else if (name == "switch") {
    result = switchCall(arguments(p));
  } else if (name == "choose") {
    result = chooseCall(arguments(p));
  } else if (name == "scope_identity" || name == "ident_current") {
    arguments(p);
    result = ofText("last_insert_rowid()", Kind::Number);
  } else {
    return false;
  }
  return true;
}

Piece ordinaryCall(const std::string& name, std::vector<Piece> args) {
  if (name == "iif" || name == "if") {
    expectCount(args, 3, 3);
    return call("iif", args, args[1].kind);
  }
  if (name == "nz") {
    expectCount(args, 1, 2);
    if (args.size() == 1) args.push_back(ofText("''", Kind::Text));
    return call("coalesce", args, args[0].kind);
  }
  if (name == "coalesce") return call(name, args, args.empty() ? Kind::Unknown : args[0].kind);
  if (name == "left") {
    expectCount(args, 2, 2);
    return call("vb_left", args, Kind::Text);
  }
  if ((name == "date" || name == "time") && args.empty()) {
    return ofText("vb_" + name + "()", Kind::Date);
  }
  const auto found =
      std::lower_bound(kRenames.begin(), kRenames.end(), name,
                       [](const Rename& r, const std::string& n) { return r.name < n; });
  if (found != kRenames.end() && found->name == name) return call(found->sqlite, args, found->kind);
  return call(quotedName(name), args, Kind::Unknown);
}

/// OVER (PARTITION BY .. ORDER BY ..) behind a function.
std::string window(SqlParser& p) {
  p.expectSymbol("(");
  std::string text = " OVER (";
  if (p.acceptWords("PARTITION", "BY")) {
    text += "PARTITION BY ";
    const std::vector<Piece> list = expressionList(p);
    for (std::size_t i = 0; i < list.size(); ++i) text += (i > 0 ? ", " : "") + list[i].text;
  }
  if (p.acceptWords("ORDER", "BY")) {
    text += text.back() == '(' ? "ORDER BY " : " ORDER BY ";
    for (bool first = true; first || p.acceptSymbol(","); first = false) {
      text += (first ? "" : ", ") + expression(p).text;
      if (p.acceptWord("DESC")) text += " DESC";
      p.acceptWord("ASC");
    }
  }
  p.expectSymbol(")");
  return text + ")";
}

}  // namespace

Piece functionCall(SqlParser& p, const std::string& written) {
  const SqlParser::Level level(p);
  const std::string name = lowerCase(written);
  Piece result;
  if (!specialCall(p, name, result)) result = ordinaryCall(name, arguments(p));
  if (p.isWord("OVER") && p.isSymbol("(", 1)) {
    p.take();
    result.text += window(p);
  }
  return result;
}

ColumnKind typeOperand(SqlParser& p, std::string& sqlType) {
  const std::string name = lowerCase(p.name());
  const auto is = [&](std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  if (is({"double", "character"})) {
    if (!p.acceptWord("PRECISION")) p.acceptWord("VARYING");
  }
  if (is({"signed", "unsigned"})) p.acceptWord("INTEGER");
  if (is({"int", "integer", "bigint", "smallint", "tinyint", "long", "short", "byte", "signed",
          "unsigned", "counter"})) {
    sqlType = "INTEGER";
    return Kind::Number;
  }
  if (is({"float", "real", "double", "single"})) {
    sqlType = "REAL";
    return Kind::Number;
  }
  if (is({"decimal", "numeric", "money", "smallmoney", "currency", "number", "dec"})) {
    sqlType = "NUMERIC";
    return Kind::Number;
  }
  if (is({"datetime", "smalldatetime", "datetime2", "date", "time", "timestamp"}))
    return Kind::Date;
  if (is({"bit", "boolean", "yesno", "logical"})) return Kind::Boolean;
  if (is({"binary", "varbinary", "image", "blob"})) {
    sqlType = "BLOB";
    return Kind::Binary;
  }
  sqlType = "TEXT";
  return Kind::Text;
}

}  // namespace quorvane::ado
