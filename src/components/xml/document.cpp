#include "components/xml/document.h"

#include <libxml/parser.h>
#include <libxml/valid.h>

#include <utility>

#include "components/http_client/transfer.h"
#include "components/script_files.h"
#include "components/xml/errors.h"
#include "components/xml/external_files.h"
#include "components/xml/kinds.h"
#include "components/xml/library.h"
#include "components/xml/lists.h"
#include "components/xml/parse_error.h"
#include "components/xml/selecting.h"
#include "components/xml/writing.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane::xml {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

constexpr std::int32_t kCompleted = 4;

std::shared_ptr<Tree> emptyTree() {
  prepareLibrary();
  return std::make_shared<Tree>();
}

std::string utf8(const Value& value) {
  return vbs::toString(value).utf8();
}

const xmlChar* chars(const std::string& text) {
  return libraryText(text.c_str());
}

Value call(vbs::Object& object, std::string_view member, vbs::Args args) {
  return object.invoke(object.findMember(member), vbs::CallKind::Get, args);
}

bool has(vbs::Object& object, std::string_view member) {
  return object.findMember(member) != vbs::kNoMember;
}

}  // namespace

Document::Document(const Services& services, const DocumentSettings& settings)
    : Document(services, settings, {emptyTree(), {}}) {}

Document::Document(const Services& services, const DocumentSettings& settings, Parsed parsed)
    : NativeObject(nullptr, parsed.tree ? parsed.tree : emptyTree(), nullptr),
      services_(services),
      files_(services),
      settings_(settings),
      fault_(std::move(parsed.fault)) {
  tree().preservesSpace = settings.preservesSpace;
}

std::span<const vbs::Member<Document>> Document::members() {
  using Row = vbs::Member<Document>;
  using Self = Document;
  static constexpr auto kMembers = membersOf<Document>({
      Row{"doctype", 0, 0, &Self::getDocType},
      Row{"implementation", 0, 0, &Self::getImplementation},
      Row{"documentelement", 0, 0, &Self::getDocumentElement, &Self::putDocumentElement},
      Row{"createelement", 1, 1, &Self::createElement},
      Row{"createdocumentfragment", 0, 0, &Self::createDocumentFragment},
      Row{"createtextnode", 1, 1, &Self::createTextNode},
      Row{"createcomment", 1, 1, &Self::createComment},
      Row{"createcdatasection", 1, 1, &Self::createCDataSection},
      Row{"createprocessinginstruction", 2, 2, &Self::createProcessingInstruction},
      Row{"createattribute", 1, 1, &Self::createAttribute},
      Row{"createentityreference", 1, 1, &Self::createEntityReference},
      Row{"createnode", 3, 3, &Self::createNode},
      Row{"importnode", 2, 2, &Self::importNode},
      Row{"getelementsbytagname", 1, 1, &Self::getElementsByTagName},
      Row{"nodefromid", 1, 1, &Self::nodeFromId},
      Row{"load", 1, 1, &Self::load},
      Row{"loadxml", 1, 1, &Self::loadXml},
      Row{"save", 1, 1, &Self::save},
      Row{"readystate", 0, 0, &Self::getReadyState},
      Row{"parseerror", 0, 0, &Self::getParseError},
      Row{"validate", 0, 0, &Self::getParseError},
      Row{"url", 0, 0, &Self::getUrl},
      Row{"abort", 0, 0, &Self::abort},
      Row{"async", 0, 0, &Self::getAsync, &Self::putAsync},
      Row{"validateonparse", 0, 0, &Self::getValidateOnParse, &Self::putValidateOnParse},
      Row{"resolveexternals", 0, 0, &Self::getResolveExternals, &Self::putResolveExternals},
      Row{"preservewhitespace", 0, 0, &Self::getPreserveWhiteSpace, &Self::putPreserveWhiteSpace},
      Row{"onreadystatechange", 0, 0, nullptr, &Self::putHandler},
      Row{"ondataavailable", 0, 0, nullptr, &Self::putHandler},
      Row{"setproperty", 2, 2, &Self::setProperty},
      Row{"getproperty", 1, 1, &Self::getProperty},
  });
  return kMembers;
}

Value Document::clone(bool deep) {
  const auto copy = vbs::make<Document>(services_, settings_);
  if (deep) {
    for (xmlNode* at = firstChild(node()); at; at = at->next) {
      xmlNode* made = copyInto(copy->tree(), at, true);
      if (made) link(copy->node(), made, nullptr);
    }
    copy->tree().changed();
  }
  return Value::object(copy.get());
}

ParseOptions Document::parseOptions() const {
  return {settings_.preservesSpace, settings_.form.allowsType, externalFiles()};
}

