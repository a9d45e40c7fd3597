#pragma once

#include <libxml/xmlerror.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::xml {

/// The numbers of the customary component for what can be wrong with a document.
namespace FaultCode {

constexpr std::int32_t of(std::uint32_t bits) {
  return static_cast<std::int32_t>(bits);
}

inline constexpr std::int32_t UndefinedEntity = of(0xC00CE002);
inline constexpr std::int32_t UndeclaredPrefix = of(0xC00CE01D);
inline constexpr std::int32_t MissingEquals = of(0xC00CE501);
inline constexpr std::int32_t MissingQuote = of(0xC00CE502);
inline constexpr std::int32_t CommentSyntax = of(0xC00CE503);
inline constexpr std::int32_t BadNameStart = of(0xC00CE504);
inline constexpr std::int32_t BadName = of(0xC00CE505);
inline constexpr std::int32_t LessInAttribute = of(0xC00CE506);
inline constexpr std::int32_t DeclarationSyntax = of(0xC00CE507);
inline constexpr std::int32_t BadCharacter = of(0xC00CE508);
inline constexpr std::int32_t MissingSpace = of(0xC00CE509);
inline constexpr std::int32_t ExpectingTagEnd = of(0xC00CE50A);
inline constexpr std::int32_t MissingSemicolon = of(0xC00CE50D);
inline constexpr std::int32_t InternalFault = of(0xC00CE512);
inline constexpr std::int32_t UnexpectedSpace = of(0xC00CE513);
inline constexpr std::int32_t UnclosedString = of(0xC00CE51B);
inline constexpr std::int32_t BadDecimal = of(0xC00CE51D);
inline constexpr std::int32_t BadHexadecimal = of(0xC00CE51E);
inline constexpr std::int32_t BadUnicode = of(0xC00CE51F);
inline constexpr std::int32_t UnexpectedEndTag = of(0xC00CE552);
inline constexpr std::int32_t UnclosedTag = of(0xC00CE553);
inline constexpr std::int32_t DuplicateAttribute = of(0xC00CE554);
inline constexpr std::int32_t MultipleRoots = of(0xC00CE555);
inline constexpr std::int32_t InvalidAtTop = of(0xC00CE556);
inline constexpr std::int32_t BadDeclaration = of(0xC00CE557);
inline constexpr std::int32_t MissingRoot = of(0xC00CE558);
inline constexpr std::int32_t UnexpectedEnd = of(0xC00CE559);
inline constexpr std::int32_t UnclosedInstruction = of(0xC00CE55D);
inline constexpr std::int32_t UnclosedStartTag = of(0xC00CE55E);
inline constexpr std::int32_t UnclosedEndTag = of(0xC00CE55F);
inline constexpr std::int32_t UnclosedComment = of(0xC00CE560);
inline constexpr std::int32_t UnclosedCData = of(0xC00CE563);
inline constexpr std::int32_t EndTagMismatch = of(0xC00CE56D);
inline constexpr std::int32_t UnknownEncoding = of(0xC00CE56E);
inline constexpr std::int32_t TypeProhibited = of(0xC00CE584);

}  // namespace FaultCode

/// The text of a number without names in it; it ends in a line end as scripts know it.
std::string faultText(std::int32_t code);

/// Where the parser stands as it finds a fault.
struct FaultPlace {
  std::vector<std::string_view> open;  ///< the elements that have begun, the outermost first
  std::string_view rest;               ///< what is still to be read
  bool isBlank = false;                ///< the whole text is white space
};

struct Described {
  std::int32_t code;
  std::string text;
};
Described describeFault(const xmlError& error, const FaultPlace& place);

}  // namespace quorvane::xml
