#include "components/ado/odbc/target.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "components/ado/connection_text.h"
#include "components/ado/odbc/session.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

/// Drivers by what their names and those of providers hold, and which are taken for them.
struct Family {
  std::array<std::string_view, 6> words;  ///< in lower case
  std::array<std::string_view, 5> drivers;
};

constexpr std::array kFamilies = {
    Family{{"sql server", "sqloledb", "sqlncli", "sql native client", "msoledbsql", "freetds"},
           {"ODBC Driver 18 for SQL Server", "ODBC Driver 17 for SQL Server", "FreeTDS"}},
    Family{{"mysql", "mariadb", "mysqlprov"},
           {"MariaDB Unicode", "MariaDB ODBC 3.1 Driver", "MariaDB ODBC 3.2 Driver",
            "MySQL ODBC 8.0 Unicode Driver", "MySQL"}},
    Family{{"postgres", "pgoledb"}, {"PostgreSQL Unicode", "PostgreSQL ANSI", "PostgreSQL"}},
    Family{{"oracle", "msdaora", "oraoledb"}, {"Oracle", "Oracle ODBC Driver"}},
};

const Family* familyOf(std::string_view name) {
  for (const Family& family : kFamilies) {
    for (const std::string_view word : family.words) {
      if (!word.empty() && findNoCase(name, word) != name.npos) return &family;
    }
  }
  return nullptr;
}

std::optional<std::string> installedAs(std::string_view name,
                                       const std::vector<std::string>& installed) {
  const auto found = std::find_if(installed.begin(), installed.end(),
                                  [&](const auto& other) { return equalsNoCase(other, name); });
  return found == installed.end() ? std::nullopt : std::optional(*found);
}

/// The driver to take for one of this name.
std::string driverFor(std::string_view name, const std::vector<std::string>& installed) {
  if (const auto same = installedAs(name, installed)) return *same;
  if (const Family* family = familyOf(name)) {
    for (const std::string_view driver : family->drivers) {
      if (driver.empty()) continue;
      if (const auto other = installedAs(driver, installed)) return *other;
    }
  }
  throw OdbcFailure{{{u"IM002", 0, u""}}};
}

/// A value with its marks, where it wants some.
std::string marked(const std::string& value) {
  const bool plain = value.find_first_of("[]{}(),;?*=!@'\" ") == value.npos;
  return plain ? value : "{" + replaceAll(value, "}", "}}") + "}";
}

/// Parts that load code or name files, and names that somebody might read otherwise.
bool isRefused(const std::string& name) {
  const auto isUsual = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == ' ' || c == '_' || c == '-';
  };
  if (!std::all_of(name.begin(), name.end(), isUsual)) return true;
  static constexpr std::array<std::string_view, 9> kRefused = {
      "filedsn",        "savefile",        "trace",      "tracefile", "tracedll",
      "translationdll", "translationname", "plugin_dir", "plugindir"};
  return std::find(kRefused.begin(), kRefused.end(), name) != kRefused.end();
}

/// What providers call otherwise than drivers do. Empty: only they know it.
struct Renamed {
  std::string_view provider;
  std::string_view driver;
};

constexpr std::array kRenamed = {
    Renamed{"data source", "Server"},
    Renamed{"datasource", "Server"},
    Renamed{"server", "Server"},
    Renamed{"address", "Server"},
    Renamed{"addr", "Server"},
    Renamed{"network address", "Server"},
    Renamed{"location", "Server"},
    Renamed{"initial catalog", "Database"},
    Renamed{"database", "Database"},
    Renamed{"user id", "UID"},
    Renamed{"user", "UID"},
    Renamed{"username", "UID"},
    Renamed{"user name", "UID"},
    Renamed{"uid", "UID"},
    Renamed{"password", "PWD"},
    Renamed{"pwd", "PWD"},
    Renamed{"dsn", "DSN"},
    Renamed{"provider", ""},
    Renamed{"extended properties", ""},
    Renamed{"persist security info", ""},
    Renamed{"persistsecurityinfo", ""},
    Renamed{"network library", ""},
    Renamed{"network", ""},
    Renamed{"integrated security", "Trusted_Connection"},
    Renamed{"oledb services", ""},
    Renamed{"ole db services", ""},
    Renamed{"connect timeout", ""},
    Renamed{"connection timeout", ""},
    Renamed{"auto translate", ""},
    Renamed{"packet size", ""},
    Renamed{"workstation id", ""},
    Renamed{"use procedure for prepare", ""},
    Renamed{"datatypecompatibility", ""},
    Renamed{"multipleactiveresultsets", ""},
    Renamed{"cursor location", ""},
    Renamed{"mode", ""},
};

