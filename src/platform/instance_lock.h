#pragma once

namespace quorvane {

/// Tells whether another instance of the program runs already. Instances with settings of their
/// own, or with numbers of their own, don't count as the same program.
class InstanceLock {
 public:
  virtual ~InstanceLock() = default;

  /// True when this is the only instance. The place is held until this object goes, or until the
  /// process ends in whatever way. When the system can't tell, the answer is true.
  virtual bool acquire() = 0;
};

}  // namespace quorvane
