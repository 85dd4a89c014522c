#include "data/access/pages/page_file.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <span>
#include <string>

#include "data/access/format/rc4.h"
#include "data/access/pages/disk_call.h"

namespace veyra::access {

namespace {

Phrase CheckDisk() {
  return Phrase::Tr("Check the disk or network folder that holds the file.");
}

FileProblem CannotBeOpened(const Phrase& why) {
  return {Phrase::Tr("The database cannot be opened: %1.", why),
          Phrase::Tr("Check that the file is there and that you may use it.")};
}

FileProblem CannotBeRead(const Phrase& why) {
  return {Phrase::Tr("The database cannot be read: %1.", why), CheckDisk()};
}

FileProblem CannotBeWritten(const Phrase& why) {
  return {Phrase::Tr("The database cannot be written: %1.", why), CheckDisk()};
}

PosixFile OpenFile(const std::filesystem::path& path, bool writable) {
  return DiskCall(CannotBeOpened, [&] {
    return PosixFile(path, writable ? PosixFile::Use::ReadWrite : PosixFile::Use::Read);
  });
}

std::size_t ReadAt(const PosixFile& file, std::span<Byte> bytes, std::uint64_t offset) {
  return DiskCall(CannotBeRead, [&] { return file.ReadAt(bytes, offset); });
}

/// The longest tick of a file system's clock, and then some.
constexpr std::chrono::milliseconds kClockTick{20};

/// How far a change may be stamped before its time, in microseconds.
constexpr int kMostBefore = 900000;

/// How far the clock of the machine that has the file may be behind or before this one's.
constexpr std::chrono::minutes kMostSkew{10};

TimePoint TimeOfChange(int descriptor) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0) {
    throw CannotBeRead(SystemErrorText(errno));
  }
  return TimePoint(std::chrono::seconds(status.st_mtim.tv_sec)) +
         std::chrono::nanoseconds(status.st_mtim.tv_nsec);
}

/// What fails here costs time only: the stamp that the change has by itself is believed later.
void SetTimeOfChange(int descriptor, TimePoint changed) {
  using std::chrono::nanoseconds;
  using std::chrono::seconds;
  const auto whole = std::chrono::floor<seconds>(changed);
  std::array<timespec, 2> times{};
  times[0].tv_nsec = UTIME_OMIT;
  times[1].tv_sec = static_cast<time_t>(whole.time_since_epoch().count());
  times[1].tv_nsec = static_cast<long>(nanoseconds(changed - whole).count());
  futimens(descriptor, times.data());
}

/// The file's own name, whatever links lead to it.
std::filesystem::path RealPath(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(path, error);
  return error ? path : real;
}

FileHeader HeaderOf(const PosixFile& file) {
  std::array<Byte, kHeaderBytes> bytes{};
  const std::size_t size = ReadAt(file, bytes, 0);
  if (size == 0) {
    throw FileProblem(Phrase::Tr("The database file is empty."),
                      Phrase::Tr("Go back to a copy of the file."));
  }
  return ReadFileHeader(ByteView(bytes.data(), size));
}

}  // namespace

FileClock::FileClock() : Changed(TimeOfChange), SetChanged(SetTimeOfChange) {}

PageFile::PageFile(const std::filesystem::path& path, bool writable, FileClock clock)
    : path_(RealPath(path)),
      writable_(writable),
      file_(OpenFile(path, writable)),
      header_(HeaderOf(file_)),
      clock_(std::move(clock)) {
  Refresh(true);
}

void PageFile::SetPath(const std::filesystem::path& path) {
  path_ = RealPath(path);
}

FileStamp PageFile::Stamp() const {
  const std::uint64_t size = DiskCall(CannotBeRead, [&] { return file_.Size(); });
  return {static_cast<std::int64_t>(size), clock_.Changed(file_.Descriptor())};
}