std::string renamed(const std::string& name) {
  for (const Renamed& row : kRenamed) {
    if (row.provider == name) return std::string(row.driver);
  }
  return name;
}

/// "tcp:host,1433" is "host" and its port; "." and "(local)" are this machine.
void splitServer(std::string& server, std::string& port) {
  if (startsWithNoCase(server, "tcp:")) server.erase(0, 4);
  if (const std::size_t comma = server.rfind(','); comma != server.npos) {
    port = std::string(trimBlanks(std::string_view(server).substr(comma + 1)));
    server = std::string(trimBlanks(std::string_view(server).substr(0, comma)));
  }
  if (server == "." || equalsNoCase(server, "(local)")) server = "127.0.0.1";
}

class Text {
 public:
  void set(std::string_view name, const std::string& value) {
    for (auto& [known, text] : parts_) {
      if (equalsNoCase(known, name)) {
        text = value;
        return;
      }
    }
    parts_.emplace_back(name, value);
  }
  std::string* find(std::string_view name) {
    for (auto& [known, text] : parts_) {
      if (equalsNoCase(known, name)) return &text;
    }
    return nullptr;
  }
  std::string text() const {
    std::string whole;
    for (const auto& [name, value] : parts_) whole += name + "=" + marked(value) + ";";
    return whole;
  }

 private:
  std::vector<std::pair<std::string, std::string>> parts_;
};

/// Parts of a text for a driver, or for the provider that hands all on to one.
void takeDriverParts(const ConnectionParts& parts, Text& text,
                     const std::vector<std::string>& installed) {
  for (const auto& [name, value] : parts.all()) {
    if (isRefused(name)) continue;
    if (name == "driver") {
      text.set("Driver", driverFor(value, installed));
    } else if (name == "data source" || name == "location") {
      text.set("DSN", value);
    } else if (name == "extended properties") {
      takeDriverParts(ConnectionParts(value), text, installed);
    } else if (const std::string own = renamed(name); !own.empty()) {
      text.set(own, value);
    }
  }
}

/// Parts of a text for a provider that knows one kind of server.
void takeProviderParts(const ConnectionParts& parts, Text& text) {
  for (const auto& [name, value] : parts.all()) {
    if (isRefused(name) || name == "driver" || name == "dsn") continue;
    const std::string own = renamed(name);
    if (own == "Trusted_Connection") {
      text.set(own, "yes");
    } else if (!own.empty()) {
      text.set(own, value);
    }
  }
}

}  // namespace

std::string odbcText(std::string_view given, const std::string& otherwise, const OdbcLogin& login,
                     const std::vector<std::string>& installed) {
  const ConnectionParts parts(given);
  Text text;
  const std::string provider = parts.find("provider").value_or(otherwise);
  if (provider.empty() || startsWithNoCase(provider, "msdasql") || parts.find("driver") ||
      parts.find("dsn")) {
    takeDriverParts(parts, text, installed);
    if (parts.empty() && !given.empty()) text.set("DSN", std::string(trimBlanks(given)));
  } else {
    text.set("Driver", driverFor(provider, installed));
    takeProviderParts(parts, text);
  }
  if (!login.user.empty()) text.set("UID", login.user);
  if (!login.password.empty()) text.set("PWD", login.password);
  if (const std::string* driver = text.find("Driver")) {
    if (findNoCase(*driver, "postgres") != driver->npos) {
      // Else the driver undoes a transaction of which one statement fails, and says nothing.
      if (!text.find("Protocol")) text.set("Protocol", "7.4-2");
      // As packages set it up, it writes what each connection does to a file in /tmp.
      if (!text.find("CommLog")) text.set("CommLog", "0");
    }
    std::string port;
    if (std::string* server = text.find("Server")) splitServer(*server, port);
    if (!port.empty()) text.set("Port", port);
  } else if (!text.find("DSN")) {
    driverFor("", installed);
  }
  return text.text();
}

}  // namespace quorvane::ado
