#pragma once

namespace quorvane {

class ApplicationComponent;
class AuthKeys;
class clsWEncode;

/// What every page works with besides the server's services. The owner keeps all of it alive as
/// long as pages run.
struct PageParts {
  const clsWEncode& encoder;
  AuthKeys& authKeys;
  ApplicationComponent& application;  ///< published as "QvS"
};

}  // namespace quorvane
