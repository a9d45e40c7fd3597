#include "components/xml/selecting.h"

#include <libxml/xpathInternals.h>

#include <algorithm>
#include <utility>

#include "components/xml/document.h"
#include "components/xml/errors.h"
#include "components/xml/library.h"
#include "components/xml/parsing.h"
#include "components/xml/pattern.h"
#include "support/text.h"

namespace quorvane::xml {

namespace {

struct ContextEnd {
  void operator()(xmlXPathContext* context) const { xmlXPathFreeContext(context); }
};
struct ExpressionEnd {
  void operator()(xmlXPathCompExpr* expression) const { xmlXPathFreeCompExpr(expression); }
};
struct ResultEnd {
  void operator()(xmlXPathObject* result) const { xmlXPathFreeObject(result); }
};

const xmlChar* chars(const std::string& text) {
  return libraryText(text.c_str());
}

void lower(xmlXPathParserContextPtr context, int count) {
  if (count != 1) return xmlXPathErr(context, XPATH_INVALID_ARITY);
  xmlChar* text = xmlXPathPopString(context);
  if (!text) return;
  const vbs::String lowered = scriptText(text).lower();
  xmlFree(text);
  xmlXPathReturnString(context, xmlStrdup(chars(lowered.utf8())));
}

void typeOfNode(xmlXPathParserContextPtr context, int count) {
  if (count != 1) return xmlXPathErr(context, XPATH_INVALID_ARITY);
  xmlNodeSetPtr nodes = xmlXPathPopNodeSet(context);
  const bool any = nodes && nodes->nodeNr > 0;
  const double type = any ? nodeType(nodes->nodeTab[0]) : 0;
  xmlXPathFreeNodeSet(nodes);
  xmlXPathReturnNumber(context, type);
}

/// What goes wrong while an expression is read and followed.
struct Fault {
  int code = 0;
  std::string name;
  int position = 0;

