#include "tests/data/access/failing_calls.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <limits>

namespace veyra {

namespace {

struct Plan {
  int Before = 0;  ///< Calls that succeed first.
  int Count = 0;   ///< Calls that fail then.
};

struct Disk {
  std::array<Plan, 5> Plans;
  bool HasFailed = false;
};

Disk& TheDisk() {
  static Disk disk;
  return disk;
}

bool Fails(DiskCall call) {
  Plan& plan = TheDisk().Plans.at(static_cast<std::size_t>(call));
  if (plan.Count == 0) {
    return false;
  }
  if (plan.Before > 0) {
    --plan.Before;
    return false;
  }
  --plan.Count;
  TheDisk().HasFailed = true;
  errno = EIO;
  return true;
}

}  // namespace

void FailingDisk::Fail(DiskCall call, int first, int count) {
  TheDisk().Plans.at(static_cast<std::size_t>(call)) = {first - 1, count};
}

void FailingDisk::FailAll(DiskCall call) {
  Fail(call, 1, std::numeric_limits<int>::max());
}

void FailingDisk::Heal() {
  TheDisk() = {};
}

bool FailingDisk::HasFailed() {
  return TheDisk().HasFailed;
}

}  // namespace veyra

// These stand before those of the C library.
extern "C" {

ssize_t write(int descriptor, const void* bytes, size_t size) {
  return veyra::Fails(veyra::DiskCall::Write) ? -1 : syscall(SYS_write, descriptor, bytes, size);
}

ssize_t pwrite(int descriptor, const void* bytes, size_t size, off_t offset) {
  return veyra::Fails(veyra::DiskCall::PageWrite)
             ? -1
             : syscall(SYS_pwrite64, descriptor, bytes, size, offset);
}

int fsync(int descriptor) {
  return veyra::Fails(veyra::DiskCall::Flush) ? -1
                                              : static_cast<int>(syscall(SYS_fsync, descriptor));
}

int unlink(const char* path) noexcept {
  return veyra::Fails(veyra::DiskCall::Remove) ? -1 : static_cast<int>(syscall(SYS_unlink, path));
}

int truncate(const char* path, off_t size) noexcept {
  return veyra::Fails(veyra::DiskCall::Truncate)
             ? -1
             : static_cast<int>(syscall(SYS_truncate, path, size));
}

int ftruncate(int descriptor, off_t size) noexcept {
  return veyra::Fails(veyra::DiskCall::Truncate)
             ? -1
             : static_cast<int>(syscall(SYS_ftruncate, descriptor, size));
}
}
