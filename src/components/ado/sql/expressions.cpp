#include <cstdlib>
#include <utility>

#include "components/ado/sql/grammar.h"
#include "components/ado/sql/stored_date.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

Piece plain(std::string text, ColumnKind kind = ColumnKind::Unknown) {
  Piece piece;
  piece.text = std::move(text);
  piece.kind = kind;
  return piece;
}

Piece literal(std::string text, ColumnKind kind) {
  Piece piece = plain(std::move(text), kind);
  piece.literal = true;
  return piece;
}

Piece binary(std::string text, ColumnKind kind) {
  Piece piece = plain(std::move(text), kind);
  piece.compound = true;
  return piece;
}

/// As an operand of an operator that binds more closely than those inside.
std::string operand(const Piece& piece) {
  return piece.compound ? "(" + piece.text + ")" : piece.text;
}

/// -1, 0 or 1 as a constant, or anything else.
bool isTruth(const Piece& piece, bool& truth) {
  if (!piece.literal) return false;
  if (piece.text != "0" && piece.text != "1" && piece.text != "-1") return false;
  truth = piece.text != "0";
  return true;
}

void foldCase(Piece& piece) {
  if (piece.folds) piece.text += " COLLATE NOCASE";
}

/// Brings what a date is compared with into the stored form.
void asDate(Piece& piece) {
  const bool unknown = piece.column && piece.kind == ColumnKind::Unknown;  // may use an index
  if (unknown || piece.kind == ColumnKind::Date) return;
  piece.text = storedAs(piece, ColumnKind::Date);
  piece.kind = ColumnKind::Date;
}

/// Two sides that are compared, made alike.
void matchKinds(Piece& left, Piece& right) {
  if (left.kind == ColumnKind::Date && right.kind != ColumnKind::Date) asDate(right);
  if (right.kind == ColumnKind::Date && left.kind != ColumnKind::Date) asDate(left);
  foldCase(left);
  foldCase(right);
}

std::string comparisonOperator(const std::string& symbol) {
  if (symbol == "!=") return "<>";
  if (symbol == "==") return "=";
  if (symbol == "!<") return ">=";
  if (symbol == "!>" || symbol == "=<") return "<=";
  return symbol == "=>" ? ">=" : symbol;
}

Piece compared(Piece left, const std::string& op, Piece right) {
  if (op == "=" || op == "<>") {
    if (right.kind == ColumnKind::Boolean && right.column) std::swap(left, right);
    bool truth = false;
    if (left.kind == ColumnKind::Boolean && left.column && isTruth(right, truth)) {
      const bool wantsTrue = truth == (op == "=");
      return plain(left.text + (wantsTrue ? " <> 0" : " = 0"), ColumnKind::Number);
    }
    if (left.kind == ColumnKind::Boolean && left.column && right.column) {
      return plain("(" + left.text + " <> 0) " + op + " (" + right.text + " <> 0)",
                   ColumnKind::Number);
    }
    if (left.kind == ColumnKind::Boolean && left.column) {
      return plain("(" + left.text + " <> 0) " + op + " q_truth(" + right.text + ")",
                   ColumnKind::Number);
    }
  }
  matchKinds(left, right);
  return plain(left.text + " " + op + " " + right.text, ColumnKind::Number);
}

Piece inList(SqlParser& p, Piece left, bool negated) {
  p.expectSymbol("(");
  const char* word = negated ? " NOT IN (" : " IN (";
  std::string list;
  if (p.isWord("SELECT")) {
    list = query(p, {.nested = true}).text;
    foldCase(left);
  } else if (!p.isSymbol(")")) {
    std::vector<Piece> values = expressionList(p);
    const bool truths = left.kind == ColumnKind::Boolean && left.column;
    for (Piece& value : values) {
      if (left.kind == ColumnKind::Date) asDate(value);
      if (!list.empty()) list += ", ";
      list += truths ? "q_truth(" + value.text + ")" : value.text;
    }
    if (truths) left.text = "q_truth(" + left.text + ")";
    foldCase(left);
  }
  p.expectSymbol(")");
  return plain(left.text + word + list + ")", ColumnKind::Number);
}

Piece like(SqlParser& p, const Piece& left, bool negated) {
  const Piece pattern = sum(p);
  std::string text = left.text + (negated ? " NOT LIKE " : " LIKE ") + pattern.text;
  if (p.acceptWord("ESCAPE")) text += " ESCAPE " + sum(p).text;
  return plain(std::move(text), ColumnKind::Number);
}

