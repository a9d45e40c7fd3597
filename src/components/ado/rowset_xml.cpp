#include "components/ado/rowset_xml.h"

#include <libxml/tree.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "components/ado/arguments.h"
#include "components/ado/exact_text.h"
#include "components/ado/recordset.h"
#include "components/ado/sql/stored_date.h"
#include "components/xml/tree.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/serial_date.h"

namespace quorvane::ado {

using vbs::Value;

namespace {

constexpr std::string_view kSchemaSpace = "uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882";
constexpr std::string_view kTypeSpace = "uuid:C2F41010-65B3-11d1-A29F-00AA00C14882";
constexpr std::string_view kRowsetSpace = "urn:schemas-microsoft-com:rowset";
constexpr std::string_view kRowSpace = "#RowsetSchema";

/// A type's two names. The first row of a type is how it is written.
struct TypeNames {
  DataType type;
  std::string_view name;
  std::string_view further;  ///< rs:dbtype
  bool isLong = false;
  bool fixed = false;
};

constexpr std::array kTypes = {
    TypeNames{DataType::SmallInt, "i2", "", false, true},
    TypeNames{DataType::Integer, "int", "", false, true},
    TypeNames{DataType::Integer, "i4", "", false, true},
    TypeNames{DataType::Single, "r4", "", false, true},
    TypeNames{DataType::Double, "float", "", false, true},
    TypeNames{DataType::Double, "r8", "", false, true},
    TypeNames{DataType::Currency, "number", "currency", false, true},
    TypeNames{DataType::Numeric, "number", "numeric", false, true},
    TypeNames{DataType::Decimal, "number", "decimal", false, true},
    TypeNames{DataType::Date, "dateTime", "variantdate", false, true},
    TypeNames{DataType::DbTimeStamp, "dateTime", "timestamp", false, true},
    TypeNames{DataType::DbTimeStamp, "dateTime", "", false, true},
    TypeNames{DataType::DbDate, "date", "", false, true},
    TypeNames{DataType::DbTime, "time", "", false, true},
    TypeNames{DataType::Boolean, "boolean", "", false, true},
    TypeNames{DataType::TinyInt, "i1", "", false, true},
    TypeNames{DataType::UnsignedTinyInt, "ui1", "", false, true},
    TypeNames{DataType::BigInt, "i8", "", false, true},
    TypeNames{DataType::Guid, "uuid", "", false, true},
    TypeNames{DataType::LongVarBinary, "bin.hex", "", true, false},
    TypeNames{DataType::Binary, "bin.hex", "", false, true},
    TypeNames{DataType::VarBinary, "bin.hex", "", false, false},
    TypeNames{DataType::LongVarChar, "string", "str", true, false},
    TypeNames{DataType::Char, "string", "str", false, true},
    TypeNames{DataType::VarChar, "string", "str", false, false},
    TypeNames{DataType::Bstr, "string", "bstr", false, false},
    TypeNames{DataType::Variant, "string", "variant", false, false},
    TypeNames{DataType::LongVarWChar, "string", "", true, false},
    TypeNames{DataType::WChar, "string", "", false, true},
    TypeNames{DataType::VarWChar, "string", "", false, false},
};

const TypeNames& namesOf(DataType type) {
  for (const TypeNames& names : kTypes) {
    if (names.type == type) return names;
  }
  return kTypes.back();
}

DataType typeNamed(std::string_view name, std::string_view further, bool isLong, bool fixed) {
  for (const TypeNames& names : kTypes) {
    if (names.name != name || names.further != further) continue;
    const bool isText = name == "string" || name == "bin.hex";
    if (!isText || (names.isLong == isLong && (isLong || names.fixed == fixed))) return names.type;
  }
  return DataType::VarWChar;
}

/// As an attribute's value between simple marks. What XML has no way for becomes the sign for it.
std::string escaped(std::string_view utf8) {
  std::string text;
  for (const char c : utf8) {
    switch (c) {
      case '&':
        text += "&amp;";
        break;
      case '<':
        text += "&lt;";
        break;
      case '>':
        text += "&gt;";
        break;
      case '\'':
        text += "&#x27;";
        break;
      case '\t':
        text += "&#x9;";
        break;
      case '\n':
        text += "&#xa;";
        break;
      case '\r':
        text += "&#xd;";
        break;
      default:
        if (static_cast<unsigned char>(c) < ' ') {
          text += "\xEF\xBF\xBD";
        } else {
          text += c;
        }
    }
  }
  return text;
}

bool isPlainName(std::string_view name) {
  const auto isLetter = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
  };
  if (name.empty() || !isLetter(name[0])) return false;
  return std::all_of(name.begin(), name.end(),
                     [&](char c) { return isLetter(c) || (c >= '0' && c <= '9'); });
}

/// What the columns are called in XML: their own names, where those are some and differ.
std::vector<std::string> attributeNames(const std::vector<Column>& columns) {
  std::vector<std::string> names;
  const auto isTaken = [&](const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  for (const Column& column : columns) {
    std::string name = column.name;
    for (std::size_t i = names.size(); !isPlainName(name) || isTaken(name); i += columns.size()) {
      name = "c" + std::to_string(i);
    }
    names.push_back(std::move(name));
  }
  return names;
}

std::string dateText(double date, DataType type) {
  if (!vbs::isDateInRange(date)) return {};
  const vbs::DateParts p = vbs::dateParts(date);
  std::array<char, 40> text;
  if (type == DataType::DbTime) {
    std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", p.hour, p.minute, p.second);
  } else if (type == DataType::DbDate) {
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", p.year, p.month, p.day);
  } else {
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d", p.year, p.month, p.day,
                  p.hour, p.minute, p.second);
  }
  return text.data();
}

std::string textOf(const Value& value, DataType type) {
  switch (value.type()) {
    case vbs::Type::Boolean:
      return value.asBoolean() ? "True" : "False";
    case vbs::Type::Single:
    case vbs::Type::Double:
      return numberText(value.asDouble());
    case vbs::Type::Currency:
      return currencyText(value.asCurrency());
    case vbs::Type::Date:
      return dateText(value.asDouble(), type);
    case vbs::Type::Array: {
      const std::string bytes = vbs::toBytes(*value.asArray());
      return hexDigits({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    }
    default:
      return utf8Of(value);
  }
}

class Writer {
 public:
  Writer(const RowStore& store, bool updatable)
      : store_(store), updatable_(updatable), names_(attributeNames(store.columns)) {}

  std::string write(const std::vector<const StoredRow*>& rows) {
    text_ = "<xml xmlns:s='" + std::string(kSchemaSpace) + "'\r\n\txmlns:dt='" +
            std::string(kTypeSpace) + "'\r\n\txmlns:rs='" + std::string(kRowsetSpace) +
            "'\r\n\txmlns:z='" + std::string(kRowSpace) +
            "'>\r\n<s:Schema id='RowsetSchema'>\r\n\t<s:ElementType name='row' content='eltOnly'";
    if (updatable_) text_ += " rs:updatable='true'";
    text_ += ">\r\n";
    for (std::size_t i = 0; i < names_.size(); ++i) column(i);
    text_ +=
        "\t\t<s:extends type='rs:rowbase'/>\r\n\t</s:ElementType>\r\n</s:Schema>\r\n<rs:data>\r\n";
    for (const StoredRow* stored : rows) row(*stored);
    return text_ + "</rs:data>\r\n</xml>\r\n";
  }

 private:
  void attribute(std::string_view name, std::string_view value) {
    text_ += " " + std::string(name) + "='" + escaped(value) + "'";
  }

  void column(std::size_t i) {
    const Column& column = store_.columns[i];
    const TypeNames& type = namesOf(column.type);
    text_ += "\t\t<s:AttributeType";
    attribute("name", names_[i]);
    if (names_[i] != column.name) attribute("rs:name", column.name);
    attribute("rs:number", std::to_string(i + 1));
    if (column.nullable) attribute("rs:nullable", "true");
    if (updatable_) attribute("rs:writeunknown", "true");
    if (!column.table.empty()) attribute("rs:basetable", column.table);
    if (!column.column.empty()) attribute("rs:basecolumn", column.column);
    if (column.key) attribute("rs:keycolumn", "true");
    if (column.autonumber) attribute("rs:autoincrement", "true");
    text_ += ">\r\n\t\t\t<s:datatype";
    attribute("dt:type", type.name);
    if (!type.further.empty()) attribute("rs:dbtype", type.further);
    attribute("dt:maxLength", std::to_string(column.size));
    if (column.scale != 255) attribute("rs:scale", std::to_string(column.scale));
    if (column.precision != 255) attribute("rs:precision", std::to_string(column.precision));
    if (type.fixed) attribute("rs:fixedlength", "true");
    if (type.isLong) attribute("rs:long", "true");
    if (!column.nullable) attribute("rs:maybenull", "false");
    text_ += "/>\r\n\t\t</s:AttributeType>\r\n";
  }

  void values(const Row& values, const Row* unlessLike) {
    std::string nulls;
    text_ += "<z:row";
    for (std::size_t i = 0; i < names_.size(); ++i) {
      const DataType type = store_.columns[i].type;
      const bool isNull = values[i].isNull() || values[i].isEmpty();
      const std::string text = isNull ? "" : textOf(values[i], type);
      if (unlessLike) {
        const Value& before = (*unlessLike)[i];
        if (before.isNull() == isNull && (isNull || textOf(before, type) == text)) continue;
        if (isNull) nulls += (nulls.empty() ? "" : " ") + names_[i];
      }
      if (!isNull) attribute(names_[i], text);
    }
    if (!nulls.empty()) attribute("rs:forcenull", nulls);
    text_ += "/>";
  }

  void row(const StoredRow& row) {
    text_ += "\t";
    switch (row.waiting) {
      case StoredRow::Change::New:
        text_ += "<rs:insert>";
        values(row.values, nullptr);
        text_ += "</rs:insert>";
        break;
      case StoredRow::Change::Changed:
        text_ += "<rs:update><rs:original>";
        values(row.original, nullptr);
        text_ += "</rs:original>";
        values(row.values, &row.original);
        text_ += "</rs:update>";
        break;
      case StoredRow::Change::Deleted:
        text_ += "<rs:delete>";
        values(row.original, nullptr);
        text_ += "</rs:delete>";
        break;
      default:
        values(row.values, nullptr);
    }
    text_ += "\r\n";
  }

  const RowStore& store_;
  bool updatable_;
  std::vector<std::string> names_;
  std::string text_;
};

std::string_view viewOf(const xmlChar* text) {
  return text ? reinterpret_cast<const char*>(text) : "";
}

bool isNamed(const xmlNode* node, std::string_view space, std::string_view name) {
  return xml::isElement(node) && node->ns && viewOf(node->ns->href) == space &&
         viewOf(node->name) == name;
}

template <class Action>
void eachChild(const xmlNode* parent, Action action) {
  for (const xmlNode* child = parent->children; child; child = child->next) {
    if (xml::isElement(child)) action(child);
  }
}

const xmlNode* childNamed(const xmlNode* parent, std::string_view space, std::string_view name) {
  const xmlNode* found = nullptr;
  eachChild(parent, [&](const xmlNode* child) {
    if (!found && isNamed(child, space, name)) found = child;
  });
  return found;
}

/// Empty when it is not there.
std::string attributeOf(const xmlNode* element, std::string_view space, std::string_view name) {
  for (const xmlAttr* held = element->properties; held; held = held->next) {
    if (viewOf(held->name) != name || viewOf(held->ns ? held->ns->href : nullptr) != space)
      continue;
    return xml::rawText(reinterpret_cast<const xmlNode*>(held));
  }
  return {};
}

std::string bytesOfHex(std::string_view digits) {
  const auto value = [](char c) {
    return c >= '0' && c <= '9'                     ? c - '0'
           : (c | 0x20) >= 'a' && (c | 0x20) <= 'f' ? (c | 0x20) - 'a' + 10
                                                    : 0;
  };
  std::string bytes;
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
    bytes += static_cast<char>(value(digits[i]) * 16 + value(digits[i + 1]));
  }
  return bytes;
}

Value valueOf(const std::string& text, const Column& column) {
  switch (column.type) {
    case DataType::Boolean:
      return Value::boolean(text == "1" || text == "-1" || equalsNoCase(text, "true"));
    case DataType::Binary:
    case DataType::VarBinary:
    case DataType::LongVarBinary:
      return Value::array(vbs::ArrayRep::fromBytes(bytesOfHex(text)));
    case DataType::Currency:
      return Value::currency(currencyOfText(text));
    case DataType::Date:
    case DataType::DbDate:
    case DataType::DbTime:
    case DataType::DbTimeStamp: {
      const auto date = dateOfText(text);
      return date ? Value::date(*date) : Value::null();
    }
    default:
      break;
  }
  const TypeNames& names = namesOf(column.type);
  if (names.name == "string" || column.type == DataType::Guid) return textValue(text);
  return fittingValue(Value::number(numberOfText(text)), column);
}

class Reader {
 public:
  std::shared_ptr<RowStore> read(const xmlNode* root) {
    const xmlNode* schema = childNamed(root, kSchemaSpace, "Schema");
    const xmlNode* type = schema ? childNamed(schema, kSchemaSpace, "ElementType") : nullptr;
    const xmlNode* data = childNamed(root, kRowsetSpace, "data");
    if (!type || !data) return nullptr;
    eachChild(type, [&](const xmlNode* child) {
      if (isNamed(child, kSchemaSpace, "AttributeType")) column(child);
    });
    if (store_->columns.empty()) return nullptr;
    eachChild(data, [&](const xmlNode* child) { part(child); });
    return store_;
  }

 private:
  static std::int32_t numberAt(const xmlNode* element, std::string_view space,
                               std::string_view name, std::int32_t otherwise) {
    const std::string text = attributeOf(element, space, name);
    if (text.empty()) return otherwise;
    return static_cast<std::int32_t>(
        std::clamp(numberOfText(text), 0.0, static_cast<double>(INT32_MAX)));
  }

  /// The type stands in an element of its own, or with the rest.
  void column(const xmlNode* element) {
    const xmlNode* typed = childNamed(element, kSchemaSpace, "datatype");
    if (!typed) typed = element;
    const auto says = [](const xmlNode* e, std::string_view name) {
      return attributeOf(e, kRowsetSpace, name) == "true";
    };
    Column column;
    names_.push_back(attributeOf(element, "", "name"));
    column.name = attributeOf(element, kRowsetSpace, "name");
    if (column.name.empty()) column.name = names_.back();
    if (column.name.empty()) column.name = "c" + std::to_string(names_.size() - 1);
    column.type = typeNamed(attributeOf(typed, kTypeSpace, "type"),
                            attributeOf(typed, kRowsetSpace, "dbtype"), says(typed, "long"),
                            says(typed, "fixedlength"));
    column.size = numberAt(typed, kTypeSpace, "maxLength", 255);
    column.precision = numberAt(typed, kRowsetSpace, "precision", 255);
    column.scale = numberAt(typed, kRowsetSpace, "scale", 255);
    column.nullable = attributeOf(typed, kRowsetSpace, "maybenull") != "false";
    column.table = attributeOf(element, kRowsetSpace, "basetable");
    column.column = attributeOf(element, kRowsetSpace, "basecolumn");
    column.key = says(element, "keycolumn");
    column.autonumber = says(element, "autoincrement");
    store_->columns.push_back(std::move(column));
  }

  /// One row, or several within what was done to them.
  void part(const xmlNode* element) {
    if (isNamed(element, kRowSpace, "row")) {
      store_->add(rowOf(element, nullRow()));
    } else if (isNamed(element, kRowsetSpace, "insert")) {
      eachRow(element, [&](const xmlNode* row) {
        store_->add(rowOf(row, nullRow())).waiting = StoredRow::Change::New;
      });
    } else if (isNamed(element, kRowsetSpace, "delete")) {
      eachRow(element, [&](const xmlNode* row) {
        StoredRow& stored = store_->add(rowOf(row, nullRow()));
        stored.original = stored.values;
        stored.waiting = StoredRow::Change::Deleted;
        store_->markDeleted(stored);
      });
    } else if (isNamed(element, kRowsetSpace, "update")) {
      update(element);
    }
  }

  void update(const xmlNode* element) {
    const xmlNode* original = childNamed(element, kRowsetSpace, "original");
    const xmlNode* before = original ? childNamed(original, kRowSpace, "row") : nullptr;
    const xmlNode* after = childNamed(element, kRowSpace, "row");
    if (!before || !after) return;
    Row row = rowOf(before, nullRow());
    StoredRow& stored = store_->add(rowOf(after, row));
    stored.original = std::move(row);
    stored.waiting = StoredRow::Change::Changed;
  }

  template <class Action>
  void eachRow(const xmlNode* parent, Action action) {
    eachChild(parent, [&](const xmlNode* child) {
      if (isNamed(child, kRowSpace, "row")) action(child);
    });
  }

  Row nullRow() const { return Row(names_.size(), Value::null()); }

  /// `row` with what the element says of it.
  Row rowOf(const xmlNode* element, Row row) const {
    for (const xmlAttr* held = element->properties; held; held = held->next) {
      const std::string text = xml::rawText(reinterpret_cast<const xmlNode*>(held));
      if (held->ns) {
        if (viewOf(held->name) != "forcenull") continue;
        for (const std::string_view name : split(text, ' ')) {
          const std::size_t place = placeOf(name);
          if (place < row.size()) row[place] = Value::null();
        }
        continue;
      }
      const std::size_t place = placeOf(viewOf(held->name));
      if (place < row.size()) row[place] = valueOf(text, store_->columns[place]);
    }
    return row;
  }

  std::size_t placeOf(std::string_view name) const {
    return static_cast<std::size_t>(std::find(names_.begin(), names_.end(), name) - names_.begin());
  }

  std::shared_ptr<RowStore> store_ = std::make_shared<RowStore>();
  std::vector<std::string> names_;
};

}  // namespace

std::string rowsetXml(const RowStore& store, const std::vector<const StoredRow*>& rows,
                      bool updatable) {
  return Writer(store, updatable).write(rows);
}

std::shared_ptr<RowStore> rowsetOf(const xml::Tree& tree) {
  const xmlNode* root = xmlDocGetRootElement(tree.document());
  return root ? Reader().read(root) : nullptr;
}

}  // namespace quorvane::ado
