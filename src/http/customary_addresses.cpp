#include "http/customary_addresses.h"

#include <algorithm>
#include <array>
#include <utility>

#include "http/clsHTTPParser.h"
#include "platform/charset.h"
#include "support/clsQVMod.h"
#include "support/paths.h"
#include "support/rooted_path.h"
#include "support/server_state.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::array<std::string_view, 6> kDefaultDocuments{
    "index.qvs", "default.asp", "index.asp", "default.htm", "index.htm", "index.html"};

constexpr std::array<std::string_view, 2> kPages{".asp", ".qvs"};

/// What sites keep beside their pages and never meant for anybody: parts of pages, keys, passwords,
/// data. Sorted in no way; a request looks here once.
constexpr std::array<std::string_view, 14> kPrivate{".inc", ".asa",   ".pfx", ".p12",    ".config",
                                                    ".mdb", ".accdb", ".udl", ".sqlite", ".db",
                                                    ".ini", ".log",   ".cs",  ".vb"};

/// What databases leave beside their files holds the same data.
constexpr std::array<std::string_view, 3> kCompanions{"-wal", "-journal", "-shm"};

constexpr std::array<std::string_view, 2> kPrivateFolders{"App_Data", "Bin"};

template <std::size_t size>
bool isOneOf(std::string_view text, const std::array<std::string_view, size>& list) {
  const auto is = [text](std::string_view one) { return equalsNoCase(text, one); };
  return std::any_of(list.begin(), list.end(), is);
}

bool isPrivateExtension(std::string_view extension) {
  for (const std::string_view companion : kCompanions) {
    const std::size_t length = extension.size() - std::min(extension.size(), companion.size());
    if (equalsNoCase(extension.substr(length), companion)) extension = extension.substr(0, length);
  }
  return isOneOf(extension, kPrivate);
}

/// Some systems drop a dot or a blank at a name's end and arrive at another name.
bool isPrivateName(std::string_view part) {
  return part.starts_with('.') || part.ends_with('.') || part.ends_with(' ') ||
         isOneOf(part, kPrivateFolders);
}

bool leadsToPrivate(std::string_view path) {
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find_first_of(paths::kSeparators, start), path.size());
    if (isPrivateName(path.substr(start, end - start))) return true;
    start = end + 1;
  }
  return false;
}

/// A "%" that begins no number stands for itself, "+" always.
std::string percentDecoded(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto encoded = text[i] == '%' ? hexByte(text.substr(i + 1)) : std::nullopt;
    decoded += encoded.value_or(text[i]);
    if (encoded) i += 2;
  }
  return decoded;
}

std::string percentEncoded(std::string_view path) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  std::string encoded;
  for (const char c : path) {
    if (kPlain.find(c) != std::string_view::npos) {
      encoded += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      encoded += {'%', kDigits[byte / 16], kDigits[byte % 16]};
    }
  }
  return encoded;
}

/// Whether a path stands for itself, as most do.
bool isPlain(std::string_view path) {
  char before = 0;
  for (const char c : path) {
    if (c == '%' || c == '\\' || c == ':' || c == '\0') return false;
    if (before == '/' && (c == '/' || c == '.')) return false;
    before = c;
  }
  return path.starts_with('/');
}

/// The way from the root on that the path of an address leads, a "/" before each part: decoded,
/// with "." and ".." parts followed, upwards no further than to the root. Nothing when no file can
/// have that name.
std::optional<std::string> wayOf(std::string_view address) {
  if (isPlain(address)) return std::string(address);
  const std::string decoded = percentDecoded(address);
  const auto rooted = RootedPath::resolved("/", "/", decoded);
  if (!rooted) return std::nullopt;
  std::string way = '/' + replaceAll(rooted->relative(), "\\", "/");
  if (way.size() > 1 && paths::isSeparator(decoded.back())) way += '/';
  return way;
}

/// A name's other spelling: that of Windows-1252 for one of UTF-8 and the other way round, since
/// neither a link nor a disk says which it uses.
std::optional<std::string> otherSpelling(const std::string& name) {
  constexpr std::string_view kUtf8 = "utf-8";
  constexpr std::string_view kAnsi = "windows-1252";
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 128; };
  if (std::all_of(name.begin(), name.end(), isAscii)) return std::nullopt;
  const auto text = [&](std::string_view set) {
    return charset::decode(set, name, name.size()).text;
  };
  const std::u16string wide = text(kUtf8);
  if (wide.find(u'\xFFFD') == std::u16string::npos) return charset::encode(kAnsi, wide);
  return charset::encode(kUtf8, text(kAnsi));
}

}  // namespace

Wanted CustomaryAddresses::asked(clsHTTPParser& request) const {
  const Services& services = sources_.services;
  Wanted wanted = Wanted::by(request, services.state, sources_.aliases, services.clock);
  if (wanted.isAlias) return wanted;
  const std::string& url = request.DocumentUrl();
  if (const auto path = spelling_ == Spelling::Decoded ? std::optional(url) : wayOf(url)) {
    wanted = at(std::move(wanted), *path);
  } else {
    wanted.file.reach = LocalTarget::Reach::Nowhere;
  }
  wanted.tell(request);
  return wanted;
}