Piece between(SqlParser& p, Piece left, bool negated) {
  Piece low = sum(p);
  p.expectWord("AND");
  Piece high = sum(p);
  if (left.kind == ColumnKind::Date || low.kind == ColumnKind::Date) {
    asDate(left);
    asDate(low);
    asDate(high);
  }
  foldCase(left);
  return plain(
      left.text + (negated ? " NOT BETWEEN " : " BETWEEN ") + low.text + " AND " + high.text,
      ColumnKind::Number);
}

Piece isTest(SqlParser& p, const Piece& left) {
  const bool negated = p.acceptWord("NOT");
  const std::string word = negated ? " IS NOT " : " IS ";
  if (p.acceptWord("NULL")) return plain(left.text + word + "NULL", ColumnKind::Number);
  return plain(left.text + word + sum(p).text, ColumnKind::Number);
}

bool isComparison(const Token& token) {
  if (token.kind != TokenKind::Symbol) return false;
  const std::string& t = token.text;
  return t == "=" || t == "<>" || t == "<" || t == ">" || t == "<=" || t == ">=" || t == "!=" ||
         t == "==" || t == "!<" || t == "!>" || t == "=>";
}

Piece comparison(SqlParser& p) {
  Piece left = sum(p);
  for (;;) {
    if (isComparison(p.peek())) {
      std::string op = p.take().text;
      if ((op == "<" || op == ">") && p.isSymbol("=")) {  // "> =" is one operator in both dialects
        p.take();
        op += '=';
      } else if (op == "<" && p.acceptSymbol(">")) {
        op = "<>";
      }
      for (const char* all : {"ALL", "ANY", "SOME"}) {
        if (p.isWord(all) && p.isSymbol("(", 1)) p.refuseHere();
      }
      left = compared(std::move(left), comparisonOperator(op), sum(p));
      continue;
    }
    const bool negated = p.isWord("NOT");
    const std::size_t ahead = negated ? 1 : 0;
    const auto accept = [&](std::string_view word) {
      if (!p.isWord(word, ahead)) return false;
      if (negated) p.take();
      p.take();
      return true;
    };
    if (accept("LIKE") || accept("ALIKE")) {
      left = like(p, left, negated);
    } else if (accept("IN")) {
      left = inList(p, std::move(left), negated);
    } else if (accept("BETWEEN")) {
      left = between(p, std::move(left), negated);
    } else if (!negated && p.acceptWord("IS")) {
      left = isTest(p, left);
    } else if (!negated &&
               p.isWord("COLLATE")) {  // other systems' collations: the default is meant
      p.take();
      p.name();
    } else {
      return left;
    }
  }
}

Piece negation(SqlParser& p) {
  const SqlParser::Level level(p);
  if (p.acceptWord("NOT")) return plain("NOT " + negation(p).text, ColumnKind::Number);
  return comparison(p);
}

Piece conjunction(SqlParser& p) {
  Piece left = negation(p);
  while (p.acceptWord("AND")) {
    left.text += " AND " + negation(p).text;
    left = plain(std::move(left.text), ColumnKind::Number);
  }
  return left;
}

Piece caseExpression(SqlParser& p) {
  std::string text = "CASE";
  Piece base;
  const bool simple = !p.isWord("WHEN");
  if (simple) base = expression(p);
  if (simple) text += " " + base.text;
  ColumnKind kind = ColumnKind::Unknown;
  if (!p.isWord("WHEN")) p.refuseHere();
  while (p.acceptWord("WHEN")) {
    Piece condition = expression(p);
    if (simple && base.kind == ColumnKind::Date) asDate(condition);
    p.expectWord("THEN");
    const Piece value = expression(p);
    kind = value.kind;
    text += " WHEN " + condition.text + " THEN " + value.text;
  }
  if (p.acceptWord("ELSE")) text += " ELSE " + expression(p).text;
  p.expectWord("END");
  return plain(text + " END", kind);
}

/// {ts '...'}, {d '...'}, {t '...'}, {fn call}: the forms that drivers are to replace.
Piece escaped(SqlParser& p) {
  const std::string word = lowerCase(p.name());
  Piece piece;
  if (word == "fn") {
    piece = expression(p);
  } else if (word == "ts" || word == "d" || word == "t") {
    const Token& token = p.take();
    const auto date = storedDate(token.text);
    if (!date) throw SqlRefused{"Syntax error in date in query expression '" + token.text + "'."};
    piece = literal(quotedText(*date), ColumnKind::Date);
  } else {
    throw SqlRefused{"Could not find stored procedure '" + word + "'."};
  }
  p.expectSymbol("}");
  return piece;
}