  static void note(void* data, xmlErrorPtr error) {
    auto& fault = *static_cast<Fault*>(data);
    if (fault.code != 0) return;
    fault.code = error->code;
    fault.position = error->int1;
    if (error->str2) fault.name = error->str2;
  }
};

[[noreturn]] void failAt(const std::string& expression, std::size_t position,
                         const std::string& found) {
  const std::string_view text(expression);
  const std::size_t at = std::min(position, text.size());
  const std::string shown = found.empty() ? "eof" : found;
  fail("Unexpected token '" + shown + "' found.\r\n\r\n" + std::string(text.substr(0, at)) + "-->" +
       found + "<--" + std::string(text.substr(std::min(at + found.size(), text.size()))));
}

[[noreturn]] void failOf(const Fault& fault, const std::string& expression) {
  const auto at = static_cast<std::size_t>(std::max(fault.position, 0));
  switch (fault.code - XML_XPATH_EXPRESSION_OK) {
    case XPATH_UNDEF_PREFIX_ERROR: {
      const std::size_t colon = expression.find(':', at == 0 ? 0 : at - 1);
      std::size_t start = colon == expression.npos ? 0 : colon;
      while (start > 0 && (std::isalnum(static_cast<unsigned char>(expression[start - 1])) ||
                           expression[start - 1] == '_' || expression[start - 1] == '-')) {
        --start;
      }
      const std::string prefix =
          colon == expression.npos ? std::string() : expression.substr(start, colon - start);
      fail("Reference to undeclared namespace prefix: '" + prefix + "'.");
    }
    case XPATH_UNKNOWN_FUNC_ERROR:
      fail("Unknown method.\r\n\r\n" + expression);
    case XPATH_INVALID_TYPE:
      fail("Expression must evaluate to a node-set.");
    default:
      break;
  }
  const std::string found = at < expression.size() ? expression.substr(at, 1) : std::string();
  failAt(expression, at, found);
}

using Spaces = std::vector<std::pair<std::string, std::string>>;

Spaces spacesOf(const std::string& declarations) {
  Spaces spaces;
  if (declarations.empty()) return spaces;
  const Parsed parsed = parseText("<namespaces " + declarations + "/>", {});
  const xmlNode* root = parsed.tree ? xmlDocGetRootElement(parsed.tree->document()) : nullptr;
  if (!root || root->properties || root->children) {
    fail(
        "SelectionNamespaces property value is invalid. Only well-formed xmlns attributes are "
        "allowed.");
  }
  for (const xmlNs* at = root->nsDef; at; at = at->next) {
    spaces.emplace_back(view(at->prefix), view(at->href));
  }
  return spaces;
}

void registerSpaces(xmlXPathContext& context, const DocumentSettings& settings) {
  for (const auto& [prefix, address] : spacesOf(settings.selectionNamespaces)) {
    if (!prefix.empty()) xmlXPathRegisterNs(&context, chars(prefix), chars(address));
  }
}

void registerPatternFunctions(xmlXPathContext& context) {
  const xmlChar* space = libraryText(kPatternSpace);
  xmlXPathRegisterNs(&context, libraryText(kPatternPrefix), space);
  xmlXPathRegisterFuncNS(&context, libraryText("lower"), space, &lower);
  xmlXPathRegisterFuncNS(&context, libraryText("node-type"), space, &typeOfNode);
}

std::string translated(const std::string& pattern, const Tree& tree) {
  try {
    return xpathOf(pattern, tree.hasNamespaces());
  } catch (const PatternError& error) {
    failAt(pattern, error.position, error.found);
  }
}

std::vector<xmlNode*> nodesOf(const xmlXPathObject& result) {
  std::vector<xmlNode*> nodes;
  if (!result.nodesetval) return nodes;
  xmlXPathNodeSetSort(result.nodesetval);
  for (int i = 0; i < result.nodesetval->nodeNr; ++i) {
    xmlNode* node = result.nodesetval->nodeTab[i];
    // The library makes nodes of its own for declarations of namespaces; they end with the result.
    if (node->type != XML_NAMESPACE_DECL) nodes.push_back(node);
  }
  return nodes;
}

}  // namespace

namespace {

bool isName(std::string_view text) {
  return !text.empty() && xmlValidateNCName(chars(std::string(text)), 0) == 0;
}

/// The names of a path that has nothing else ("a/b"), which most have; empty for all others.
std::vector<std::string_view> plainNames(std::string_view path) {
  std::vector<std::string_view> names = split(path, '/');
  if (!std::all_of(names.begin(), names.end(), isName)) names.clear();
  return names;
}

std::vector<xmlNode*> childrenNamed(const std::vector<xmlNode*>& parents, std::string_view name,
                                    bool byPattern) {
  std::vector<xmlNode*> found;
  for (const xmlNode* parent : parents) {
    for (xmlNode* at = firstChild(parent); at; at = at->next) {
      if (isElement(at) && hasName(at, name) && (byPattern || !at->ns)) found.push_back(at);
    }
  }
  return found;
}

}  // namespace

void checkNamespaces(const std::string& declarations) {
  spacesOf(declarations);
}

std::vector<xmlNode*> select(Node& from, const std::string& expression) {
  const DocumentSettings& settings = from.document().settings();
  const bool isPattern = !settings.form.selectsByXPath;
  if (const auto names = plainNames(expression); !names.empty()) {
    std::vector<xmlNode*> found{from.node()};
    for (const std::string_view name : names) found = childrenNamed(found, name, isPattern);
    vbs::countWork(found.size() * sizeof(xmlNode));
    return found;
  }
  const std::string path = isPattern ? translated(expression, from.tree()) : expression;
  const std::unique_ptr<xmlXPathContext, ContextEnd> context(
      xmlXPathNewContext(from.tree().document()));
  if (!context) throw std::bad_alloc();
  Fault fault;
  context->node = from.node();
  context->userData = &fault;
  context->error = &Fault::note;
  registerSpaces(*context, settings);
  if (isPattern) registerPatternFunctions(*context);
  std::unique_ptr<xmlXPathObject, ResultEnd> result;
  {
    Watch watch([&context] { context->opLimit = 1; });
    const std::unique_ptr<xmlXPathCompExpr, ExpressionEnd> compiled(
        xmlXPathCtxtCompile(context.get(), chars(path)));
    if (compiled) result.reset(xmlXPathCompiledEval(compiled.get(), context.get()));
    watch.end();
  }
  if (fault.code != 0 || !result) failOf(fault, path);
  if (result->type != XPATH_NODESET) fail("Expression must evaluate to a node-set.");
  return nodesOf(*result);
}

}  // namespace quorvane::xml
