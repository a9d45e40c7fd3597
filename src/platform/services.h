#pragma once

namespace quorvane {

namespace ado {
class DatabasePool;
}

class Clock;
class Files;
class ImageLibrary;
class Process;
class PageContext;
class Random;
class SettingsStorage;
class StatusLines;
struct ServerState;

/// What the parts of one server share. Start-up makes one of each and keeps them all alive; the
/// parts get this by reference and nothing reaches them otherwise, so that several servers can
/// live in one process.
struct Services {
  const ServerState& state;
  StatusLines& log;
  const Clock& clock;
  const Files& files;
  Random& random;
  Process& process;                           ///< its current folder follows Server.MapPath
  ImageLibrary* images = nullptr;             ///< null: pictures are served unresized
  const SettingsStorage* settings = nullptr;  ///< null: scripts can't read any
  PageContext* page = nullptr;                ///< null where scripts are no pages
  ado::DatabasePool* databases = nullptr;     ///< null: connections are opened as pages say
};

}  // namespace quorvane
