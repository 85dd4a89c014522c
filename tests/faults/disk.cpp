#include "tests/faults/disk.h"

#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

#include "tests/faults/disk_calls.h"

namespace veyra::faults {

namespace {

/// A program that is started with this library before all others is told by its environment.
Plan PlanOfEnvironment() {
  Plan plan;
  if (const char* folder = getenv("VEYRA_DISK_FOLDER")) {
    plan.Folder = folder;
  }
  return plan;
}

std::string RealPath(const std::string& path) {
  char resolved[PATH_MAX];
  return realpath(path.c_str(), resolved) != nullptr ? resolved : path;
}

/// Kept in the file that the environment names. Opened by the plain call, which is not one of the
/// disk's.
Meter* MeterOfEnvironment() {
  const char* name = getenv("VEYRA_DISK_METER");
  if (name == nullptr) {
    return nullptr;
  }
  const long descriptor = syscall(SYS_openat, AT_FDCWD, name, O_RDWR | O_CLOEXEC);
  void* meter = mmap(nullptr, sizeof(Meter), PROT_READ | PROT_WRITE, MAP_SHARED,
                     static_cast<int>(descriptor), 0);
  return meter == MAP_FAILED ? nullptr : static_cast<Meter*>(meter);
}

}  // namespace

Disk& Disk::The() {
  static Disk disk;
  return disk;
}

Disk::Disk() : meter_(MeterOfEnvironment()) {
  Take(PlanOfEnvironment());
}

void Disk::Take(const Plan& plan) {
  plan_ = plan;
  real_folder_ = plan.Folder.empty() ? "" : RealPath(plan.Folder);
  seen_ = {};
}

Seen Disk::End() {
  plan_ = {};
  return std::exchange(seen_, {});
}

std::optional<std::string> Disk::NameOf(std::string_view path) const {
  for (const std::string_view folder :
       {std::string_view(plan_.Folder), std::string_view(real_folder_)}) {
    if (folder.empty() || !path.starts_with(folder)) {
      continue;
    }
    const std::string_view rest = path.substr(folder.size());
    if (rest.empty()) {
      return "";
    }
    if (rest.front() == '/' && !rest.ends_with("-shm")) {
      return std::string(rest.substr(1));
    }
  }
  return std::nullopt;
}

std::optional<std::string> Disk::NameOf(int descriptor) const {
  if (!IsWatching()) {
    return std::nullopt;
  }
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  char path[PATH_MAX];
  const ssize_t length = readlink(link.c_str(), path, sizeof path);
  if (length <= 0) {
    return std::nullopt;
  }
  std::string_view name(path, static_cast<std::size_t>(length));
  constexpr std::string_view kDeleted = " (deleted)";
  if (name.ends_with(kDeleted)) {
    name.remove_suffix(kDeleted.size());
  }
  return NameOf(name);
}

int Disk::Fails(Call call) {
  int& count = seen_.Calls[static_cast<std::size_t>(call)];
  ++count;
  if (!plan_.Fail || plan_.Fail->What != call) {
    return kNoFailure;
  }
  const bool hit = plan_.Fail->Lasting ? count >= plan_.Fail->Number : count == plan_.Fail->Number;
  return hit ? plan_.Fail->Error : kNoFailure;
}

bool Disk::IsKilledNext() {
  ++seen_.Steps;
  if (meter_ != nullptr) {
    meter_->Steps = seen_.Steps;
    return seen_.Steps == meter_->KillAt;
  }
  return seen_.Steps == plan_.KillAt;
}

void Disk::Step() {
  if (IsKilledNext()) {
    raise(SIGKILL);
  }
}

std::size_t Disk::Fitting(int descriptor, std::uint64_t offset, std::size_t count) {
  struct stat status {};
  if (!plan_.Room || fstat(descriptor, &status) != 0) {
    return count;
  }
  const std::uint64_t end = offset + count;
  const auto size = static_cast<std::uint64_t>(status.st_size);
  const std::uint64_t growth = end > size ? end - size : 0;
  if (growth <= *plan_.Room) {
    *plan_.Room -= growth;
    return count;
  }
  const std::uint64_t lacking = growth - *plan_.Room;
  const std::size_t fitting = lacking < count ? count - static_cast<std::size_t>(lacking) : 0;
  if (fitting > 0) {
    *plan_.Room = 0;
  }
  return fitting;
}

void Disk::GiveBack(std::uint64_t bytes) {
  if (plan_.Room) {
    *plan_.Room += bytes;
  }
}

void Disk::Record(Change change) {
  if (plan_.Record) {
    seen_.Changes.push_back(std::move(change));
  }
}

void Watch(const Plan& plan) {
  const std::lock_guard lock(Disk::The().Mutex);
  Disk::The().Take(plan);
}

void MarkMade() {
  const std::lock_guard lock(Disk::The().Mutex);
  Disk::The().Record({.What = Change::Kind::Made});
}

void Mark() {
  const std::lock_guard lock(Disk::The().Mutex);
  Disk::The().Record({.What = Change::Kind::Mark});
}

Seen EndWatch() {
  const std::lock_guard lock(Disk::The().Mutex);
  return Disk::The().End();
}

}  // namespace veyra::faults