Piece nameOrCall(SqlParser& p) {
  const bool quoted = p.peek().kind != TokenKind::Word;
  std::vector<std::string> path{p.name()};
  while (p.isSymbol(".")) {
    while (p.acceptSymbol(".")) {
    }
    path.push_back(p.name());
  }
  if (p.isSymbol("(") && (!quoted || path.size() > 1)) {
    p.take();
    return functionCall(p, path.back());
  }
  if (path.size() == 1 && !quoted) {
    if (equalsNoCase(path[0], "true")) return literal("-1", ColumnKind::Boolean);
    if (equalsNoCase(path[0], "false")) return literal("0", ColumnKind::Boolean);
    if (equalsNoCase(path[0], "current_timestamp")) return plain("vb_now()", ColumnKind::Date);
  }
  return p.columnPiece(path);
}

/// "text" is a name where there is one like it, and a text otherwise.
Piece quoted(SqlParser& p) {
  if (p.isSymbol(".", 1) || p.isKnownName(p.peek().text)) return nameOrCall(p);
  Piece piece = literal(quotedText(p.peek().text), ColumnKind::Text);
  piece.value = p.take().text;
  return piece;
}

Piece variable(SqlParser& p) {
  const std::string& name = p.take().text;
  if (name == "identity") return plain("last_insert_rowid()", ColumnKind::Number);
  if (name == "rowcount") return plain("changes()", ColumnKind::Number);
  if (name == "error") return literal("0", ColumnKind::Number);
  if (name == "version") return plain("sqlite_version()", ColumnKind::Text);
  throw SqlRefused{"Must declare the variable '@@" + name + "'."};
}

Piece parenthesized(SqlParser& p) {
  if (p.isWord("SELECT")) {
    const Query inner = query(p, {.nested = true});
    p.expectSymbol(")");
    return plain("(" + inner.text + ")");
  }
  std::vector<Piece> list = expressionList(p);
  p.expectSymbol(")");
  if (list.size() == 1) {
    Piece piece = std::move(list[0]);
    piece.text = "(" + piece.text + ")";
    piece.literal = false;
    return piece;
  }
  std::string text;
  for (const Piece& piece : list) text += (text.empty() ? "(" : ", ") + piece.text;
  return plain(text + ")");
}

Piece word(SqlParser& p) {
  if (p.acceptWord("NULL")) return literal("NULL", ColumnKind::Unknown);
  if (p.acceptWord("CASE")) return caseExpression(p);
  if (p.isWord("EXISTS") && p.isSymbol("(", 1)) {
    p.take();
    p.take();
    const Query inner = query(p, {.nested = true});
    p.expectSymbol(")");
    return plain("EXISTS (" + inner.text + ")", ColumnKind::Number);
  }
  const bool function = p.isSymbol("(", 1);  // Left(..) and the like
  if (isClauseWord(p.peek()) && !function) p.refuseHere();
  return nameOrCall(p);
}

Piece primary(SqlParser& p) {
  const SqlParser::Level level(p);
  const Token& token = p.peek();
  switch (token.kind) {
    case TokenKind::Number:
      return literal(p.take().text, ColumnKind::Number);
    case TokenKind::Text: {
      Piece piece = literal(quotedText(token.text), ColumnKind::Text);
      piece.value = p.take().text;
      return piece;
    }
    case TokenKind::Date:
      return literal(quotedText(p.take().text), ColumnKind::Date);
    case TokenKind::Binary:
      return literal("x" + quotedText(p.take().text), ColumnKind::Binary);
    case TokenKind::Parameter:
      return plain(p.parameter(p.take().text));
    case TokenKind::Variable:
      return variable(p);
    case TokenKind::Name:
      return nameOrCall(p);
    case TokenKind::Quoted:
      return quoted(p);
    case TokenKind::Word:
      return word(p);
    default:
      break;
  }
  if (p.acceptSymbol("(")) return parenthesized(p);
  if (p.acceptSymbol("{")) return escaped(p);
  if (p.acceptSymbol("$")) return primary(p);  // an amount of money
  p.refuseHere();
}

Piece unary(SqlParser& p) {
  const SqlParser::Level level(p);
  if (p.acceptSymbol("-")) {
    const Piece operand = unary(p);
    if (operand.literal && operand.kind == ColumnKind::Number && operand.text[0] != '-') {
      return literal("-" + operand.text, ColumnKind::Number);
    }
    return plain("-(" + operand.text + ")", ColumnKind::Number);
  }
  if (p.acceptSymbol("+")) return unary(p);
  if (p.acceptSymbol("~")) return plain("~(" + unary(p).text + ")", ColumnKind::Number);
  Piece base = primary(p);
  if (p.acceptSymbol("^")) {
    return plain("power(" + base.text + ", " + unary(p).text + ")", ColumnKind::Number);
  }
  return base;
}