/// A document that can't be read leaves an empty one.
bool Document::show(Parsed parsed) {
  fault_ = std::move(parsed.fault);
  auto shown = parsed.tree ? std::move(parsed.tree) : emptyTree();
  shown->preservesSpace = settings_.preservesSpace;
  xmlNode* top = shown->top();
  become(std::move(shown), top);
  return fault_.code == 0;
}

bool Document::loadText(std::string_view utf8Text) {
  return show(parseText(utf8Text, parseOptions()));
}

bool Document::loadBytes(std::string_view bytes, const std::string& url, const char* encoding) {
  return show(parse(bytes, encoding, url, parseOptions()));
}

bool Document::loadFromServer(const std::string& url) {
  http_client::Call call = http_client::callFrom(services_);
  call.url = url;
  http_client::Transfer transfer(std::move(call));
  transfer.finish();
  const auto fault = transfer.fault();
  if (fault == http_client::Fault::OwnServer) {
    fail("A page can't request its own server, which runs one page at a time");
  }
  if (fault) return show({nullptr, sourceFault(SourceFault::CannotConnect, url)});
  constexpr long kOk = 200;
  if (transfer.answer().status != kOk) {
    return show({nullptr, sourceFault(SourceFault::NotFound, url)});
  }
  return loadBytes(transfer.answer().body, transfer.answer().url);
}

bool Document::loadFrom(const std::string& location) {
  if (startsWithNoCase(location, "http://") || startsWithNoCase(location, "https://")) {
    return loadFromServer(location);
  }
  const auto path = filePath(location);
  if (!path) return show({nullptr, sourceFault(SourceFault::NotFound, location)});
  const std::string whole = files_.allowedPath(vbs::String::fromUtf8(*path).narrow());
  const auto info = files_.files().stat(whole);
  if (!info || info->isFolder) {
    return show({nullptr, sourceFault(SourceFault::NotFound, location)});
  }
  const vbs::MemoryCharge charge(static_cast<std::size_t>(info->size));
  const auto bytes = files_.files().readAll(whole);
  if (!bytes) return show({nullptr, sourceFault(SourceFault::AccessDenied, location)});
  return loadBytes(*bytes, whole);
}

/// Another document, a page's request, a stream.
bool Document::loadFrom(vbs::Object& source) {
  if (const auto* other = dynamic_cast<const Node*>(&source))
    return loadText(markup(other->node()));
  std::vector<Value> args;
  std::string_view reads = "read";
  if (has(source, "binaryread") && has(source, "totalbytes")) {
    reads = "binaryread";
    args.push_back(call(source, "totalbytes", {}));
  }
  if (!has(source, reads)) failArgument();
  const Value content = call(source, reads, args);
  if (content.isArray()) return loadBytes(vbs::toBytes(*content.asArray()), {});
  if (!content.isNull() && !content.isEmpty()) return loadText(utf8(content));
  return show({nullptr, sourceFault(SourceFault::NoData, {})});
}

xmlNode* Document::rootElement() const {
  return xmlDocGetRootElement(tree().document());
}

Value Document::getDocType(Args) {
  return valueOf(reinterpret_cast<xmlNode*>(xmlGetIntSubset(tree().document())));
}

Value Document::getImplementation(Args) {
  return Value::adopt(new Implementation());
}

Value Document::getDocumentElement(Args) {
  return valueOf(rootElement());
}

void Document::putDocumentElement(Args args, CallKind) {
  Node& element = argument(args.back());
  if (!isElement(element.node())) failArgument();
  Value change[] = {Value::object(&element), valueOf(rootElement())};
  if (rootElement()) {
    replaceChild(change);
  } else {
    appendChild(std::span(change).first(1));
  }
}

Value Document::createElement(Args args) {
  const std::string name = utf8(args[0]);
  checkName(name);
  return valueOfNew(xmlNewDocNode(tree().document(), nullptr, chars(name), nullptr));
}

Value Document::createDocumentFragment(Args) {
  return valueOfNew(xmlNewDocFragment(tree().document()));
}

Value Document::createTextNode(Args args) {
  return valueOfNew(xmlNewDocText(tree().document(), chars(utf8(args[0]))));
}

Value Document::createComment(Args args) {
  return valueOfNew(xmlNewDocComment(tree().document(), chars(utf8(args[0]))));
}

Value Document::createCDataSection(Args args) {
  const std::string text = utf8(args[0]);
  return valueOfNew(
      xmlNewCDataBlock(tree().document(), chars(text), static_cast<int>(text.size())));
}

