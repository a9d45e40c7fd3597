#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "members/watched_objects.h"

namespace quorvane {

/// What docs/components.notes says, see its head.
struct ComponentNotes {
  struct Member {
    std::string name;
    bool isMethod = false;
    std::string differs;  ///< empty: works as customary
  };
  struct Kind {
    std::string name;  ///< "ADODB.Recordset"
    std::string text;
    std::vector<std::string> makers;
    std::vector<Member> members;

    const Member* find(std::string_view lowerName) const;
  };
  struct Part {
    std::string title;
    std::string text;
    std::vector<Kind> kinds;
  };
  std::vector<Part> parts;
  std::vector<std::string> complaints;  ///< lines that make no sense
};
ComponentNotes parseNotes(std::string_view text);

/// The kinds of a book by the names that the notes use, in lower case.
std::map<std::string, const WatchedObjects::Kind*> namedKinds(const WatchedObjects& book);

/// docs/components.md. What does not fit together is added to `complaints`.
std::string componentList(const ComponentNotes& notes, const WatchedObjects& book,
                          std::vector<std::string>& complaints);

}  // namespace quorvane
