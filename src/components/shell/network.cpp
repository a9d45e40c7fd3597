#include "components/shell/network.h"

#include <string>

#include "platform/process.h"
#include "platform/services.h"
#include "vbscript/values/object.h"

namespace quorvane {

using vbs::Args;
using vbs::Value;

namespace {

class Network final : public vbs::NativeObject<Network> {
 public:
  explicit Network(const Process& process) : process_(process) {}
  std::string_view typeName() const override { return "IWshNetwork2"; }

  static std::span<const vbs::Member<Network>> members() {
    static constexpr vbs::Member<Network> kMembers[] = {
        {"computername", 0, 0, &Network::computerName},
        {"username", 0, 0, &Network::userName},
        {"userdomain", 0, 0, &Network::computerName},  // of a user that belongs to no domain
    };
    return kMembers;
  }

 private:
  Value computerName(Args) { return Value(std::string_view(process_.computerName())); }
  Value userName(Args) { return Value(std::string_view(process_.userName())); }

  const Process& process_;
};

}  // namespace

const Component kNetwork{"wscript.network", [](const Services& services) {
                           return Value::adopt(new Network(services.process));
                         }};

}  // namespace quorvane