/// Notes the stamp that the file has, and since when.
void PageFile::SeeStamp() {
  const FileStamp stamp = Stamp();
  const TimePoint now = clock_.Now();
  if (!(stamp == stamp_)) {
    first_seen_ = std::min(now, stamp.Changed + kMostSkew);
    is_marked_ = false;
  }
  stamp_ = stamp;
  is_settled_ = !has_other_writers_ || is_marked_ || now - first_seen_ >= kClockTick;
}

/// Gives the change that was just made a stamp a little before its own: one that is drawn at
/// random, so that another copy of this program does not give the same. Whoever writes from now on,
/// be it in the same tick of the clock, leaves another one.
void PageFile::MarkChange() {
  std::uniform_int_distribution<int> before(1, kMostBefore);
  const TimePoint mark = Stamp().Changed - std::chrono::microseconds(before(random_));
  clock_.SetChanged(file_.Descriptor(), mark);
  SeeStamp();
  is_marked_ = stamp_.Changed == mark;
  is_settled_ = is_settled_ || is_marked_;
}

bool PageFile::Refresh(bool always) {
  const FileStamp before = stamp_;
  const bool was_settled = is_settled_;
  SeeStamp();
  if (stamp_ == before && was_settled && !always) {
    return false;
  }
  std::size_t count = static_cast<std::size_t>(stamp_.Size) / PageSize();
  if (!overlay_.empty()) {
    count = std::max<std::size_t>(count, overlay_.rbegin()->first + std::size_t{1});
  }
  pages_.assign(count, nullptr);
  return true;
}

void PageFile::ReadRaw(PageNumber number, Bytes& page) const {
  page.resize(PageSize());
  if (ReadAt(file_, page, std::uint64_t{number} * PageSize()) < PageSize()) {
    throw DamagedFile(Phrase::Tr("The database file is cut short."));
  }
  if (number != 0 && header_.IsEncoded()) {
    std::array<Byte, 4> key{};
    Put<std::uint32_t>(key, 0, header_.DatabaseKey ^ number);
    ApplyRc4(key, page);
  }
}

PagePtr PageFile::ReadPage(PageNumber number) {
  if (number >= pages_.size()) {
    throw DamagedFile();
  }
  if (!pages_[number]) {
    auto page = std::make_shared<Bytes>();
    const auto covered = overlay_.find(number);
    if (covered != overlay_.end()) {
      *page = covered->second;
    } else {
      ReadRaw(number, *page);
    }
    pages_[number] = std::move(page);
  }
  return pages_[number];
}

bool PageFile::IsCurrent(PageNumber number) const {
  if (number >= pages_.size() || !pages_[number] || overlay_.contains(number)) {
    return true;
  }
  Bytes page;
  ReadRaw(number, page);
  return page == *pages_[number];
}

bool PageFile::IsSteady() const {
  if (!(Stamp() == stamp_)) {
    return false;
  }
  for (PageNumber number = 0; !is_settled_ && number < PageCount(); ++number) {
    if (!IsCurrent(number)) {
      return false;
    }
  }
  return true;
}

void PageFile::SetOverlay(PageImages overlay) {
  overlay_ = std::move(overlay);
  Refresh(true);
}

void PageFile::Write(const PageImages& pages) {
  const bool knows_all = is_settled_ && Stamp() == stamp_;
  DiskCall(CannotBeWritten, [&] {
    for (const auto& [number, page] : pages) {
      file_.WriteAt(page, std::uint64_t{number} * PageSize());
    }
  });
  for (const auto& [number, page] : pages) {
    pages_.resize(std::max<std::size_t>(pages_.size(), number + std::size_t{1}));
    pages_[number] = std::make_shared<const Bytes>(page);
  }
  if (knows_all && has_other_writers_) {
    MarkChange();
  } else {
    SeeStamp();
  }
}

void PageFile::CutTo(std::uint64_t size) {
  DiskCall(CannotBeWritten, [&] { file_.Truncate(size); });
  Refresh(true);
}

void PageFile::Flush() {
  DiskCall(CannotBeWritten, [&] { file_.Flush(); });
}

}  // namespace veyra::access
