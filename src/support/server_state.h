#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "support/address_ranges.h"
#include "support/clsLog.h"
#include "support/listen_address.h"
#include "support/store_address.h"

namespace quorvane {

/// Which objects scripts create by name.
enum class ComponentSource {
  System,  ///< the system's, and this program's own where it has none of the name
  Own,     ///< the other way round
  None,
};

/// The program-wide values. Start-up makes the one instance of a program and passes it by
/// reference; nothing reaches it otherwise, so two servers can live in one process.
/// Folder texts use the system's own separator; the members' comments say which end in one.
struct ServerState {
  // Command line.
  bool DevMode = false;
  bool NoQvm = false;  ///< serve loose files only, no resource modules
  bool DebugMode = false;
  bool IdleStart = false;
  bool LogHeaders = false;  ///< log every request's raw text
  bool InstallRequested = false;
  bool UninstallRequested = false;
  bool IsWinNT = true;

  // Folders.
  std::string MainPath;       ///< base folder, ends in a separator
  std::string ScriptsFolder;  ///< document root, no separator at its end
  std::string CacheFolder;    ///< gzip copies and resized images, no separator at its end
  std::string LogsFolder;     ///< no separator at its end

  // Settings, read again at every server start.
  std::uint16_t ServerPort = 7007;
  std::string DefaultDocument = "index.qvs";
  std::int32_t DefaultLCID = 0;  ///< 0: take the user's own choice
  bool LogServer = true;
  bool EncodeStatic = false;
  bool EncodeDynamic = false;
  bool EncodeImages = false;
  bool RunAsService = false;
  bool LocalhostOnly = false;
  bool LocalAddrControl = false;
  bool ControlAnyAddress = false;            ///< answer control commands from other machines too
  std::optional<std::uint16_t> ControlPort;  ///< of the control channel, when one was chosen
  bool RetryPort = false;                    ///< try a port that was taken again
  std::vector<ListenAddress> Listen;         ///< in place of the port, when there are any
  AddressRanges TrustedProxies;              ///< may name the clients that they speak for
  bool ProxyProtocol = false;         ///< they name the client at the beginning of each connection
  std::uint32_t LogTextLimit = 2048;  ///< bytes of a client's text in a status line; 0: no bound
  std::uint32_t DrainSeconds = 0;     ///< for transfers under way when the program is to end
  bool EncodeErrors = false;          ///< HTML-encode what the script error page shows
  bool LogPageErrors = false;         ///< what the script error page shows, and where it stands
  bool FollowLinks = true;            ///< also where symbolic links leave the document root
  std::uint32_t LogFileLimit = 0;     ///< MiB after which a new log file begins; 0: no bound
  /// Folders below which scripts may read and write, a semicolon between two. Empty: the base
  /// folder and the system's temporary folder. "*": everywhere.
  std::string ScriptFolders;
  ComponentSource Components = ComponentSource::System;
  bool AllowShell = false;        ///< scripts may start programs
  std::string MailServer;         ///< "host" or "host:port" for pages that name none
  std::string MailFolder;         ///< takes mail as files; empty: mail is sent
  std::uint32_t JetCodePage = 0;  ///< of texts in Jet 3 files; 0: as each says itself

  // The customary dialect of pages.
  std::int32_t Customary = 0;  ///< 1: for pages that begin with a directive; 2: for every page
  std::int32_t PageCodePage = 1252;  ///< of customary pages that name none
  bool ErrorDetail = false;          ///< clients see what a customary page failed with
  std::string ErrorPage;     ///< path of a URL; answers in place of a customary page that failed
  std::string NotFoundPage;  ///< path of a URL; runs where a request finds nothing, under 2

  bool StandardHTTP = false;  ///< keep to RFC 9110 and 9112 where the server's own ways differ

  bool SharePort = false;  ///< other instances listen on the same port
  /// Of several instances with the same settings, this one's; 0: there is one alone.
  std::int32_t Instance = 0;
  std::optional<StoreAddress> SessionStore;  ///< nothing: sessions live in the server's memory

  // Seconds after which a connection is closed; 0 for never.
  std::uint32_t HeadSeconds = 30;   ///< without a whole head
  std::uint32_t BodySeconds = 60;   ///< without progress of an announced body
  std::uint32_t IdleSeconds = 120;  ///< between two requests
  std::uint32_t SendSeconds = 60;   ///< while the client takes nothing of an answer

  std::string AppVersion;  ///< "major.minor.revision"

  std::unique_ptr<clsLog> ServerLog;  ///< null before start-up has opened it and after the end
};

inline std::string VersionText(const ServerState& state) {
  return state.AppVersion + " (Beta)";
}

}  // namespace quorvane
