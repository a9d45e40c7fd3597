#include "members/component_list.h"

#include <algorithm>

#include "components/components.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kHead =
    "# Components\n\n"
    "What scripts create with `CreateObject`, and what these objects hand out: every member, and "
    "the\n"
    "customary ones that are absent. The tests make this list of the tables that the program goes "
    "by\n"
    "and of the notes in `components.notes`, and call every member that is not absent. One that is "
    "in\n"
    "no list is error 438.\n\n"
    "A number at the end of a name (`ADODB.Recordset.2.8`) is passed over. Letter case counts "
    "nowhere.\n"
    R"(
## Objects of Windows

On Windows a name stands first for what the system and other programs have registered by it, and for an
object of this list where there is nothing; the setting [`Components`](settings.md) turns that round or
off. These belong to the page that runs or to the engine, and are always the server's own:
`MSWC.AdRotator`, `MSWC.BrowserType`, `MSWC.ContentRotator`, `MSWC.Counters`, `Persits.Jpeg`,
`Persits.Upload`, `Persits.UploadManager`, `SoftArtisans.FileUp`, `aspSmartUpload.SmartUpload`,
`VBScript.RegExp`. A Windows build has all of this list: where the system has `CDO.Message` but none of
`CDONTS`, `JMail`, `Persits.MailSender` and `SMTPsvg.Mailer`, pages get the one from there and these from
here.

What settings say of files, programs, mail and databases (`ScriptFolders`, `AllowShell`, `MailServer`,
`MailFolder`, `Databases`) holds for the server's own objects alone. Where pages are not trusted to keep
to it by themselves, `Components` wants to be `own`, and the account that the server runs under few rights.

`GetObject(path)`, `GetObject(, name)` and `GetObject("", name)` find what the system has: files and other
monikers, programs that run, a new object. Whole numbers of types that scripts lack become Long, or Double
beyond it; Decimal becomes Currency where that holds it exactly, else Double; arrays keep the
bounds that they come with. Events reach scripts where an object takes a procedure for them:
`xml.onreadystatechange = GetRef("f")`.
)";

std::string arguments(const vbs::MemberUse& use) {
  if (use.maxArgs == 0) return {};
  const std::string most = std::to_string(use.maxArgs);
  if (use.minArgs == use.maxArgs) return most;
  return std::to_string(use.minArgs) + " to " + most;
}

std::string kindOfUse(const ComponentNotes::Member& note, const vbs::MemberUse& use) {
  std::string text = note.isMethod             ? "method"
                     : use.reads && use.writes ? "property"
                     : use.reads               ? "property, read"
                                               : "property, written";
  return use.isDefault ? text + ", default" : text;
}

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : ", ") + text;
  return all;
}

std::string quoted(std::string_view name) {
  return '`' + std::string(name) + '`';
}

}  // namespace

const ComponentNotes::Member* ComponentNotes::Kind::find(std::string_view lowerName) const {
  const auto found = std::find_if(members.begin(), members.end(), [&](const Member& member) {
    return equalsNoCase(member.name, lowerName);
  });
  return found == members.end() ? nullptr : &*found;
}

ComponentNotes parseNotes(std::string_view text) {
  ComponentNotes notes;
  for (const std::string_view line : split(text, '\n')) {
    const auto behind = [line](std::string_view start) {
      return line.starts_with(start) ? line.substr(start.size()) : std::string_view();
    };
    if (line.empty() || line.starts_with('#')) continue;
    if (const auto title = behind("= "); !title.empty()) {
      notes.parts.push_back({std::string(title), {}, {}});
      continue;
    }
    if (notes.parts.empty()) {
      notes.complaints.emplace_back(line);
      continue;
    }
    ComponentNotes::Part& part = notes.parts.back();
    if (const auto name = behind("== "); !name.empty()) {
      part.kinds.emplace_back().name = name;
    } else if (const auto words = behind("> "); !words.empty()) {
      std::string& place = part.kinds.empty() ? part.text : part.kinds.back().text;
      place += (place.empty() ? "" : " ") + std::string(words);
    } else if (part.kinds.empty()) {
      notes.complaints.emplace_back(line);
    } else if (const auto made = behind("names "); !made.empty()) {
      for (const std::string_view one : split(made, ' ')) {
        part.kinds.back().makers.emplace_back(one);
      }
    } else if (const auto methods = behind("methods "), properties = behind("properties ");
               !methods.empty() || !properties.empty()) {
      for (const std::string_view one : split(methods.empty() ? properties : methods, ' ')) {
        part.kinds.back().members.push_back({std::string(one), !methods.empty(), {}});
      }
    } else {
      const std::size_t colon = line.find(": ");
      auto& members = part.kinds.back().members;
      const auto member = std::find_if(members.begin(), members.end(), [&](const auto& one) {
        return one.name == line.substr(0, colon);
      });
      if (colon == line.npos || member == members.end()) {
        notes.complaints.emplace_back(line);
      } else {
        member->differs = line.substr(colon + 2);
      }
    }
  }
  return notes;
}

