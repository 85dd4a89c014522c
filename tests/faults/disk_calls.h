#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "tests/faults/disk.h"

namespace veyra::faults {

/// What a program that the disk was loaded into shares with the test that started it.
struct Meter {
  std::int32_t KillAt =
      0;  ///< The step at which the program is killed; 0 for none. Set by the test.
  std::int32_t Steps = 0;  ///< Those that have been.
};

/// The disk as the calls meet it. Every member but NameOf counts or changes something, so each is
/// asked once a call, under the mutex.
class Disk {
 public:
  static constexpr int kNoFailure = -1;

  static Disk& The();

  std::mutex Mutex;

  void Take(const Plan& plan);
  Seen End();

  bool IsWatching() const { return !plan_.Folder.empty(); }

  /// The name within the folder, empty for the folder itself; nothing when it is elsewhere.
  std::optional<std::string> NameOf(std::string_view path) const;
  std::optional<std::string> NameOf(int descriptor) const;

  void NoteOpeningForWriting(const std::string& name) { seen_.OpenedForWriting.push_back(name); }

  /// Counts a call. Returns the errno that it fails with, 0 for a short write, or kNoFailure.
  int Fails(Call call);

  /// Counts a step. Whether the process is to be killed at it.
  bool IsKilledNext();

  /// Counts a step, and kills this process when the plan says so.
  void Step();

  /// How many of the bytes there is room for.
  std::size_t Fitting(int descriptor, std::uint64_t offset, std::size_t count);
  void GiveBack(std::uint64_t bytes);

  void Record(Change change);

 private:
  Disk();

  Plan plan_;
  Meter* meter_ = nullptr;
  std::string real_folder_;
  Seen seen_;
};

}  // namespace veyra::faults
