#include "tools/qvmpack.h"

#include <iomanip>
#include <ostream>
#include <string_view>

#include "tools/qvmpack_folder.h"
#include "tools/qvmpack_module.h"
#include "tools/qvmpack_pages.h"
#include "tools/qvmpack_trial.h"

namespace quorvane {

namespace {

using Arguments = std::vector<std::string>;

constexpr std::string_view kHelp =
    "qvmpack - resource modules\n"
    "\n"
    "  qvmpack pack [--keep-includes] FOLDER FILE.qvm\n"
    "                                  pack everything below a folder into a module; includes\n"
    "                                  are put in their place in the pages unless they are kept\n"
    "  qvmpack list FILE.qvm           list what is in a module\n"
    "  qvmpack verify FILE.qvm         start a server on a module, ask for every entry, and tell\n"
    "                                  what is not served; pages run\n"
    "  qvmpack unpack FILE.qvm FOLDER  write a module's files below a folder, over those there\n"
    "\n"
    "A file named like \"1031$index.qvs\" is index.qvs for the language with that locale\n"
    "identifier. A module holds up to 255 files; empty files can't be in one. The server reads\n"
    "all modules of its document root together: a path that occurs in another module's path is\n"
    "found only if its module is read first, so give modules folders of their own.\n"
    "\n"
    "Exit code: 0 all is well; 1 done, but with warnings; 2 wrong arguments; 3 a file or folder\n"
    "could not be read or written.\n";

/// Names come from files of unknown makers; a terminal gets to see printable characters.
std::string printable(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < 32 || c == 127) c = '?';
  }
  return text;
}

/// One run of the tool.
class ModuleTool {
 public:
  ModuleTool(const Files& files, std::ostream& out, std::ostream& err)
      : files_(files), out_(out), err_(err) {}

  ExitCode run(const Arguments& arguments) {
    for (const std::string& argument : arguments) {
      if (argument == "--help" || argument == "-h") {
        out_ << kHelp;
        return ExitCode::Done;
      }
    }
    if (arguments.empty()) return wrong("a command is missing");
    const std::string& command = arguments[0];
    const std::size_t given = arguments.size() - 1;
    const bool keepsIncludes = given == 3 && arguments[1] == "--keep-includes";
    if (command == "pack" && (given == 2 || keepsIncludes)) {
      return pack(arguments[given - 1], arguments[given], keepsIncludes);
    }
    if (command == "list" && given == 1) return list(arguments[1]);
    if (command == "verify" && given == 1) return verify(arguments[1]);
    if (command == "unpack" && given == 2) return unpack(arguments[1], arguments[2]);
    if (command == "pack" || command == "unpack") return wrong(command + " takes two names");
    if (command == "list" || command == "verify") return wrong(command + " takes one name");
    return wrong("unknown command \"" + command + "\"");
  }

 private:
  ExitCode pack(const std::string& folder, const std::string& target, bool keepsIncludes) {
    FolderContents contents = readFolder(folder, target, files_);
    if (!contents.readable) return failed("can't read the folder " + folder);
    for (const std::string& warning : contents.warnings) warn(warning);
    if (contents.files.empty()) return failed("there is nothing to pack in " + folder);
    for (ModuleFile& file : contents.files) {
      if (!keepsIncludes) {
        if (const auto problem = expandPage(file, folder, files_)) warn(*problem + '.');
      }
      for (const std::string& need : needsBesideTheModule(file)) warn(need + '.');
    }
    const auto bytes = writeModule(contents.files);
    if (!bytes) return failed("the folder is too large for one module");
    examine(*bytes, readModule(*bytes));
    if (!files_.writeAll(target, *bytes)) return failed("can't write " + target);
    out_ << contents.files.size() << " files, " << bytes->size() << " bytes\n";
    return result();
  }

  ExitCode list(const std::string& path) {
    const auto bytes = files_.readAll(path);
    if (!bytes) return failed("can't read " + path);
    const ModuleContents contents = readModule(*bytes);
    for (const ModuleFile& file : contents.files) {
      out_ << std::setw(10) << file.content.size() << std::setw(10) << file.packedLength << "  "
           << printable(file.date) << "  " << printable(file.folder) << "  " << printable(file.name)
           << '\n';
    }
    if (!contents.problem.empty()) warn(contents.problem);
    return result();
  }

  ExitCode verify(const std::string& path) {
    const auto bytes = files_.readAll(path);
    if (!bytes) return failed("can't read " + path);
    const ModuleContents contents = readModule(*bytes);
    examine(*bytes, contents);
    if (!warned_) {
      for (const std::string& sentence : failedEntries(*bytes, contents, files_)) warn(sentence);
    }
    if (!warned_) out_ << contents.files.size() << " files, all served\n";
    return result();
  }

  ExitCode unpack(const std::string& path, const std::string& folder) {
    const auto bytes = files_.readAll(path);
    if (!bytes) return failed("can't read " + path);
    const auto there = files_.stat(folder);
    if (there ? !there->isFolder : !files_.makeFolder(folder)) {
      return failed("can't make the folder " + folder);
    }
    const ModuleContents contents = readModule(*bytes);
    for (const ModuleFile& file : contents.files) {
      const std::string problem = unpackFile(file, folder, files_);
      if (!problem.empty()) warn(file.name + " is not unpacked: " + problem + ".");
    }
    if (!contents.problem.empty()) warn(contents.problem);
    return result();
  }

  void examine(const std::string& bytes, const ModuleContents& contents) {
    for (const std::string& sentence : unservedFiles(bytes, contents, files_)) warn(sentence);
    if (!contents.problem.empty()) warn(contents.problem);
  }

  void warn(const std::string& sentence) {
    err_ << "qvmpack: " << printable(sentence) << '\n';
    warned_ = true;
  }
  ExitCode result() const { return warned_ ? ExitCode::Finding : ExitCode::Done; }
  ExitCode wrong(const std::string& what) {
    err_ << "qvmpack: " << what << "; \"qvmpack --help\" tells more\n";
    return ExitCode::Usage;
  }
  ExitCode failed(const std::string& what) {
    err_ << "qvmpack: " << printable(what) << '\n';
    return ExitCode::Failed;
  }

  const Files& files_;
  std::ostream& out_;
  std::ostream& err_;
  bool warned_ = false;
};

}  // namespace

ExitCode runModuleTool(const Arguments& arguments, const Files& files, std::ostream& out,
                       std::ostream& err) {
  return ModuleTool(files, out, err).run(arguments);
}

}  // namespace quorvane
