#pragma once

#include <memory>
#include <string>

#include "components/shared_values.h"
#include "platform/services.h"
#include "script/customary/session_table.h"
#include "script/sessions/auth_keys.h"
#include "script/sessions/session_store.h"

namespace quorvane {

/// Where a server keeps what outlasts its pages: in its own memory, or in a store that it shares
/// with other instances. Chosen when the server starts; it outlives what it makes.
class Keeping {
 public:
  virtual ~Keeping() = default;

  virtual std::unique_ptr<SessionStore> sessions() = 0;
  virtual std::unique_ptr<AuthKeys> authKeys() = 0;
  virtual std::unique_ptr<customary::SessionTable> visitors() = 0;

  /// Behind the values of the application; null: there is nothing.
  virtual std::shared_ptr<SharedValues::Backing> application() = 0;

  /// Whether this server is the one to run Application_OnStart of a site's global.asa. `isNew`: it
  /// has not yet been asked for this text. May throw vbs::ScriptError, and is asked again then.
  virtual bool startsApplication(const std::string& text, bool isNew) = 0;

  /// Whether the application ends with this server.
  virtual bool endsWithServer() const = 0;
};

/// As the setting SessionStore says, and in memory. The services outlive it.
std::unique_ptr<Keeping> makeKeeping(const Services& services);
std::unique_ptr<Keeping> makeMemoryKeeping(const Services& services);

}  // namespace quorvane
