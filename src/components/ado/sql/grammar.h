#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "components/ado/sql/tokens.h"
#include "components/ado/sql/translator.h"

/// The translator from inside: a descent through the grammar that reads tokens and gives SQL. Each
/// function takes what it is named after from where the parser stands.
namespace quorvane::ado {

/// Why a text is refused; caught by translateSql().
struct SqlRefused {
  std::string reason;
};

/// A piece of translated expression.
struct Piece {
  std::string text;
  ColumnKind kind = ColumnKind::Unknown;
  bool literal = false;   ///< one constant; `value` is a text's content
  bool column = false;    ///< names a column
  bool folds = false;     ///< a column whose comparisons must be told to ignore letter case
  bool joined = false;    ///< texts joined by "&"
  bool compound = false;  ///< made of operands and an operator that stand open
  std::string value;
};

class SqlParser {
 public:
  SqlParser(std::string_view source, const SqlOptions& options);

  const SqlOptions& options() const { return options_; }

  const Token& peek(std::size_t ahead = 0) const;
  const Token& take();
  bool atEnd() const { return peek().kind == TokenKind::End; }
  bool isWord(std::string_view word, std::size_t ahead = 0) const {
    return peek(ahead).isWord(word);
  }
  bool isSymbol(std::string_view symbol, std::size_t ahead = 0) const {
    return peek(ahead).isSymbol(symbol);
  }
  bool acceptWord(std::string_view word);
  /// Both or none.
  bool acceptWords(std::string_view first, std::string_view second);
  bool acceptSymbol(std::string_view symbol);
  void expectWord(std::string_view word);
  void expectSymbol(std::string_view symbol);
  /// Steps over a balanced pair of parentheses, if one opens here.
  void skipParentheses();

  /// A name, as it was written. Refuses what can't be one.
  std::string name();
  /// A table's name with owners in front dropped.
  std::string tableName();

  std::string parameter(const std::string& name);  ///< "?1"
  const std::vector<std::string>& parameters() const { return parameters_; }

  /// What is known of a column of the tables that the statement speaks of.
  Piece columnPiece(const std::vector<std::string>& path) const;
  bool isKnownName(std::string_view name) const;
  /// The kind of the column of one table.
  ColumnKind kindOf(std::string_view table, std::string_view column) const;

  [[noreturn]] void refuseHere() const;

  /// While it lives, one level deeper. Refuses to go too deep.
  class Level {
   public:
    explicit Level(SqlParser& parser);
    ~Level() { --parser_.depth_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    SqlParser& parser_;
  };

  bool aggregates = false;  ///< the query in hand has spoken of COUNT and the like

 private:
  std::string_view source_;
  std::vector<Token> tokens_;
  const SqlOptions& options_;
  std::vector<std::string> parameters_;
  std::vector<std::string> tables_;  ///< known ones that the text names
  std::size_t at_ = 0;
  int depth_ = 0;
};

/// Words that end an expression or a name without AS.
bool isClauseWord(const Token& token);

// expressions.cpp
Piece expression(SqlParser& p);
/// Without AND, OR and NOT: for the bounds of BETWEEN and the like.
Piece sum(SqlParser& p);
std::vector<Piece> expressionList(SqlParser& p);  ///< up to, without, the closing parenthesis
/// `value` as it is stored in a column of this kind.
std::string storedAs(const Piece& value, ColumnKind kind);

// functions.cpp
/// A call; the parser stands behind the opening parenthesis.
Piece functionCall(SqlParser& p, const std::string& name);
/// The type of CAST and CONVERT.
ColumnKind typeOperand(SqlParser& p, std::string& sqlType);

// queries.cpp
/// WITH name AS (..), ... in front of a query; empty without.
std::string commonTables(SqlParser& p);
struct QueryOptions {
  bool rowKeys = false;
  bool nested = false;
};
struct Query {
  std::string text;
  std::string intoTable;
  std::vector<RowKey> keys;
  std::vector<ResultColumn> columns;
};
/// SELECT with all that follows, parts joined by UNION included.
Query query(SqlParser& p, QueryOptions options);
struct Source {
  std::string text;
  struct Table {
    std::string name;
    std::string alias;
  };
  std::vector<Table> tables;  ///< those that are tables, in order
  bool joined = false;
};
/// What stands behind FROM or UPDATE.
Source source(SqlParser& p);

// changes.cpp
SqlStatement insertStatement(SqlParser& p, std::string_view verb);  ///< behind the verb
SqlStatement updateStatement(SqlParser& p);
SqlStatement deleteStatement(SqlParser& p);

// definitions.cpp
void createStatement(SqlParser& p, std::vector<SqlStatement>& statements);
void alterStatement(SqlParser& p, std::vector<SqlStatement>& statements);
SqlStatement dropStatement(SqlParser& p);

}  // namespace quorvane::ado