Piece product(SqlParser& p) {
  Piece left = unary(p);
  for (;;) {
    if (p.acceptSymbol("*")) {
      left = binary(left.text + " * " + unary(p).text, ColumnKind::Number);
    } else if (p.acceptSymbol("/")) {
      const char* exact = p.options().exactDivision ? " * 1.0" : "";
      left = binary(left.text + exact + " / " + unary(p).text, ColumnKind::Number);
    } else if (p.acceptSymbol("%") || p.acceptWord("MOD")) {
      left = binary(left.text + " % " + unary(p).text, ColumnKind::Number);
    } else if (p.acceptSymbol("\\")) {
      left = plain("q_whole(" + left.text + ", " + unary(p).text + ")", ColumnKind::Number);
    } else {
      return left;
    }
  }
}

/// The sum of numbers, of a date and days, or texts joined: what is not known here is found when
/// the statement runs.
Piece added(const Piece& left, const std::string& op, const Piece& right) {
  const bool numbers = left.kind == ColumnKind::Number && right.kind == ColumnKind::Number;
  if (numbers) return binary(left.text + " " + op + " " + right.text, ColumnKind::Number);
  const bool texts = left.kind == ColumnKind::Text || right.kind == ColumnKind::Text;
  if (op == "+" && texts) return binary(operand(left) + " || " + operand(right), ColumnKind::Text);
  const bool date = (left.kind == ColumnKind::Date) != (right.kind == ColumnKind::Date);
  return plain((op == "+" ? "q_add(" : "q_subtract(") + left.text + ", " + right.text + ")",
               date ? ColumnKind::Date : ColumnKind::Unknown);
}

Piece addition(SqlParser& p) {
  Piece left = product(p);
  for (;;) {
    if (p.isSymbol("+") || p.isSymbol("-")) {
      const std::string op = p.take().text;
      left = added(left, op, product(p));
    } else if (p.acceptSymbol("||")) {
      left = binary(operand(left) + " || " + operand(product(p)), ColumnKind::Text);
    } else if (p.isSymbol("|") || p.isSymbol("<<") || p.isSymbol(">>")) {
      const std::string op = p.take().text;
      left = binary(left.text + " " + op + " " + product(p).text, ColumnKind::Number);
    } else {
      return left;
    }
  }
}

/// Texts joined by "&", for which Null is an empty text.
Piece joined(Piece left, const Piece& right) {
  const auto part = [](const Piece& piece) {
    return piece.literal && piece.text != "NULL" ? piece.text : "coalesce(" + piece.text + ", '')";
  };
  Piece result = binary(left.joined ? std::move(left.text) : part(left), ColumnKind::Text);
  result.text += " || " + part(right);
  result.joined = true;
  return result;
}

}  // namespace

Piece sum(SqlParser& p) {
  Piece left = addition(p);
  while (p.acceptSymbol("&")) {
    const Piece right = addition(p);
    if (left.kind == ColumnKind::Number && right.kind == ColumnKind::Number) {
      left = plain("(" + left.text + " & " + right.text + ")", ColumnKind::Number);  // bits
    } else {
      left = joined(std::move(left), right);
    }
  }
  return left;
}

Piece expression(SqlParser& p) {
  const SqlParser::Level level(p);
  Piece left = conjunction(p);
  for (;;) {
    if (p.acceptWord("OR")) {
      left.text += " OR " + conjunction(p).text;
      left = plain(std::move(left.text), ColumnKind::Number);
    } else if (p.acceptWord("XOR")) {
      left = plain("((" + left.text + ") <> 0) <> ((" + conjunction(p).text + ") <> 0)",
                   ColumnKind::Number);
    } else if (p.acceptWord("EQV")) {
      left = plain("((" + left.text + ") <> 0) = ((" + conjunction(p).text + ") <> 0)",
                   ColumnKind::Number);
    } else {
      return left;
    }
  }
}

std::vector<Piece> expressionList(SqlParser& p) {
  std::vector<Piece> list;
  do {
    list.push_back(expression(p));
  } while (p.acceptSymbol(","));
  return list;
}

std::string storedAs(const Piece& value, ColumnKind kind) {
  if (kind != ColumnKind::Date || value.kind == ColumnKind::Date) return value.text;
  if (value.literal && value.kind == ColumnKind::Text) {
    const auto date = storedDate(value.value);
    return date ? quotedText(*date) : value.text;
  }
  if (value.literal && value.kind != ColumnKind::Number) return value.text;
  return "q_date(" + value.text + ")";
}

}  // namespace quorvane::ado
