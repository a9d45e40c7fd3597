#pragma once

#include <cstdint>

#include "http/response.h"

namespace quorvane {

class RequestHead;
struct Visitor;

/// A client as long as its connection lasts: the next one in its slot has another number.
struct Client {
  int slot = 0;
  std::uint64_t connection = 0;

  friend bool operator==(const Client&, const Client&) = default;
};

/// The clients whose requests are handled, as far as their answers may take time. Pages run one
/// after another and pictures are rendered beside the loop; meanwhile others have their turn.
class Clients {
 public:
  enum class Turn {
    Now,
    Later,  ///< the client is held, and its request handed over once more when it is its turn
    Never,  ///< nobody waits for the answer any more
  };

  virtual ~Clients() = default;

  virtual Client inSlot(int index) const = 0;

  enum class Admission {
    Granted,
    Forbidden,  ///< by the access rules
    Unclear,    ///< what the head says of the client is not to be believed
  };

  /// Asked before a request is answered. `visitor` has the address that the connection comes from;
  /// where others may speak for the client, it is put there as they name it in that head.
  virtual Admission admit(int, const RequestHead&, Visitor&) { return Admission::Granted; }

  /// False once the connection was closed or reset. A client that has only closed its own side is
  /// there: it takes its answer.
  virtual bool isThere(const Client& client) const = 0;

  /// Asked before a page is begun for the request in that slot.
  virtual Turn turnOf(int index) = 0;

  /// The answer to the request in that slot comes by answer(); until then nothing more of the
  /// client is read.
  virtual void answerLater(int index) = 0;
  virtual void answer(const Client& client, Response response) = 0;
};

}  // namespace quorvane
