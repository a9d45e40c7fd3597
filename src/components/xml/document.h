#pragma once

#include <string>

#include "components/script_files.h"
#include "components/xml/node.h"
#include "components/xml/parsing.h"
#include "vbscript/values/value.h"

namespace quorvane {
struct Services;
}

namespace quorvane::xml {

/// What separates the versions of the component.
struct DocumentForm {
  bool selectsByXPath = false;  ///< else by the older pattern language
  bool allowsType = true;       ///< document type declarations
};

/// What a document's properties say about how it is used.
struct DocumentSettings {
  DocumentForm form;
  std::string selectionNamespaces;  ///< `xmlns:x="..."` declarations
  bool preservesSpace = false;
  bool resolvesExternals = false;
  bool validates = true;
  bool isAsync = true;
  bool fromServer = false;  ///< "ServerHTTPRequest"
};

class Document final : public vbs::NativeObject<Document, Node> {
 public:
  /// `services` outlive the object.
  Document(const Services& services, const DocumentSettings& settings);
  /// A document that shows what is read already.
  Document(const Services& services, const DocumentSettings& settings, Parsed parsed);

  static std::span<const vbs::Member<Document>> members();
  std::string_view typeName() const override { return "DOMDocument"; }
  Document& document() override { return *this; }

  const DocumentSettings& settings() const { return settings_; }
  const ScriptFiles& files() const { return files_; }
  /// Where the document may look for what it names; null: nowhere.
  const ScriptFiles* externalFiles() const {
    return settings_.resolvesExternals ? &files_ : nullptr;
  }

  vbs::Value clone(bool deep);
  /// Shows another text from now on; false when it can't be read.
  bool loadText(std::string_view utf8);
  /// `encoding` null: the bytes say it themselves.
  bool loadBytes(std::string_view bytes, const std::string& url, const char* encoding = nullptr);

 private:
  ParseOptions parseOptions() const;
  bool show(Parsed parsed);
  bool loadFrom(const std::string& location);
  bool loadFromServer(const std::string& url);
  bool loadFrom(vbs::Object& source);
  xmlNode* rootElement() const;

  vbs::Value getDocType(vbs::Args);
  vbs::Value getImplementation(vbs::Args);
  vbs::Value getDocumentElement(vbs::Args);
  void putDocumentElement(vbs::Args args, vbs::CallKind);
  vbs::Value createElement(vbs::Args args);
  vbs::Value createDocumentFragment(vbs::Args);
  vbs::Value createTextNode(vbs::Args args);
  vbs::Value createComment(vbs::Args args);
  vbs::Value createCDataSection(vbs::Args args);
  vbs::Value createProcessingInstruction(vbs::Args args);
  vbs::Value createAttribute(vbs::Args args);
  vbs::Value createEntityReference(vbs::Args args);
  vbs::Value createNode(vbs::Args args);
  vbs::Value importNode(vbs::Args args);
  vbs::Value getElementsByTagName(vbs::Args args);
  vbs::Value nodeFromId(vbs::Args args);
  vbs::Value load(vbs::Args args);
  vbs::Value loadXml(vbs::Args args);
  vbs::Value save(vbs::Args args);
  vbs::Value getReadyState(vbs::Args);
  vbs::Value getParseError(vbs::Args);
  vbs::Value getUrl(vbs::Args);
  vbs::Value abort(vbs::Args);
  vbs::Value getAsync(vbs::Args);
  void putAsync(vbs::Args args, vbs::CallKind);
  vbs::Value getValidateOnParse(vbs::Args);
  void putValidateOnParse(vbs::Args args, vbs::CallKind);
  vbs::Value getResolveExternals(vbs::Args);
  void putResolveExternals(vbs::Args args, vbs::CallKind);
  vbs::Value getPreserveWhiteSpace(vbs::Args);
  void putPreserveWhiteSpace(vbs::Args args, vbs::CallKind);
  void putHandler(vbs::Args args, vbs::CallKind);
  vbs::Value setProperty(vbs::Args args);
  vbs::Value getProperty(vbs::Args args);

  const Services& services_;
  ScriptFiles files_;
  DocumentSettings settings_;
  ParseFault fault_;
};

/// Gives bytes to whatever a script hands over to take them: a document, the path of a file, an
/// object that writes.
void deliver(const Document& from, const vbs::Value& destination, std::string_view bytes);

}  // namespace quorvane::xml
