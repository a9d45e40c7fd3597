#include "vbscript/dumps/dumps.h"

#include <array>
#include <string>

#include "vbscript/syntax/parser.h"
#include "vbscript/values/convert.h"

namespace quorvane::vbs {

namespace {

constexpr std::array<std::string_view, 20> kBinaryTexts = {
    "+", "-",  "*", "/",  "\\", "mod", "^",  "&",   "=",   "<>",
    "<", "<=", ">", ">=", "is", "and", "or", "xor", "eqv", "imp"};
constexpr std::array<std::string_view, 3> kUnaryTexts = {"negate", "plus", "not"};
constexpr std::array<std::string_view, 5> kExitTexts = {"do", "for", "sub", "function", "property"};
constexpr std::array<std::string_view, 5> kProcedureTexts = {"sub", "function", "property get",
                                                             "property let", "property set"};

template <class Table, class Enum>
std::string_view textOf(const Table& table, Enum value) {
  return table[static_cast<std::size_t>(value)];
}

std::string quoted(std::string_view text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  return out + '"';
}

/// A Long is marked with & and a Double with !, since the tree's readers care.
std::string literalText(const Value& value) {
  switch (value.type()) {
    case Type::Empty:
      return "Empty";
    case Type::Null:
      return "Null";
    case Type::Object:
      return "Nothing";
    case Type::String:
      return quoted(value.asString().narrow());
    case Type::Date:
      return '#' + toString(value).narrow() + '#';
    case Type::Long:
      return toString(value).narrow() + '&';
    case Type::Double:
      return toString(value).narrow() + '!';
    default:
      return toString(value).narrow();
  }
}

/// Writes a tree as text: a statement a line, expressions with the operator first.
class TreeWriter {
 public:
  std::string take() { return std::move(out_); }

  void script(const Script& script) {
    if (script.optionExplicit) line("option explicit");
    for (const auto& declaration : script.classes) classDeclaration(declaration);
    for (const auto& item : script.procedures) procedure(item);
    block(script.body);
  }

 private:
  void line(std::string_view text) {
    out_.append(depth_ * 2, ' ');
    out_ += text;
    out_ += '\n';
  }

  static std::string join(const std::vector<ExpressionPtr>& list) {
    std::string out;
    for (const auto& item : list) out += ' ' + (item ? expression(*item) : std::string("_"));
    return out;
  }

  static std::string expression(const Expression& node) {
    switch (node.kind) {
      case ExpressionKind::Literal:
        return literalText(static_cast<const LiteralExpression&>(node).value);
      case ExpressionKind::Name:
        return std::string(static_cast<const NameExpression&>(node).name.text);
      case ExpressionKind::Member: {
        const auto& member = static_cast<const MemberExpression&>(node);
        const std::string object = member.object ? expression(*member.object) : "";
        return object + '.' + std::string(member.name.text);
      }
      case ExpressionKind::Call: {
        const auto& call = static_cast<const CallExpression&>(node);
        return "(call " + expression(*call.callee) + join(call.arguments) + ')';
      }
      case ExpressionKind::New:
        return "(new " + std::string(static_cast<const NewExpression&>(node).className.text) + ')';
      case ExpressionKind::Me:
        return "Me";
      case ExpressionKind::Unary: {
        const auto& unary = static_cast<const UnaryExpression&>(node);
        return '(' + std::string(textOf(kUnaryTexts, unary.operation)) + ' ' +
               expression(*unary.operand) + ')';
      }
      case ExpressionKind::Binary: {
        const auto& binary = static_cast<const BinaryExpression&>(node);
        return '(' + std::string(textOf(kBinaryTexts, binary.operation)) + ' ' +
               expression(*binary.left) + ' ' + expression(*binary.right) + ')';
      }
      case ExpressionKind::Parenthesized:
        return "(paren " + expression(*static_cast<const ParenthesizedExpression&>(node).inner) +
               ')';
    }
    return "";
  }

  void block(const Block& statements) {
    for (const auto& item : statements) statement(*item);
  }
  void indented(const Block& statements) {
    ++depth_;
    block(statements);
    --depth_;
  }

  static std::string declarators(const std::vector<Declarator>& names) {
    std::string out;
    for (const auto& name : names) {
      out += (out.empty() ? "" : ", ") + std::string(name.name.text);
      if (!name.isArray) continue;
      std::string bounds;
      for (const auto bound : name.bounds) {
        bounds += (bounds.empty() ? "" : " ") + std::to_string(bound);
      }
      out += '(' + bounds + ')';
    }
    return out;
  }

  static std::string constants(const std::vector<ConstStatement::Item>& items) {
    std::string out;
    for (const auto& item : items) {
      out +=
          (out.empty() ? "" : ", ") + std::string(item.name.text) + " = " + literalText(item.value);
    }
    return out;
  }