Place CustomaryAddresses::placeOf(Wanted& wanted, clsHTTPParser& request) {
  Place place = look(wanted, request);
  const bool hasSpellings = !place.isThere() && wanted.isPublic();
  if (const auto other = hasSpellings ? otherSpelling(wanted.document()) : std::nullopt) {
    Wanted spelled = at(wanted, *other);
    if (Place found = look(spelled, request); found.isThere()) {
      wanted = std::move(spelled);
      place = std::move(found);
    }
  }
  if (!place.isThere() && wanted.isPublic()) place = pageBefore(wanted, std::move(place), request);
  if (place.isThere()) wanted.tell(request);
  return place;
}

/// A page whose name the path has in its middle may become what is wanted, else it is `place`.
Place CustomaryAddresses::pageBefore(Wanted& wanted, Place place, const clsHTTPParser& request) {
  const std::string path = wanted.document();
  for (std::size_t end = path.find('/', 1); end != path.npos; end = path.find('/', end + 1)) {
    const std::string name = path.substr(0, end);
    if (kindOf(name) != Place::Kind::Page) continue;
    Wanted page = at(wanted, name);
    Place found = look(page, request);
    if (found.kind != Place::Kind::Page) continue;
    wanted = std::move(page);
    wanted.info = path.substr(end);
    return found;
  }
  return place;
}

/// A folder's default document may become what is wanted.
Place CustomaryAddresses::look(Wanted& wanted, const clsHTTPParser& request) {
  Place place;
  place.kind = Place::Kind::Refused;
  if (wanted.file.isInside() && leadsToPrivate(wanted.file.path)) return place;
  if (wanted.title.empty()) return defaultDocument(wanted);
  const Place::Kind kind = kindOf(wanted.file.path);
  auto found = find(wanted);
  const bool isFolder = found ? found->file.info.isFolder : isModuleFolder(wanted);
  if (isFolder && wanted.isPublic()) {
    place.kind = Place::Kind::Moved;
    place.address = percentEncoded(wanted.document()) + '/';
    const std::string& query = request.DocumentQueryString();
    if (!query.empty()) place.address += '?' + query;
    return place;
  }
  if (isFolder || kind == Place::Kind::Refused) return place;
  if (found) place = std::move(*found);
  place.kind = found ? kind : Place::Kind::Nothing;
  return place;
}

Place CustomaryAddresses::defaultDocument(Wanted& wanted) {
  const auto lookFor = [&](std::string_view name) -> std::optional<Place> {
    Wanted document = at(wanted, wanted.path + std::string(name));
    auto found = find(document);
    if (!found || found->file.info.isFolder) return std::nullopt;
    found->kind = kindOf(document.title);
    wanted = std::move(document);
    return found;
  };
  if (wanted.path == "/") {
    if (auto found = lookFor(sources_.services.state.DefaultDocument)) return std::move(*found);
  }
  for (const std::string_view name : kDefaultDocuments) {
    if (auto found = lookFor(name)) return std::move(*found);
  }
  return {};
}

/// Modules know files alone; a folder that nobody has made on the disk is one by its default
/// document.
bool CustomaryAddresses::isModuleFolder(const Wanted& wanted) {
  if (sources_.modules.empty() || !wanted.isPublic()) return false;
  Wanted folder = at(wanted, wanted.document() + '/');
  return defaultDocument(folder).isThere();
}

/// As what a file of that name is served.
Place::Kind CustomaryAddresses::kindOf(const std::string& name) {
  const std::string_view extension = paths::extensionOf(name);
  if (isOneOf(extension, kPages)) return Place::Kind::Page;
  const bool isServed = !isPrivateExtension(extension) && !types_.typeOf(name, {}).empty();
  return isServed ? Place::Kind::File : Place::Kind::Refused;
}

/// In the names of modules' files "$" stands for a separator: by such a name a file of a private
/// folder could be had.
std::optional<Place> CustomaryAddresses::find(const Wanted& wanted) const {
  const bool maybeInModule = wanted.document().find('$') == std::string::npos;
  return maybeInModule ? sources_.find(wanted) : sources_.onDisk(wanted);
}

Wanted CustomaryAddresses::at(Wanted wanted, const std::string& path) const {
  wanted.path = paths::folderOf(path);
  wanted.title = paths::fileNameOf(path);
  wanted.file = LocalTarget::inside(sources_.services.state.ScriptsFolder, path);
  wanted.info.clear();
  wanted.isAlias = false;
  return wanted;
}

std::optional<Wanted> CustomaryAddresses::standIn(const Wanted& missing,
                                                  const clsHTTPParser& request) const {
  const auto path = wayOf(sources_.services.state.NotFoundPage);
  if (!path || *path == "/") return std::nullopt;
  Wanted page = at(missing, *path);
  const std::string& host = request.HostAddr();
  const std::string_view target = request.head().target();
  page.query = std::string("404;http") + (request.visitor().isSecure ? "s" : "") + "://" +
               (host.empty() ? "localhost" : host) + (target.starts_with('/') ? "" : "/") +
               std::string(target);
  return page;
}

/// As it came: a decoded name could be anything in the text of a page.
std::string CustomaryAddresses::missingName(const std::string&,
                                            const clsHTTPParser& request) const {
  return std::string(paths::fileNameOf(request.DocumentUrl()));
}

}  // namespace quorvane
