#include "components/xml/fault_texts.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "components/xml/library.h"
#include "components/xml/tree.h"

namespace quorvane::xml {

namespace {

struct FaultText {
  std::int32_t code;
  std::string_view text;
};

constexpr std::array kTexts = {
    FaultText{FaultCode::of(0x80004005), "Unspecified error"},
    FaultText{FaultCode::of(0x80070005), "Access is denied."},
    FaultText{FaultCode::of(0x800C0005), "The system cannot locate the resource specified."},
    FaultText{FaultCode::of(0x800C0006), "The system cannot locate the object specified."},
    FaultText{FaultCode::of(0x800C0007), "No data is available for the requested resource."},
    FaultText{FaultCode::MissingEquals,
              "Missing equals sign between attribute and attribute value."},
    FaultText{FaultCode::MissingQuote,
              "A string literal was expected, but no opening quote character was found."},
    FaultText{FaultCode::CommentSyntax, "Incorrect syntax was used in a comment."},
    FaultText{FaultCode::BadNameStart, "A name was started with an invalid character."},
    FaultText{FaultCode::BadName, "A name contained an invalid character."},
    FaultText{FaultCode::LessInAttribute,
              "The character '<' cannot be used in an attribute value."},
    FaultText{FaultCode::DeclarationSyntax, "Invalid syntax for an xml declaration."},
    FaultText{FaultCode::BadCharacter, "An invalid character was found in text content."},
    FaultText{FaultCode::MissingSpace, "Required white space was missing."},
    FaultText{FaultCode::ExpectingTagEnd, "The character '>' was expected."},
    FaultText{FaultCode::MissingSemicolon, "A semi colon character was expected."},
    FaultText{FaultCode::UnexpectedSpace, "Whitespace is not allowed at this location."},
    FaultText{FaultCode::UnclosedString, "A string literal was not closed."},
    FaultText{FaultCode::BadDecimal, "Invalid character in decimal character reference."},
    FaultText{FaultCode::BadHexadecimal, "Invalid character in hexadecimal character reference."},
    FaultText{FaultCode::BadUnicode, "Invalid unicode character."},
    FaultText{FaultCode::UnexpectedEndTag, "End tag was not expected at this location."},
    FaultText{FaultCode::DuplicateAttribute, "Duplicate attribute."},
    FaultText{FaultCode::MultipleRoots,
              "Only one top level element is allowed in an XML document."},
    FaultText{FaultCode::InvalidAtTop, "Invalid at the top level of the document."},
    FaultText{FaultCode::BadDeclaration, "Invalid xml declaration."},
    FaultText{FaultCode::MissingRoot, "XML document must have a top level element."},
    FaultText{FaultCode::UnexpectedEnd, "Unexpected end of file."},
    FaultText{FaultCode::UnclosedInstruction, "A processing instruction was not closed."},
    FaultText{FaultCode::UnclosedStartTag, "Element was not closed."},
    FaultText{FaultCode::UnclosedEndTag, "End element was missing the character '>'."},
    FaultText{FaultCode::UnclosedComment, "A comment was not closed."},
    FaultText{FaultCode::UnclosedCData, "A CDATA section was not closed."},
    FaultText{FaultCode::UnknownEncoding, "System does not support the specified encoding."},
    FaultText{FaultCode::TypeProhibited, "DTD is prohibited."},
};

constexpr std::string_view kLineEnd = "\r\n";

struct Mapped {
  int libraryCode;
  std::int32_t code;
};

constexpr std::array kMapped = {
    Mapped{XML_ERR_INVALID_HEX_CHARREF, FaultCode::BadHexadecimal},
    Mapped{XML_ERR_INVALID_DEC_CHARREF, FaultCode::BadDecimal},
    Mapped{XML_ERR_INVALID_CHAR, FaultCode::BadCharacter},
    Mapped{XML_ERR_INVALID_ENCODING, FaultCode::BadCharacter},
    Mapped{XML_I18N_CONV_FAILED, FaultCode::BadCharacter},
    Mapped{XML_ERR_UNKNOWN_ENCODING, FaultCode::UnknownEncoding},
    Mapped{XML_ERR_UNSUPPORTED_ENCODING, FaultCode::UnknownEncoding},
    Mapped{XML_ERR_ENTITYREF_SEMICOL_MISSING, FaultCode::MissingSemicolon},
    Mapped{XML_ERR_LT_IN_ATTRIBUTE, FaultCode::LessInAttribute},
    Mapped{XML_ERR_ATTRIBUTE_NOT_STARTED, FaultCode::MissingQuote},
    Mapped{XML_ERR_ATTRIBUTE_NOT_FINISHED, FaultCode::UnclosedString},
    Mapped{XML_ERR_ATTRIBUTE_WITHOUT_VALUE, FaultCode::MissingEquals},
    Mapped{XML_ERR_ATTRIBUTE_REDEFINED, FaultCode::DuplicateAttribute},
    Mapped{XML_NS_ERR_ATTRIBUTE_REDEFINED, FaultCode::DuplicateAttribute},
    Mapped{XML_ERR_LITERAL_NOT_STARTED, FaultCode::MissingQuote},
    Mapped{XML_ERR_LITERAL_NOT_FINISHED, FaultCode::UnclosedString},
    Mapped{XML_ERR_STRING_NOT_STARTED, FaultCode::MissingQuote},
    Mapped{XML_ERR_STRING_NOT_CLOSED, FaultCode::UnclosedString},
    Mapped{XML_ERR_COMMENT_NOT_FINISHED, FaultCode::UnclosedComment},
    Mapped{XML_ERR_HYPHEN_IN_COMMENT, FaultCode::CommentSyntax},
    Mapped{XML_ERR_PI_NOT_FINISHED, FaultCode::UnclosedInstruction},
    Mapped{XML_ERR_XMLDECL_NOT_STARTED, FaultCode::DeclarationSyntax},
    Mapped{XML_ERR_XMLDECL_NOT_FINISHED, FaultCode::DeclarationSyntax},
    Mapped{XML_ERR_VERSION_MISSING, FaultCode::DeclarationSyntax},
    Mapped{XML_ERR_RESERVED_XML_NAME, FaultCode::BadDeclaration},
    Mapped{XML_ERR_CDATA_NOT_FINISHED, FaultCode::UnclosedCData},
    Mapped{XML_ERR_SPACE_REQUIRED, FaultCode::MissingSpace},
};

/// What follows a "<", "&" or "</" where a name should stand, or a tag's last name where its end
/// should.
std::int32_t nameFault(std::string_view rest) {
  if (rest.empty()) return FaultCode::UnexpectedEnd;
  if (isSpace(rest.substr(0, 1))) return FaultCode::UnexpectedSpace;
  return FaultCode::BadNameStart;
}

std::int32_t topFault(const FaultPlace& place) {
  if (place.isBlank) return FaultCode::MissingRoot;
  const bool tag =
      place.rest.size() > 1 && place.rest[0] == '<' &&
      (std::isalpha(static_cast<unsigned char>(place.rest[1])) || place.rest[1] == '_');
  if (place.rest.starts_with("</")) return FaultCode::UnexpectedEndTag;
  return tag ? FaultCode::MultipleRoots : FaultCode::InvalidAtTop;
}

std::string unclosed(const FaultPlace& place) {
  std::string text = "The following tags were not closed: ";
  for (std::size_t i = 0; i < place.open.size(); ++i) {
    text.append(i > 0 ? ", " : "").append(place.open[i]);
  }
  return text.append(".").append(kLineEnd);
}

Described named(std::int32_t code, std::string_view before, const char* name,
                std::string_view behind) {
  std::string text(before);
  text.append(name ? name : "").append(behind).append(kLineEnd);
  return {code, std::move(text)};
}

std::int32_t tagEndFault(const FaultPlace& place) {
  if (place.rest.empty()) return FaultCode::UnclosedStartTag;
  const char next = place.rest[0];
  if (next == '/' || next == '<') return FaultCode::ExpectingTagEnd;
  return next == '=' || next == '"' || next == '\'' ||
                 std::isdigit(static_cast<unsigned char>(next))
             ? FaultCode::BadNameStart
             : FaultCode::BadName;
}

}  // namespace

std::string faultText(std::int32_t code) {
  const auto found = std::find_if(kTexts.begin(), kTexts.end(),
                                  [code](const FaultText& row) { return row.code == code; });
  return found == kTexts.end() ? std::string() : std::string(found->text).append(kLineEnd);
}

Described describeFault(const xmlError& error, const FaultPlace& place) {
  std::int32_t code = 0;
  switch (error.code) {
    case XML_ERR_TAG_NAME_MISMATCH: {
      const std::string start = error.str1 ? error.str1 : "";
      return named(FaultCode::EndTagMismatch, "End tag '", error.str2,
                   "' does not match the start tag '" + start + "'.");
    }
    case XML_ERR_UNDECLARED_ENTITY:
    case XML_WAR_UNDECLARED_ENTITY:
      return named(FaultCode::UndefinedEntity, "Reference to undefined entity '", error.str1, "'.");
    case XML_NS_ERR_UNDEFINED_NAMESPACE:
      return named(FaultCode::UndeclaredPrefix, "Reference to undeclared namespace prefix: '",
                   error.str1, "'.");
    case XML_ERR_TAG_NOT_FINISHED:
      return {FaultCode::UnclosedTag, unclosed(place)};
    case XML_ERR_LTSLASH_REQUIRED:
      return {FaultCode::UnclosedTag, unclosed(place)};
    case XML_ERR_DOCUMENT_EMPTY:
    case XML_ERR_DOCUMENT_END:
    case XML_ERR_DOCUMENT_START:
      code = topFault(place);
      break;
    case XML_ERR_NAME_REQUIRED:
    case XML_ERR_PI_NOT_STARTED:
      code = nameFault(place.rest);
      break;
    case XML_ERR_GT_REQUIRED:
      code = tagEndFault(place);
      break;
    default:
      for (const Mapped& row : kMapped) {
        if (row.libraryCode == error.code) code = row.code;
      }
  }
  if (code != 0) return {code, faultText(code)};
  std::string text = error.message ? error.message : "";
  while (!text.empty() && isspace(static_cast<unsigned char>(text.back()))) text.pop_back();
  return {FaultCode::InternalFault, text.append(kLineEnd)};
}

}  // namespace quorvane::xml
