#include "vbscript/dumps/dumps.h"

#include <cstdio>

#include "vbscript/compile/program.h"
#include "vbscript/library/library.h"
#include "vbscript/machine/error_report.h"
#include "vbscript/values/convert.h"

namespace quorvane::vbs {

namespace {

struct OpcodeRow {
  std::string_view name;
  std::string_view operands;
};

constexpr OpcodeRow kRows[] = {
#define VBS_OPCODE_ROW(name, operands, meaning) {#name, operands},
    VBS_OPCODES(VBS_OPCODE_ROW)
#undef VBS_OPCODE_ROW
};

const OpcodeRow& rowOf(Opcode op) {
  return kRows[static_cast<std::size_t>(op)];
}

/// What stands behind the blank: the kind of the following word, or NUL.
char secondWord(std::string_view operands) {
  const std::size_t blank = operands.find(' ');
  return blank == std::string_view::npos ? '\0' : operands[blank + 1];
}

std::string constantText(const Value& value) {
  if (value.isString()) return '"' + value.asString().narrow() + '"';
  if (value.isEmpty()) return "Empty";
  if (value.isNull()) return "Null";
  if (value.isObject()) return "Nothing";
  if (value.isMissing()) return "missing";
  return toString(value).narrow();
}

class Disassembler {
 public:
  explicit Disassembler(const Routine& routine) : routine_(routine) {}

  std::string text() {
    heading();
    std::uint32_t line = 0;
    for (std::uint32_t at = 0; at < routine_.code.size();) {
      const StatementEntry* statement = routine_.statementAt(at);
      if (statement && statement->position.line != line) {
        line = statement->position.line;
        out_ += " line " + std::to_string(line) + '\n';
      }
      at += instruction(at);
    }
    return std::move(out_);
  }

 private:
  void heading() {
    out_ += routine_.name.empty() ? std::string("main") : routine_.name;
    out_ += " (" + std::to_string(routine_.parameterCount) + " parameters)\n";
  }

  std::uint32_t instruction(std::uint32_t at) {
    const Instruction& code = routine_.code[at];
    const OpcodeRow& row = rowOf(code.op);
    char number[16];
    std::snprintf(number, sizeof number, "%5u  ", at);
    out_ += number;
    out_ += row.name;
    const std::uint16_t values[] = {code.a, code.b, code.c};
    for (std::size_t i = 0; i < 3 && i < row.operands.size() && row.operands[i] != ' '; ++i) {
      operand(row.operands[i], values[i], code, at);
    }
    const char second = secondWord(row.operands);
    if (second != '\0') word(second, routine_.code[at + 1], at);
    out_ += '\n';
    return second == '\0' ? 1 : 2;
  }

  void operand(char kind, std::uint16_t value, const Instruction& code, std::uint32_t at) {
    switch (kind) {
      case 'r':
        return registerName(value);
      case 'd':
        if (value == kNoRegister) {
          out_ += " none";
        } else {
          registerName(value);
        }
        return;
      case 'g':
        out_ += " g" + std::to_string(value);
        return;
      case 'f':
        out_ += " field" + std::to_string(value);
        return;
      case 'k':
        out_ += ' ' + constantText(routine_.constants[value]);
        return;
      case 'i':
        out_ += ' ' + std::to_string(static_cast<std::int16_t>(value));
        return;
      case 'w':
        if (code.op == Opcode::LoadFarConstant) {
          out_ += ' ' + constantText(routine_.constants[static_cast<std::size_t>(code.wide())]);
        } else {
          target(at, code.wide());
        }
        return;
      case 't':
      case '-':
        return;
      default:
        out_ += ' ' + std::to_string(value);
    }
  }

  /// Variables of main code are globals; whatever lies above them is counted from 0 again.
  void registerName(std::uint16_t value) {
    if (value >= routine_.firstTemporary) {
      out_ += " t" + std::to_string(value - routine_.firstTemporary);
    } else if (value >= kMaxGlobals) {
      out_ += " h" + std::to_string(value - kMaxGlobals);
    } else {
      out_ += " r" + std::to_string(value);
    }
  }

  /// `distance` is one in bytes.
  void target(std::uint32_t at, std::int32_t distance) {
    constexpr auto kWord = static_cast<std::int32_t>(sizeof(Instruction));
    out_ += " ->" + std::to_string(static_cast<std::int64_t>(at) + distance / kWord);
  }

  void word(char kind, const Instruction& code, std::uint32_t at) {
    const auto& names = routine_.program->names;
    switch (kind) {
      case 'W':
        return target(at, static_cast<std::int32_t>(code.low()));
      case 'M':
        out_ += " ." + names[code.pointer<MemberCache>()->name].text;
        return;
      case 'R':
        out_ += ' ' + code.pointer<const Routine>()->name;
        return;
      case 'C':
        out_ += ' ' + code.pointer<const ScriptClass>()->name;
        return;
      case 'I':
        out_ += ' ' + std::string(code.pointer<const Intrinsic>()->title);
        return;
      case 'X':
        if (code.low() != kNoName) out_ += ' ' + names[code.low()].text;
        return;
      case 'H':
        out_ += " host" + std::to_string(code.low()) + " member" + std::to_string(code.high());
        return;
      case 'N':
        out_ += " count " + std::to_string(code.low());
        return;
      case 'L':
        out_ += " count " + std::to_string(code.low()) + " lock";
        return registerName(static_cast<std::uint16_t>(code.high()));
      case 'r':
        return registerName(static_cast<std::uint16_t>(code.low()));
      default:
        return;
    }
  }

  const Routine& routine_;
  std::string out_;
};

std::string disassemble(const Program& program) {
  std::string out;
  for (const auto& routine : program.routines) {
    if (!out.empty()) out += '\n';
    out += Disassembler(*routine).text();
  }
  return out;
}

}  // namespace

std::string dumpBytecode(std::string_view source) {
  try {
    return disassemble(*compileScript(source, {}));
  } catch (const CompileError& fault) {
    const ErrorReport report = compileErrorReport(fault, source);
    return "(" + std::to_string(report.line) + ", " + std::to_string(report.column) + ") " +
           report.description + "\n";
  }
}

}  // namespace quorvane::vbs
