#pragma once

#include <string>
#include <string_view>

#include "http/request_collector.h"
#include "http/standard/head.h"

namespace quorvane {

/// Puts requests together by RFC 9112, from the pieces in which they arrive. Each begins where the
/// one before it ends; what comes behind a whole request stays in the record, and whoever asked
/// has to come back for it.
class StandardCollector {
 public:
  /// Takes the next piece of a slot, which may be empty. The record is empty again after a request
  /// but for what came behind it, and wholly so after a refusal. Views in the result last as long
  /// as `data` does, and until the next call.
  request_collector::Collected collect(SlotRecord& record, std::string_view data);

  /// Of the last request that was complete, as long as its text is where it was.
  const StandardHead& head() const { return head_; }

 private:
  using Collected = request_collector::Collected;

  Collected waited(SlotRecord& record);
  Collected readHead(SlotRecord& record, std::string_view& input);
  Collected beginBody(SlotRecord& record, std::string_view head, std::string_view& input);
  Collected readBody(SlotRecord& record, std::string_view& input);
  Collected readChunks(SlotRecord& record, std::string_view& input);
  Collected complete(SlotRecord& record);
  static Collected refused(SlotRecord& record, std::string_view text, std::string_view& input,
                           Status status);

  std::string source_;  ///< of views in the last result, where they are not of its own bytes
  StandardHead head_;
};

}  // namespace quorvane