Value Document::createProcessingInstruction(Args args) {
  const std::string target = utf8(args[0]);
  checkName(target);
  return valueOfNew(xmlNewDocPI(tree().document(), chars(target), chars(utf8(args[1]))));
}

Value Document::createAttribute(Args args) {
  const std::string name = utf8(args[0]);
  checkName(name);
  return valueOfNew(
      reinterpret_cast<xmlNode*>(xmlNewDocProp(tree().document(), chars(name), nullptr)));
}

Value Document::createEntityReference(Args args) {
  const std::string name = utf8(args[0]);
  checkName(name);
  return valueOfNew(xmlNewReference(tree().document(), chars(name)));
}

namespace {

std::int32_t typeArgument(const Value& value) {
  const Value plain = vbs::plainValue(value);
  if (!plain.isString()) return vbs::toLong(plain);
  constexpr std::array<std::pair<std::string_view, std::int32_t>, 8> kNames = {{
      {"element", XML_ELEMENT_NODE},
      {"attribute", XML_ATTRIBUTE_NODE},
      {"text", XML_TEXT_NODE},
      {"cdatasection", XML_CDATA_SECTION_NODE},
      {"entityreference", XML_ENTITY_REF_NODE},
      {"processinginstruction", XML_PI_NODE},
      {"comment", XML_COMMENT_NODE},
      {"documentfragment", XML_DOCUMENT_FRAG_NODE},
  }};
  const std::string name = vbs::toString(plain).narrow();
  for (const auto& [known, type] : kNames) {
    if (equalsNoCase(name, known)) return type;
  }
  return vbs::toLong(plain);
}

}  // namespace

Value Document::createNode(Args args) {
  Value empty[] = {Value(args[1]), Value("")};
  switch (typeArgument(args[0])) {
    case XML_ELEMENT_NODE:
    case XML_ATTRIBUTE_NODE:
      break;
    case XML_TEXT_NODE:
      return createTextNode(std::span(empty).last(1));
    case XML_CDATA_SECTION_NODE:
      return createCDataSection(std::span(empty).last(1));
    case XML_ENTITY_REF_NODE:
      return createEntityReference(empty);
    case XML_PI_NODE:
      return createProcessingInstruction(empty);
    case XML_COMMENT_NODE:
      return createComment(std::span(empty).last(1));
    case XML_DOCUMENT_FRAG_NODE:
      return createDocumentFragment({});
    default:
      failArgument();
  }
  const std::string name = utf8(args[1]);
  const std::string address = vbs::plainValue(args[2]).isNull() ? "" : utf8(args[2]);
  checkName(name);
  const std::size_t colon = name.find(':');
  const std::string prefix = colon == name.npos ? "" : name.substr(0, colon);
  if (!prefix.empty() && address.empty() && !isDeclarationName(name)) {
    fail("Reference to undeclared namespace prefix: '" + prefix + "'.");
  }
  xmlNs* space = isDeclarationName(name) ? nullptr : tree().space(prefix, address);
  const std::string local = space && colon != name.npos ? name.substr(colon + 1) : name;
  if (typeArgument(args[0]) == XML_ELEMENT_NODE) {
    return valueOfNew(xmlNewDocNode(tree().document(), space, chars(local), nullptr));
  }
  xmlAttr* made = xmlNewDocProp(tree().document(), chars(local), nullptr);
  if (made) made->ns = space;
  return valueOfNew(reinterpret_cast<xmlNode*>(made));
}

Value Document::importNode(Args args) {
  const Node& source = argument(args[0]);
  if (source.node()->type == XML_DOCUMENT_NODE) failArgument();
  return valueOfNew(copyInto(tree(), source.node(), vbs::toBoolean(args[1])));
}

Value Document::getElementsByTagName(Args args) {
  return Value::adopt(new TagList(*this, utf8(args[0])));
}

Value Document::nodeFromId(Args args) {
  const xmlAttr* id = xmlGetID(tree().document(), chars(utf8(args[0])));
  return valueOf(id ? id->parent : nullptr);
}

Value Document::load(Args args) {
  const Value source = args[0].deref();
  if (source.isObject()) {
    if (!source.asObject()) failArgument();
    return Value::boolean(loadFrom(*source.asObject()));
  }
  if (source.isArray()) return Value::boolean(loadBytes(vbs::toBytes(*source.asArray()), {}));
  return Value::boolean(loadFrom(utf8(source)));
}

Value Document::loadXml(Args args) {
  return Value::boolean(loadText(utf8(args[0])));
}

