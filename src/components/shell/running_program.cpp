#include "components/shell/running_program.h"

#include <memory>
#include <string>

#include "components/component_error.h"
#include "components/shell/command_words.h"
#include "components/text_stream.h"
#include "platform/child_process.h"
#include "platform/process.h"
#include "support/server_state.h"
#include "vbscript/values/object.h"
#include "vbscript/values/time_check.h"

namespace quorvane::shell {

using vbs::Args;
using vbs::Value;

namespace {

/// How long a script waits for a program before it looks at its own time.
constexpr int kTurn = 50;

[[noreturn]] void failToStart() {
  constexpr std::int32_t kNoSuchFile = -2147024894;
  throwComponentError(kNoSuchFile, "The system cannot find the file specified.", "WshShell.Run");
}

ChildCommand commandOf(std::string_view line, const Services& services) {
  if (!services.state.AllowShell) vbs::throwError(vbs::ErrorCode::PermissionDenied);
  return {commandWords(line), false};
}

class OutputChannel final : public TextStream::Channel {
 public:
  OutputChannel(std::shared_ptr<ChildProcess> program, ChildProcess::Output output)
      : program_(std::move(program)), output_(output) {}

  std::string_view ahead(std::size_t least) override {
    while (block_.size() - at_ < least && fill()) {
    }
    return std::string_view(block_).substr(at_);
  }
  void skip(std::size_t count) override { at_ += count; }
  void write(std::string_view) override {}
  void flush() override {}
  bool closes() const override { return true; }

 private:
  /// False at the end.
  bool fill() {
    constexpr std::size_t kBlock = std::size_t{64} * 1024;
    block_.erase(0, at_);
    at_ = 0;
    const std::size_t kept = block_.size();
    block_.resize(kept + kBlock);
    std::optional<std::size_t> count;
    while (!(count = program_->read(output_, block_.data() + kept, kBlock, kTurn))) {
      vbs::checkTime();
    }
    block_.resize(kept + *count);
    return *count > 0;
  }

  std::shared_ptr<ChildProcess> program_;
  ChildProcess::Output output_;
  std::string block_;
  std::size_t at_ = 0;
};

class InputChannel final : public TextStream::Channel {
 public:
  explicit InputChannel(std::shared_ptr<ChildProcess> program) : program_(std::move(program)) {}
  ~InputChannel() override { program_->closeInput(); }

  std::string_view ahead(std::size_t) override { return {}; }
  void skip(std::size_t) override {}
  void write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto count = program_->write(bytes, kTurn);
      if (!count) failClosed();
      bytes.remove_prefix(*count);
      vbs::checkTime();
    }
  }
  void flush() override {}
  bool closes() const override { return true; }

 private:
  [[noreturn]] static void failClosed() {
    constexpr std::int32_t kPipeClosed = -2147024664;
    throwComponentError(kPipeClosed, "The pipe is being closed.", "WshShell.Exec");
  }

  std::shared_ptr<ChildProcess> program_;
};

class RunningProgram final : public vbs::NativeObject<RunningProgram> {
 public:
  explicit RunningProgram(const std::shared_ptr<ChildProcess>& program)
      : program_(program),
        input_(vbs::make<TextStream>(std::make_unique<InputChannel>(program),
                                     TextStream::Form{TextStream::Mode::Write})),
        output_(output(ChildProcess::Output::Standard)),
        error_(output(ChildProcess::Output::Error)) {}
  std::string_view typeName() const override { return "WshExec"; }

  static std::span<const vbs::Member<RunningProgram>> members() {
    using Self = RunningProgram;
    static constexpr vbs::Member<Self> kMembers[] = {
        {"status", 0, 0, &Self::status},         {"exitcode", 0, 0, &Self::exitCode},
        {"processid", 0, 0, &Self::processId},   {"stdin", 0, 0, &Self::standardInput},
        {"stdout", 0, 0, &Self::standardOutput}, {"stderr", 0, 0, &Self::standardError},
        {"terminate", 0, 0, &Self::terminate},
    };
    return kMembers;
  }

 private:
  vbs::Ref<TextStream> output(ChildProcess::Output which) {
    return vbs::make<TextStream>(std::make_unique<OutputChannel>(program_, which),
                                 TextStream::Form{});
  }

  Value status(Args) { return Value::longInt(program_->exitStatus(0) ? 1 : 0); }
  Value exitCode(Args) { return Value::longInt(program_->exitStatus(0).value_or(0)); }
  Value processId(Args) { return Value::longInt(program_->id()); }
  Value standardInput(Args) { return Value::object(input_.get()); }
  Value standardOutput(Args) { return Value::object(output_.get()); }
  Value standardError(Args) { return Value::object(error_.get()); }
  Value terminate(Args) {
    program_->terminate();
    return {};
  }

  std::shared_ptr<ChildProcess> program_;
  vbs::Ref<TextStream> input_;
  vbs::Ref<TextStream> output_;
  vbs::Ref<TextStream> error_;
};

}  // namespace

Value runningProgram(std::string_view commandLine, const Services& services) {
  ChildCommand command = commandOf(commandLine, services);
  command.piped = true;
  std::shared_ptr<ChildProcess> program = services.process.start(command);
  if (!program) failToStart();
  return Value::adopt(new RunningProgram(program));
}

Value runProgram(std::string_view commandLine, bool waits, const Services& services) {
  const ChildCommand command = commandOf(expanded(commandLine, services), services);
  if (!waits) {
    if (!services.process.startDetached(command)) failToStart();
    return Value::longInt(0);
  }
  const auto program = services.process.start(command);
  if (!program) failToStart();
  std::optional<std::int32_t> status;
  while (!(status = program->exitStatus(kTurn))) vbs::checkTime();
  return Value::longInt(*status);
}

}  // namespace quorvane::shell