  void statement(const Statement& node) {
    switch (node.kind) {
      case StatementKind::Dim:
        return line("dim " + declarators(static_cast<const DimStatement&>(node).names));
      case StatementKind::ReDim:
        return reDim(static_cast<const ReDimStatement&>(node));
      case StatementKind::Erase:
        return line("erase" + join(static_cast<const EraseStatement&>(node).targets));
      case StatementKind::Const:
        return line("const " + constants(static_cast<const ConstStatement&>(node).items));
      case StatementKind::Assign: {
        const auto& assign = static_cast<const AssignStatement&>(node);
        return line((assign.isSet ? "set " : "let ") + expression(*assign.target) + " = " +
                    expression(*assign.value));
      }
      case StatementKind::Call: {
        const auto& call = static_cast<const CallStatement&>(node);
        return line("call " + expression(*call.callee) + join(call.arguments));
      }
      case StatementKind::If:
        return ifStatement(static_cast<const IfStatement&>(node));
      case StatementKind::Select:
        return select(static_cast<const SelectStatement&>(node));
      case StatementKind::For:
        return forStatement(static_cast<const ForStatement&>(node));
      case StatementKind::ForEach: {
        const auto& loop = static_cast<const ForEachStatement&>(node);
        line("for each " + std::string(loop.variable.text) + " in " + expression(*loop.collection));
        return indented(loop.body);
      }
      case StatementKind::Do:
        return doStatement(static_cast<const DoStatement&>(node));
      case StatementKind::Exit:
        return line("exit " +
                    std::string(textOf(kExitTexts, static_cast<const ExitStatement&>(node).what)));
      case StatementKind::With: {
        const auto& with = static_cast<const WithStatement&>(node);
        line("with " + expression(*with.object));
        return indented(with.body);
      }
      case StatementKind::OnError:
        return line(static_cast<const OnErrorStatement&>(node).resumeNext ? "on error resume next"
                                                                          : "on error goto 0");
      case StatementKind::Stop:
        return line("stop");
    }
  }

  void reDim(const ReDimStatement& node) {
    for (const auto& target : node.targets) {
      line(std::string(node.preserve ? "redim preserve " : "redim ") +
           expression(*target.variable) + join(target.bounds));
    }
  }

  void ifStatement(const IfStatement& node) {
    std::string_view word = "if ";
    for (const auto& branch : node.branches) {
      line(std::string(word) + expression(*branch.condition));
      indented(branch.body);
      word = "elseif ";
    }
    otherwise(node.otherwise);
  }

  void otherwise(const Block& statements) {
    if (statements.empty()) return;
    line("else");
    indented(statements);
  }

  void select(const SelectStatement& node) {
    line("select " + expression(*node.subject));
    for (const auto& branch : node.cases) {
      line("case" + join(branch.values));
      indented(branch.body);
    }
    otherwise(node.otherwise);
  }

  void forStatement(const ForStatement& node) {
    line("for " + std::string(node.variable.text) + " = " + expression(*node.from) + " to " +
         expression(*node.to) + (node.step ? " step " + expression(*node.step) : ""));
    indented(node.body);
  }

  void doStatement(const DoStatement& node) {
    const std::string test = node.condition ? std::string(node.until ? " until " : " while ") +
                                                  expression(*node.condition)
                                            : "";
    const bool isBefore = node.test == DoStatement::Test::Before;
    line(node.isWhileWend ? "while" + test.substr(6) : "do" + (isBefore ? test : ""));
    indented(node.body);
    if (!isBefore) line("loop" + test);
  }

  void procedure(const Procedure& node) {
    std::string parameters;
    for (const auto& parameter : node.parameters) {
      parameters += (parameters.empty() ? "" : ", ");
      parameters += parameter.byValue ? "byval " : "";
      parameters += parameter.name.text;
      parameters += parameter.isArray ? "()" : "";
    }
    line(std::string(node.isPrivate ? "private " : "") + (node.isDefault ? "default " : "") +
         std::string(textOf(kProcedureTexts, node.kind)) + ' ' + std::string(node.name.text) + '(' +
         parameters + ')');
    indented(node.body);
  }

  void classDeclaration(const ClassDeclaration& node) {
    line("class " + std::string(node.name.text));
    ++depth_;
    for (const auto& field : node.fields) {
      line((field.isPrivate ? "private " : "public ") + declarators({field}));
    }
    if (!node.constants.empty()) line("const " + constants(node.constants));
    for (const auto& item : node.procedures) procedure(item);
    --depth_;
  }

  std::string out_;
  std::size_t depth_ = 0;
};

}  // namespace

std::string dumpTree(std::string_view source) {
  try {
    const auto script = parseScript(source);
    TreeWriter writer;
    writer.script(*script);
    return writer.take();
  } catch (const CompileError& error) {
    return std::to_string(error.position.line) + ':' + std::to_string(error.position.column) +
           " error " + std::to_string(error.number) + ' ' + error.description + '\n';
  }
}

}  // namespace quorvane::vbs
