#pragma once

namespace quorvane {

class ApplicationComponent;
class AuthKeys;
class Clock;
class Files;
class Process;
class ResponseHeads;
class clsWEncode;
struct ServerState;

/// What every page works with. The owner keeps all of it alive as long as pages run.
struct PageServices {
  const ServerState& state;
  const Files& files;
  const Clock& clock;
  Process& process;  ///< its current folder follows Server.MapPath
  ResponseHeads& heads;
  const clsWEncode& encoder;
  AuthKeys& authKeys;
  ApplicationComponent& application;  ///< published as "QvS"
};

}  // namespace quorvane
