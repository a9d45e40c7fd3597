#include "components/site/counters.h"

#include <string>
#include <string_view>
#include <vector>

#include "components/arguments.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

namespace quorvane {

using vbs::Args;
using vbs::ErrorCode;
using vbs::Value;

namespace {

constexpr std::size_t kMostCounters = 10'000;
constexpr std::size_t kLongestName = 256;

struct Counter {
  std::string name;
  std::int32_t number = 0;
};

/// Names may hold colons, numbers don't.
std::vector<Counter> countersOf(std::string_view file) {
  std::vector<Counter> counters;
  for (std::string_view line : split(file, '\n')) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    const std::size_t colon = line.rfind(':');
    if (colon == line.npos || counters.size() == kMostCounters) continue;
    const auto number = numericLong(line.substr(colon + 1));
    counters.push_back({std::string(line.substr(0, colon)), number.value_or(0)});
  }
  return counters;
}

std::string textOf(const std::vector<Counter>& counters) {
  std::string text;
  for (const Counter& counter : counters) {
    text += counter.name + ':' + std::to_string(counter.number) + "\r\n";
  }
  return text;
}

std::vector<Counter>::iterator findIn(std::vector<Counter>& counters, std::string_view name) {
  auto counter = counters.begin();
  while (counter != counters.end() && !equalsNoCase(counter->name, name)) ++counter;
  return counter;
}

class Counters final : public vbs::NativeObject<Counters> {
 public:
  explicit Counters(const Services& services)
      : files_(services.files), path_(paths::join(services.state.MainPath, "Counters.txt")) {}
  std::string_view typeName() const override { return "IMSWCCounters"; }

  static std::span<const vbs::Member<Counters>> members() {
    using Self = Counters;
    static constexpr vbs::Member<Self> kMembers[] = {
        {"get", 1, 1, &Self::get},
        {"increment", 1, 1, &Self::increment},
        {"remove", 1, 1, &Self::remove},
        {"set", 2, 2, &Self::set},
    };
    return kMembers;
  }

 private:
  static std::string nameIn(Args args) {
    std::string name = arguments::text(args, 0);
    if (name.empty() || name.size() > kLongestName || name.find_first_of("\r\n") != name.npos) {
      vbs::throwError(ErrorCode::InvalidCall);
    }
    return name;
  }
  std::vector<Counter> load() const {
    const std::string file = files_.readAll(path_).value_or(std::string());
    vbs::countWork(file.size());
    return countersOf(file);
  }
  void store(const std::vector<Counter>& counters) const {
    if (!files_.writeAll(path_, textOf(counters))) vbs::throwError(ErrorCode::PermissionDenied);
  }
  static Counter& counterIn(std::vector<Counter>& counters, const std::string& name) {
    const auto found = findIn(counters, name);
    if (found != counters.end()) return *found;
    if (counters.size() == kMostCounters) vbs::throwError(ErrorCode::OutOfMemory);
    return counters.emplace_back(Counter{name, 0});
  }

  Value get(Args args) {
    auto counters = load();
    const auto found = findIn(counters, nameIn(args));
    return Value::longInt(found == counters.end() ? 0 : found->number);
  }
  Value increment(Args args) {
    auto counters = load();
    Counter& counter = counterIn(counters, nameIn(args));
    if (counter.number == INT32_MAX) vbs::throwError(ErrorCode::Overflow);
    const std::int32_t number = ++counter.number;
    store(counters);
    return Value::longInt(number);
  }
  Value set(Args args) {
    auto counters = load();
    const std::int32_t number = vbs::toLong(args[1]);
    counterIn(counters, nameIn(args)).number = number;
    store(counters);
    return Value::longInt(number);
  }
  Value remove(Args args) {
    auto counters = load();
    const auto found = findIn(counters, nameIn(args));
    if (found == counters.end()) return {};
    counters.erase(found);
    store(counters);
    return {};
  }

  const Files& files_;
  std::string path_;
};

}  // namespace

const Component kCounters{
    "mswc.counters", [](const Services& services) { return Value::adopt(new Counters(services)); },
    /*isOurs=*/true};

}  // namespace quorvane
