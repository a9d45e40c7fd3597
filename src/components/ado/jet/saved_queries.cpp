#include "components/ado/jet/saved_queries.h"

#include <algorithm>

#include "support/text.h"

namespace quorvane::ado::jet {

namespace {

enum Attribute : std::uint8_t {
  kKind = 1,
  kParameter = 2,
  kOptions = 3,
  kSource = 5,
  kColumn = 6,
  kJoin = 7,
  kWhere = 8,
  kGroup = 9,
  kHaving = 10,
  kOrder = 11,
};

std::string bracketed(const std::string& name) {
  return "[" + name + "]";
}

/// Tables that are joined already, in one text.
struct Group {
  std::vector<std::string> tables;
  std::string text;

  bool holds(const std::string& table) const {
    return std::any_of(tables.begin(), tables.end(),
                       [&](const std::string& one) { return equalsNoCase(one, table); });
  }
};

const char* joinWords(int flag) {
  switch (flag) {
    case 2:
      return " LEFT JOIN ";
    case 3:
      return " RIGHT JOIN ";
    default:
      return " INNER JOIN ";
  }
}

class SelectText {
 public:
  explicit SelectText(const SavedQuery& query) : query_(query) {}

  std::optional<std::string> text() {
    constexpr int kSelects = 1;
    for (const QueryPart& part : query_.parts) {
      if (part.attribute == kParameter) return std::nullopt;
      if (part.attribute == kKind && part.flag != kSelects) return std::nullopt;
    }
    std::string sources = sourceText();
    if (sources.empty()) return std::nullopt;
    return "SELECT " + optionText() + columnText() + " FROM " + sources +
           listed(kWhere, " WHERE ", " AND ") + listed(kGroup, " GROUP BY ", ", ") +
           listed(kHaving, " HAVING ", " AND ") + listed(kOrder, " ORDER BY ", ", ");
  }

 private:
  template <class Take>
  void each(Attribute attribute, Take take) const {
    for (const QueryPart& part : query_.parts) {
      if (part.attribute == attribute) take(part);
    }
  }

  std::string optionText() const {
    constexpr int kDistinct = 2;
    constexpr int kTop = 16;
    constexpr int kPercent = 32;
    std::string text;
    each(kOptions, [&](const QueryPart& part) {
      if (part.flag & kDistinct) text += "DISTINCT ";
      if (part.flag & kTop) text += "TOP " + part.name + (part.flag & kPercent ? " PERCENT " : " ");
    });
    return text;
  }

  std::string columnText() const {
    constexpr int kAll = 1;
    std::string text;
    each(kOptions, [&](const QueryPart& part) {
      if (part.flag & kAll) text = "*";
    });
    each(kColumn, [&](const QueryPart& part) {
      text += (text.empty() ? "" : ", ") + part.expression;
      if (!part.name.empty()) text += " AS " + bracketed(part.name);
    });
    return text.empty() ? "*" : text;
  }

  std::string sourceText() {
    std::vector<Group> groups;
    each(kSource, [&](const QueryPart& part) {
      const bool hasAlias = !part.other.empty();
      groups.push_back({{hasAlias ? part.other : part.name},
                        bracketed(part.name) + (hasAlias ? " AS " + bracketed(part.other) : "")});
    });
    each(kJoin, [&](const QueryPart& part) { join(groups, part); });
    std::string text;
    for (const Group& group : groups) text += (text.empty() ? "" : ", ") + group.text;
    return text;
  }

  void join(std::vector<Group>& groups, const QueryPart& part) {
    const auto holding = [&](const std::string& table) {
      return std::find_if(groups.begin(), groups.end(),
                          [&](const Group& group) { return group.holds(table); });
    };
    const auto left = holding(part.name);
    const auto right = holding(part.other);
    if (left == groups.end() || right == groups.end()) return;
    if (left == right) {  // another condition for tables that are joined
      conditions_.push_back(part.expression);
      return;
    }
    left->text =
        "(" + left->text + joinWords(part.flag) + right->text + " ON " + part.expression + ")";
    left->tables.insert(left->tables.end(), right->tables.begin(), right->tables.end());
    groups.erase(right);
  }

  std::string listed(Attribute attribute, const char* before, const char* between) const {
    std::string text;
    const auto add = [&](const std::string& one) {
      text += (text.empty() ? before : between) + one;
    };
    const bool isCondition = attribute == kWhere || attribute == kHaving;
    each(attribute, [&](const QueryPart& part) {
      const bool isDescending = attribute == kOrder && equalsNoCase(part.name, "D");
      add((isCondition ? "(" + part.expression + ")" : part.expression) +
          (isDescending ? " DESC" : ""));
    });
    if (attribute == kWhere) {
      for (const std::string& condition : conditions_) add("(" + condition + ")");
    }
    return text;
  }

  const SavedQuery& query_;
  std::vector<std::string> conditions_;  ///< of joins
};

}  // namespace

std::optional<std::string> selectText(const SavedQuery& query) {
  return SelectText(query).text();
}

}  // namespace quorvane::ado::jet
