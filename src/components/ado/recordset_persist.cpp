#include <utility>

#include "components/ado/connection_text.h"
#include "components/ado/recordset.h"
#include "components/ado/rowset_xml.h"
#include "components/script_files.h"
#include "components/xml/document.h"
#include "components/xml/parsing.h"
#include "components/xml/writing.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/text.h"

namespace quorvane::ado {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

constexpr std::int32_t kFileExists = -2147286960;
constexpr std::int32_t kTextStream = 2;

bool has(vbs::Object& object, std::string_view member) {
  return object.findMember(member) != vbs::kNoMember;
}

Value use(vbs::Object& object, std::string_view member, CallKind kind,
          std::vector<Value> args = {}) {
  return object.invoke(object.findMember(member), kind, args);
}

bool isTextStream(vbs::Object& stream) {
  return vbs::toLong(use(stream, "type", CallKind::Get)) == kTextStream;
}

Value bytesValue(std::string_view bytes) {
  return Value::array(vbs::ArrayRep::fromBytes(bytes));
}

/// A stream that is not open is opened, and stands at its beginning afterwards.
void fillStream(vbs::Object& stream, const std::string& text) {
  if (vbs::toLong(use(stream, "state", CallKind::Get)) == kStateClosed) {
    use(stream, "open", CallKind::Call);
  }
  if (isTextStream(stream)) {
    use(stream, "writetext", CallKind::Call, {textValue(text)});
  } else {
    use(stream, "write", CallKind::Call, {bytesValue(text)});
  }
  use(stream, "position", CallKind::Let, {Value::longInt(0)});
}

void give(vbs::Object& target, const std::string& text) {
  if (auto* document = dynamic_cast<xml::Document*>(&target)) {
    if (!document->loadText(text)) fail(AdoError::WritingFile, "Recordset");
  } else if (has(target, "writetext") && has(target, "position")) {
    fillStream(target, text);
  } else if (has(target, "binarywrite")) {
    use(target, "binarywrite", CallKind::Call, {bytesValue(text)});
  } else {
    fail(AdoError::InvalidArgument, "Recordset");
  }
}

xml::Parsed parsedFrom(vbs::Object& source) {
  if (const auto* node = dynamic_cast<const xml::Node*>(&source)) {
    return xml::parseText(xml::markup(node->node()), {});
  }
  if (has(source, "readtext") && isTextStream(source)) {
    return xml::parseText(utf8Of(use(source, "readtext", CallKind::Get)), {});
  }
  std::vector<Value> args;
  const bool isRequest = has(source, "binaryread") && has(source, "totalbytes");
  if (isRequest) args.push_back(use(source, "totalbytes", CallKind::Get));
  const std::string_view reads = isRequest ? "binaryread" : "read";
  if (!has(source, reads)) fail(AdoError::InvalidArgument, "Recordset");
  const Value content = use(source, reads, CallKind::Get, std::move(args));
  if (!content.isArray()) fail(AdoError::ReadingFile, "Recordset");
  return xml::parse(vbs::toBytes(*content.asArray()), nullptr, {}, {});
}

}  // namespace

/// destination, format: whatever is asked for, rows are saved as XML.
Value Recordset::callSave(Args args) {
  leaveRow();
  Cursor& place = cursor();
  place.makeScrollable();
  std::vector<const StoredRow*> rows;
  for (std::size_t i = 0; i < place.rowsInView(); ++i) {
    const StoredRow* row = place.rowAt(i);
    if (!row->deleted || row->waiting == StoredRow::Change::Deleted) rows.push_back(row);
  }
  const std::string text = rowsetXml(place.store(), rows, lockType_ != kReadOnly);
  if (isGiven(args, 0) && args[0].deref().isObject()) {
    vbs::Object* target = args[0].deref().asObject();
    if (!target) fail(AdoError::InvalidArgument, "Recordset");
    give(*target, text);
    return {};
  }
  if (!isGiven(args, 0) && savedPath_.empty()) fail(AdoError::InvalidArgument, "Recordset");
  const ScriptFiles files(services_);
  const std::string path = isGiven(args, 0) ? files.allowedPath(args[0]) : savedPath_;
  if (path != savedPath_ && files.files().stat(path)) {
    vbs::ScriptError error;
    error.number = kFileExists;
    error.description = "File already exists.";
    error.source = "ADODB.Recordset";
    throw error;
  }
  if (!files.files().writeAll(path, text)) fail(AdoError::WritingFile, "Recordset");
  savedPath_ = path;
  return {};
}

/// Rows that were saved, from an object or a file.
void Recordset::openSaved(const Value& source) {
  xml::Parsed parsed;
  std::string path;
  if (source.isObject()) {
    if (!source.asObject()) fail(AdoError::InvalidArgument, "Recordset");
    parsed = parsedFrom(*source.asObject());
  } else {
    const ScriptFiles files(services_);
    path = files.allowedPath(source);
    const auto content = files.files().readAll(path);
    if (!content) fail(AdoError::OpeningFile, "Recordset");
    parsed = xml::parse(*content, nullptr, {}, {});
  }
  std::shared_ptr<RowStore> store = parsed.tree ? rowsetOf(*parsed.tree) : nullptr;
  if (!store) fail(AdoError::ReadingFile, "Recordset");
  if (lockType_ == kReadOnly) lockType_ = kOptimistic;
  openRows(std::move(store));
  savedPath_ = std::move(path);
}

/// Whether a text is no connection but says that rows come from where they were saved.
bool namesSavedRows(const Value& connection) {
  const Value& given = connection.deref();
  if (!given.isString()) return false;
  const auto provider = ConnectionParts(utf8Of(given)).find("provider");
  return provider && equalsNoCase(*provider, "mspersist");
}

}  // namespace quorvane::ado
