#pragma once

#include <string>

namespace veyra {

/// The calls of the operating system by which a change reaches the disk.
enum class DiskCall { Write, PageWrite, Flush, Remove, Truncate };

/// Lets disk calls of this program fail, as on a disk that is failing, for as long as it lives.
class FailingDisk {
 public:
  FailingDisk() = default;
  ~FailingDisk() { Heal(); }
  FailingDisk(const FailingDisk&) = delete;
  FailingDisk& operator=(const FailingDisk&) = delete;

  /// From the `first` call of that kind on, counted from 1 from now, so many calls fail.
  static void Fail(DiskCall call, int first, int count);

  /// All of them fail from now on.
  static void FailAll(DiskCall call);

  /// Every call succeeds again.
  static void Heal();

  /// Whether a call has failed since the last Heal.
  static bool HasFailed();
};

}  // namespace veyra
