#include "xml_targets.h"

#include <vector>

#include "require.h"
#include "testing/component_host.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

namespace quorvane {

namespace {

using vbs::CallKind;
using vbs::Value;

Value use(const Value& object, std::string_view member, std::vector<Value> args = {}) {
  vbs::Object& target = *vbs::toObject(object);
  return target.invoke(target.findMember(member), CallKind::Get, args);
}

void setLanguage(const Value& document, const char* language) {
  use(document, "setproperty", {Value("SelectionLanguage"), Value(language)});
}

/// Takes the nodes that are found out of the document, one after the other.
void select(const Value& document, std::string_view expression, std::string_view input) {
  try {
    const Value found = use(document, "selectnodes", {Value(expression)});
    const std::int32_t count = use(found, "length").asInt();
    for (std::int32_t i = 0; i < count; ++i) {
      const Value node = use(found, "item", {Value::longInt(i)});
      use(node, "text");
      const Value parent = use(node, "parentnode");
      if (parent.asObject()) use(parent, "removechild", {node});
      use(node, "xml");
    }
  } catch (const vbs::ScriptError& error) {
    require(error.number != 0 && !error.description.empty(), "an error has number and text", input);
  }
}

void readAndWrite(std::string_view input) {
  const std::size_t line = input.find('\n');
  const std::string_view expression = input.substr(0, line);
  const std::string_view text = line == input.npos ? input : input.substr(line + 1);
  ComponentHost host;
  const Value document = host.createObject("MSXML2.DOMDocument");
  if (!use(document, "loadxml", {Value(text)}).asBoolean()) {
    const Value fault = use(document, "parseerror");
    require(!vbs::toString(use(fault, "reason")).empty(), "a fault has a reason", input);
  } else {
    const Value written = use(document, "xml");
    const Value again = host.createObject("MSXML2.DOMDocument");
    require(use(again, "loadxml", {written}).asBoolean(), "what was written can be read", input);
    require(use(again, "xml").asString() == written.asString(), "it is the same", input);
    use(document, "text");
  }
  for (const char* language : {"XSLPattern", "XPath"}) {
    setLanguage(document, language);
    select(document, expression, input);
  }
}

/// Rows that can be opened can be saved, and are the same when they are opened again.
void openAndSave(std::string_view input) {
  ComponentHost host;
  const Value document = host.createObject("MSXML2.DOMDocument");
  if (!use(document, "loadxml", {Value(input)}).asBoolean()) return;
  const Value rows = host.createObject("ADODB.Recordset");
  try {
    use(rows, "open", {document});
  } catch (const vbs::ScriptError& error) {
    require(error.number != 0 && !error.description.empty(), "an error has number and text", input);
    return;
  }
  const Value saved = host.createObject("MSXML2.DOMDocument");
  const Value again = host.createObject("ADODB.Recordset");
  const Value twice = host.createObject("MSXML2.DOMDocument");
  use(rows, "save", {saved});
  use(again, "open", {saved});
  use(again, "save", {twice});
  require(use(saved, "xml").asString() == use(twice, "xml").asString(), "they are the same", input);
}

/// Nothing stays in the memory of scripts.
void giveBack(void (*work)(std::string_view), std::string_view bytes) {
  const std::int64_t before = vbs::runContext.memory.used;
  work(bytes);
  if (vbs::runContext.memory.used == before) return;
  // The library may keep something for good at its first use.
  const std::int64_t then = vbs::runContext.memory.used;
  work(bytes);
  require(vbs::runContext.memory.used == then, "everything is given back", bytes);
}

}  // namespace

void fuzzXml(std::string_view bytes) {
  giveBack(readAndWrite, bytes);
}

void fuzzRowset(std::string_view bytes) {
  giveBack(openAndSave, bytes);
}

}  // namespace quorvane
