#include "components/system/utf8_encoding.h"

#include <string>

#include "components/arguments.h"
#include "components/component_error.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

namespace quorvane {

using vbs::Args;
using vbs::String;
using vbs::Value;

namespace {

class Utf8Encoding final : public vbs::NativeObject<Utf8Encoding> {
 public:
  std::string_view typeName() const override { return "UTF8Encoding"; }

  static std::span<const vbs::Member<Utf8Encoding>> members() {
    using Self = Utf8Encoding;
    static constexpr vbs::Member<Self> kMembers[] = {
        {"getbytes_4", 1, 1, &Self::getBytes},
        {"getbytecount_2", 1, 1, &Self::getByteCount},
        {"getstring", 1, 1, &Self::getString},
        {"getstring_2", 3, 3, &Self::getString},
        {"getcharcount", 1, 1, &Self::getCharCount},
        {"getmaxbytecount", 1, 1, &Self::getMaxByteCount},
        {"getmaxcharcount", 1, 1, &Self::getMaxCharCount},
        {"getpreamble", 0, 0, &Self::getPreamble},
        {"bodyname", 0, 0, &Self::name},
        {"headername", 0, 0, &Self::name},
        {"webname", 0, 0, &Self::name},
        {"encodingname", 0, 0, &Self::encodingName},
        {"codepage", 0, 0, &Self::codePage},
    };
    return kMembers;
  }

 private:
  static Value number(std::size_t count) {
    return Value::longInt(static_cast<std::int32_t>(count));
  }

  /// The bytes of the first argument, or `count` of them from `start` on.
  static std::string_view bytes(Args args) {
    const std::string_view all = arguments::bytes(args[0]);
    if (args.size() < 3) return all;
    const std::int32_t start = vbs::toLong(args[1]);
    const std::int32_t count = vbs::toLong(args[2]);
    if (start < 0 || count < 0 || static_cast<std::size_t>(start) > all.size() ||
        static_cast<std::size_t>(count) > all.size() - static_cast<std::size_t>(start)) {
      constexpr std::int32_t kArgumentOutOfRange = -2146233086;
      throwComponentError(kArgumentOutOfRange,
                          "Index and count must refer to a location within the buffer.\r\n"
                          "Parameter name: bytes",
                          "mscorlib");
    }
    return all.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count));
  }

  Value getBytes(Args args) {
    return Value::array(vbs::ArrayRep::fromBytes(vbs::toString(args[0]).utf8()));
  }
  Value getByteCount(Args args) { return number(vbs::toString(args[0]).utf8().size()); }
  Value getString(Args args) { return String::fromUtf8(bytes(args)); }
  Value getCharCount(Args args) { return number(String::fromUtf8(bytes(args)).length()); }
  Value getMaxByteCount(Args args) {
    return Value::number((static_cast<double>(vbs::toLong(args[0])) + 1) * 3);
  }
  Value getMaxCharCount(Args args) {
    return Value::number(static_cast<double>(vbs::toLong(args[0])) + 1);
  }
  /// None: an encoding made without arguments writes no mark.
  Value getPreamble(Args) { return Value::array(vbs::ArrayRep::fromBytes({})); }
  Value name(Args) { return Value("utf-8"); }
  Value encodingName(Args) { return Value("Unicode (UTF-8)"); }
  Value codePage(Args) { return Value::longInt(65001); }
};

}  // namespace

const Component kUtf8Encoding{"system.text.utf8encoding",
                              [](const Services&) { return Value::adopt(new Utf8Encoding()); }};

}  // namespace quorvane
