#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <vector>

#include "data/access/format/bytes.h"
#include "data/access/pages/page_source.h"
#include "data/posix_file.h"

namespace veyra::access {

using TimePoint = std::chrono::system_clock::time_point;

/// What changes in a file whenever a program writes to it.
struct FileStamp {
  std::int64_t Size = -1;
  TimePoint Changed;

  bool operator==(const FileStamp&) const = default;
};

/// Where the times come from by which changes are noticed.
struct FileClock {
  std::function<TimePoint()> Now = std::chrono::system_clock::now;

  /// When the file was written to last, by the clock of its file system. Throws FileProblem.
  std::function<TimePoint(int descriptor)> Changed;

  /// Has the file say that it was written to last at another time, where this program may.
  std::function<void(int descriptor, TimePoint changed)> SetChanged;

  FileClock();
};

/// A database file as numbered pages, decoded where the file is encoded. Pages that were read are
/// kept until Refresh finds that the file has changed, so the memory used is at most the file's
/// size. Throws FileProblem when the file cannot be read or written.
///
/// File systems stamp changes with a clock that moves in ticks, so that two changes may bear the
/// same stamp: only pages that were read a tick after the stamp was first seen are kept as long as
/// it stays the same. A change of its own, of a file whose pages were known to be right, is given a
/// stamp that no clock gives, so that whatever comes after it shows at once.
class PageFile : public PageSource {
 public:
  /// Opens an existing file. Throws FileProblem when it is missing, no Access file, of a newer
  /// version or protected by a password.
  PageFile(const std::filesystem::path& path, bool writable, FileClock clock = {});
  PageFile(const PageFile&) = delete;
  PageFile& operator=(const PageFile&) = delete;

  /// The file's own name, whatever links lead to it: by it the file, and what lies beside it, is
  /// reached. Another one is to be set when its folder was renamed.
  const std::filesystem::path& Path() const { return path_; }
  void SetPath(const std::filesystem::path& path);

  const FileHeader& Header() const override { return header_; }
  bool IsWritable() const { return writable_; }
  const PosixFile& File() const { return file_; }

  /// How many whole pages the file had at the last Refresh.
  PageNumber PageCount() const override { return static_cast<PageNumber>(pages_.size()); }

  /// In bytes, at the last Refresh.
  std::uint64_t Size() const { return static_cast<std::uint64_t>(stamp_.Size); }

  PagePtr ReadPage(PageNumber number) override;
  using PageSource::ReadPage;

  /// Looks at the file again: drops the pages that were kept if it has changed, or may have changed
  /// without its stamp changing, or if `always`. Returns whether they were dropped.
  bool Refresh(bool always = false);

  /// Whether nothing was written to the file since the last Refresh: a page that was read from then
  /// on cannot stem from before a change that another one shows.
  bool IsSteady() const;

  /// Whether a page that is kept is the same in the file; true for one that is not kept.
  bool IsCurrent(PageNumber number) const;

  /// From now on the file is taken to be written through this object only.
  void ExpectNoOtherWriter() { has_other_writers_ = false; }

  /// From now on these pages are read instead of the file's own; the file itself stays as it is.
  void SetOverlay(PageImages overlay);

  /// Writes whole pages, in a file that is not encoded; those past the end make it longer. Durable
  /// after Flush only. REQUIRES: IsWritable().
  void Write(const PageImages& pages);
  void CutTo(std::uint64_t size);
  void Flush();

 private:
  FileStamp Stamp() const;
  void SeeStamp();
  void MarkChange();
  void ReadRaw(PageNumber number, Bytes& page) const;

  std::filesystem::path path_;
  bool writable_;
  PosixFile file_;
  FileHeader header_;
  FileStamp stamp_;
  FileClock clock_;
  TimePoint first_seen_;     ///< When the stamp was seen first.
  bool is_settled_ = false;  ///< The pages kept were read a tick or more after that.
  bool is_marked_ = false;   ///< The stamp is one that MarkChange gave.
  std::mt19937_64 random_{std::random_device()()};
  bool has_other_writers_ = true;
  std::vector<PagePtr> pages_;
  PageImages overlay_;
};

}  // namespace veyra::access
