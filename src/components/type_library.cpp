#include "components/type_library.h"

#include <array>
#include <string>

#include "platform/random.h"
#include "platform/services.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

namespace quorvane {

using vbs::Args;
using vbs::Value;

namespace {

/// In the customary spelling, whose first three fields are numbers that lie in memory with the
/// lowest byte first.
std::string spelled(const std::array<std::uint8_t, 16>& guid) {
  constexpr std::array<std::uint8_t, 16> kOrder{3, 2, 1,  0,  5,  4,  7,  6,
                                                8, 9, 10, 11, 12, 13, 14, 15};
  std::array<std::uint8_t, 16> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = guid[kOrder[i]];
  std::string text = upperCase(hexDigits(bytes));
  for (const std::size_t at : {20, 16, 12, 8}) text.insert(at, 1, '-');
  return '{' + text + '}';
}

class TypeLibrary final : public vbs::NativeObject<TypeLibrary> {
 public:
  /// Two NULs follow the identifier: pages cut off two characters.
  explicit TypeLibrary(Random& random)
      : guid_(std::string_view(spelled(random.guid()) + std::string(2, '\0'))) {}
  std::string_view typeName() const override { return "ITypeLib"; }

  static std::span<const vbs::Member<TypeLibrary>> members() {
    static constexpr std::array kMembers = {
        vbs::Member<TypeLibrary>{"guid", 0, 0, &TypeLibrary::getGuid, &TypeLibrary::putGuid},
    };
    return kMembers;
  }

 private:
  Value getGuid(Args) { return guid_; }
  void putGuid(Args args, vbs::CallKind) { guid_ = vbs::toString(args[0]); }

  vbs::String guid_;
};

}  // namespace

const Component kTypeLibrary{"scriptlet.typelib", [](const Services& services) {
                               return Value::adopt(new TypeLibrary(services.random));
                             }};

}  // namespace quorvane
