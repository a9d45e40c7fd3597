#include "vbscript/engine.h"

#include "vbscript/machine/machine.h"

namespace quorvane::vbs {

Engine::Engine(Host& host, ProgramCache& cache, Limits limits)
    : machine_(std::make_unique<Machine>(host, cache, limits)) {}

Engine::~Engine() = default;

void Engine::addObject(std::string_view name, Object& object, bool globalMembers) {
  machine_->addObject(name, object, globalMembers);
}

std::optional<ErrorReport> Engine::run(std::string_view source) {
  return machine_->run(source);
}

void Engine::setDeadline(std::chrono::steady_clock::time_point deadline) {
  machine_->setDeadline(deadline);
}

std::optional<ErrorReport> Engine::evaluate(std::string_view expression, Value& result) {
  return machine_->evaluate(expression, result);
}

}  // namespace quorvane::vbs
