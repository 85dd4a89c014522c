#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/faults/disk.h"

namespace veyra::faults {

/// A folder's files by name, as they may be found when the power is back.
using Image = std::map<std::string, std::string>;

/// What a loss of power may leave of a series of changes. Certain is only what was flushed: the
/// bytes of a file by flushing it, its name by flushing the folder. Of the rest each change may
/// have reached the disk or not, in any order, a write in any of its 512-byte sectors, and a write
/// past the end as a longer file that holds zeros.
class PowerCut {
 private:
  struct State {
    std::map<std::string, std::uint64_t> Names;
    std::map<std::uint64_t, std::string> Bytes;
  };

  /// What reaches the disk of one change that is not flushed: nothing, all, or some sectors.
  struct Fate {
    bool Reached = true;
    std::vector<bool> Sectors = {};  ///< Of a write; empty for all.
    bool OnlyLength = false;         ///< Of a write past the end.
  };
  using Fates = std::vector<Fate>;

 public:
  /// `first` are the files before the changes, with the numbers by which the changes tell them.
  struct File {
    std::string Name;
    std::uint64_t Number = 0;
    std::string Bytes;
  };
  explicit PowerCut(const std::vector<File>& first);

  /// The next change happens.
  void Happen(const Change& happened);

  /// The image that holds nothing but what was flushed.
  Image FlushedOnly() const { return ImageOf(Fates(pending_.size(), Fate{.Reached = false})); }

  /// How many changes are not flushed.
  std::size_t Pending() const { return pending_.size(); }

  /// Calls `visit` with images of a power cut right now: the systematic ones and some drawn at
  /// random, of all these the given share, 0 to 1. No image comes twice for the same `saved`.
  void ForEachImage(std::size_t saved, double share,
                    const std::function<void(const Image&)>& visit);

 private:
  /// The change with the file's own number: a disk gives that of a file that is gone to a new one.
  Change WithOwnNumber(Change change);

  static void Apply(const Change& change, const Fate& fate, State& state);
  Image ImageOf(const Fates& fates) const;
  std::vector<Fates> Systematic() const;
  Fates Drawn();

  std::uint64_t last_number_ = 0;
  std::map<std::uint64_t, std::uint64_t> own_numbers_;  ///< By the disk's numbers.
  State flushed_;
  std::vector<Change> pending_;
  std::set<std::pair<std::size_t, std::size_t>> seen_;  ///< What was saved, and the image's hash.
  std::mt19937 random_{20140305};
};

}  // namespace veyra::faults