void deliver(const Document& from, const Value& destination, std::string_view bytes) {
  const Value& target = destination.deref();
  if (!target.isObject()) {
    const std::string path =
        from.files().allowedPath(filePath(vbs::toString(target).narrow()).value_or(""));
    if (!from.files().files().writeAll(path, bytes)) {
      fail(static_cast<std::int32_t>(SourceFault::AccessDenied), "Access is denied.");
    }
    return;
  }
  if (!target.asObject()) failArgument();
  vbs::Object& object = *target.asObject();
  if (auto* document = dynamic_cast<Document*>(&object)) {
    document->loadBytes(bytes, {});
    return;
  }
  const std::string_view writes = has(object, "binarywrite") ? "binarywrite" : "write";
  if (!has(object, writes)) failArgument();
  Value content[] = {Value::array(vbs::ArrayRep::fromBytes(bytes))};
  object.invoke(object.findMember(writes), CallKind::Call, content);
}

Value Document::save(Args args) {
  deliver(*this, args[0], documentBytes(tree().document()));
  return Value();
}

Value Document::getReadyState(Args) {
  return Value::longInt(kCompleted);
}

Value Document::getParseError(Args) {
  return Value::adopt(new ParseError(fault_));
}

Value Document::getUrl(Args) {
  return vbs::String::fromUtf8(tree().url);
}

Value Document::abort(Args) {
  return Value();
}

Value Document::getAsync(Args) {
  return Value::boolean(settings_.isAsync);
}
void Document::putAsync(Args args, CallKind) {
  settings_.isAsync = vbs::toBoolean(args.back());
}

Value Document::getValidateOnParse(Args) {
  return Value::boolean(settings_.validates);
}
void Document::putValidateOnParse(Args args, CallKind) {
  settings_.validates = vbs::toBoolean(args.back());
}

Value Document::getResolveExternals(Args) {
  return Value::boolean(settings_.resolvesExternals);
}
void Document::putResolveExternals(Args args, CallKind) {
  settings_.resolvesExternals = vbs::toBoolean(args.back());
}

Value Document::getPreserveWhiteSpace(Args) {
  return Value::boolean(settings_.preservesSpace);
}
void Document::putPreserveWhiteSpace(Args args, CallKind) {
  settings_.preservesSpace = vbs::toBoolean(args.back());
  tree().preservesSpace = settings_.preservesSpace;
}

/// A document is there when load() returns: there is no later moment to call anything.
void Document::putHandler(Args, CallKind) {}

namespace {

bool isFlag(std::string_view property) {
  constexpr std::array<std::string_view, 11> kFlags = {"newparser",
                                                       "forcedresync",
                                                       "validateonparse",
                                                       "normalizeattributevalues",
                                                       "multipleerrormessages",
                                                       "useinlineschema",
                                                       "allowxsltscript",
                                                       "allowdocumentfunction",
                                                       "servertimeout",
                                                       "maxxmlsize",
                                                       "maxelementdepth"};
  for (const std::string_view known : kFlags) {
    if (equalsNoCase(property, known)) return true;
  }
  return false;
}

}  // namespace

Value Document::setProperty(Args args) {
  const std::string name = vbs::toString(args[0]).narrow();
  const Value& value = args[1];
  if (equalsNoCase(name, "SelectionLanguage")) {
    const std::string language = vbs::toString(value).narrow();
    const bool pattern = equalsNoCase(language, "XSLPattern");
    if (!pattern && !equalsNoCase(language, "XPath")) failArgument();
    settings_.form.selectsByXPath = !pattern;
  } else if (equalsNoCase(name, "SelectionNamespaces")) {
    const std::string declarations = utf8(value);
    checkNamespaces(declarations);
    settings_.selectionNamespaces = declarations;
  } else if (equalsNoCase(name, "ServerHTTPRequest")) {
    settings_.fromServer = vbs::toBoolean(value);
  } else if (equalsNoCase(name, "ProhibitDTD")) {
    settings_.form.allowsType = !vbs::toBoolean(value);
  } else if (!isFlag(name)) {
    fail("The property name is invalid.");
  }
  return Value();
}

Value Document::getProperty(Args args) {
  const std::string name = vbs::toString(args[0]).narrow();
  if (equalsNoCase(name, "SelectionLanguage")) {
    return Value(settings_.form.selectsByXPath ? "XPath" : "XSLPattern");
  }
  if (equalsNoCase(name, "SelectionNamespaces")) {
    return vbs::String::fromUtf8(settings_.selectionNamespaces);
  }
  if (equalsNoCase(name, "ServerHTTPRequest")) return Value::boolean(settings_.fromServer);
  if (equalsNoCase(name, "ProhibitDTD")) return Value::boolean(!settings_.form.allowsType);
  if (!isFlag(name)) fail("The property name is invalid.");
  return Value::boolean(false);
}

}  // namespace quorvane::xml