std::map<std::string, const WatchedObjects::Kind*> namedKinds(const WatchedObjects& book) {
  std::map<std::string, const WatchedObjects::Kind*> named;
  for (const auto& [shape, kind] : book.kinds()) named[lowerCase(kind.name())] = &kind;
  return named;
}

namespace {

/// Names that only versions tell apart are not registered: those are passed over.
void checkMakers(const ComponentNotes::Kind& note, const WatchedObjects::Kind& kind,
                 std::vector<std::string>& complaints) {
  for (const std::string_view name : componentNames()) {
    const bool makes = std::find(kind.makers.begin(), kind.makers.end(), name) != kind.makers.end();
    const bool noted = std::any_of(note.makers.begin(), note.makers.end(),
                                   [&](const std::string& one) { return equalsNoCase(one, name); });
    if (makes != noted) {
      complaints.push_back(std::string(name) + (makes ? " makes a " : " makes no ") + note.name);
    }
  }
}

std::string listOfKind(const ComponentNotes::Kind& note, const WatchedObjects::Kind& kind,
                       std::vector<std::string>& complaints) {
  std::string text = "\n### " + note.name + "\n\n";
  checkMakers(note, kind, complaints);
  std::vector<std::string> makers;
  for (const std::string& maker : note.makers) makers.push_back(quoted(maker));
  if (!makers.empty()) text += "Made by " + joined(makers) + ".\n";
  if (!note.text.empty()) text += note.text + '\n';
  text += (text.ends_with("\n\n") ? "" : "\n") +
          std::string("| member | | arguments | |\n|---|---|---|---|\n");
  std::vector<std::string> absent;
  for (const ComponentNotes::Member& member : note.members) {
    const auto use = std::find_if(
        kind.members.begin(), kind.members.end(),
        [&](const vbs::MemberUse& row) { return equalsNoCase(row.name, member.name); });
    if (use == kind.members.end()) {
      absent.push_back(quoted(member.name));
      if (!member.differs.empty())
        complaints.push_back(note.name + '.' + member.name + " is absent and can't differ");
      continue;
    }
    text += "| " + quoted(member.name) + " | " + kindOfUse(member, *use) + " | " + arguments(*use) +
            " | " + (member.differs.empty() ? "works" : "differs: " + member.differs) + " |\n";
  }
  for (const vbs::MemberUse& use : kind.members) {
    if (!note.find(use.name)) {
      complaints.push_back("the notes say nothing of " + note.name + '.' + std::string(use.name));
    }
  }
  if (!absent.empty()) text += "\nAbsent: " + joined(absent) + ".\n";
  return text;
}

}  // namespace

std::string componentList(const ComponentNotes& notes, const WatchedObjects& book,
                          std::vector<std::string>& complaints) {
  for (const std::string& line : notes.complaints) complaints.push_back("no note: " + line);
  auto kinds = namedKinds(book);
  std::string text(kHead);
  for (const ComponentNotes::Part& part : notes.parts) {
    text += "\n## " + part.title + '\n';
    if (!part.text.empty()) text += '\n' + part.text + '\n';
    for (const ComponentNotes::Kind& note : part.kinds) {
      const auto kind = kinds.find(lowerCase(note.name));
      if (kind == kinds.end()) {
        complaints.push_back("no script has seen a " + note.name);
        continue;
      }
      text += listOfKind(note, *kind->second, complaints);
      kinds.erase(kind);
    }
  }
  for (const auto& [name, kind] : kinds) complaints.push_back("the notes say nothing of " + name);
  return text;
}

}  // namespace quorvane
