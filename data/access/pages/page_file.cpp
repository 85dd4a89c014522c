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

constexpr const char* kCheckDisk = "Check the disk or network folder that holds the file.";

PosixFile OpenFile(const std::filesystem::path& path, bool writable) {
  return DiskCall(
      "The database cannot be opened", "Check that the file is there and that you may use it.",
      [&] { return PosixFile(path, writable ? PosixFile::Use::ReadWrite : PosixFile::Use::Read); });
}

std::size_t ReadAt(const PosixFile& file, std::span<Byte> bytes, std::uint64_t offset) {
  return DiskCall("The database cannot be read", kCheckDisk,
                  [&] { return file.ReadAt(bytes, offset); });
}

/// As DiskCall, for what writes to the database.
template <typename Call>
void WriteCall(const Call& call) {
  DiskCall("The database cannot be written", kCheckDisk, call);
}

/// The longest tick of a file system's clock, and then some.
constexpr std::chrono::milliseconds kClockTick{20};

/// How far the clock of the machine that has the file may be behind or before this one's.
constexpr std::chrono::minutes kMostSkew{10};

TimePoint TimeOfChange(int descriptor) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0) {
    throw FileProblem("The database cannot be read: " + SystemErrorText(errno) + ".", kCheckDisk);
  }
  return TimePoint(std::chrono::seconds(status.st_mtim.tv_sec)) +
         std::chrono::nanoseconds(status.st_mtim.tv_nsec);
}

/// The file's own name, whatever links lead to it.
std::filesystem::path RealPath(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(path, error);
  return error ? path : real;
}

FileHeader HeaderOf(const PosixFile& file) {
  std::array<Byte, kHeaderBytes> bytes;
  const std::size_t size = ReadAt(file, bytes, 0);
  if (size == 0) {
    throw FileProblem("The database file is empty.", "Go back to a copy of the file.");
  }
  return ReadFileHeader(ByteView(bytes.data(), size));
}

}  // namespace

FileClock::FileClock() : Changed(TimeOfChange) {}

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
  const std::uint64_t size =
      DiskCall("The database cannot be read", kCheckDisk, [&] { return file_.Size(); });
  return {static_cast<std::int64_t>(size), clock_.Changed(file_.Descriptor())};
}

/// Notes the stamp that the file has, and since when.
void PageFile::SeeStamp() {
  const FileStamp stamp = Stamp();
  const TimePoint now = clock_.Now();
  if (!(stamp == stamp_)) {
    first_seen_ = std::min(now, stamp.Changed + kMostSkew);
  }
  stamp_ = stamp;
  is_settled_ = !has_other_writers_ || now - first_seen_ >= kClockTick;
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
    throw DamagedFile("The database file is cut short.");
  }
  if (number != 0 && header_.IsEncoded()) {
    std::array<Byte, 4> key;
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
  WriteCall([&] {
    for (const auto& [number, page] : pages) {
      file_.WriteAt(page, std::uint64_t{number} * PageSize());
    }
  });
  for (const auto& [number, page] : pages) {
    pages_.resize(std::max<std::size_t>(pages_.size(), number + std::size_t{1}));
    pages_[number] = std::make_shared<const Bytes>(page);
  }
  SeeStamp();
}

void PageFile::CutTo(std::uint64_t size) {
  WriteCall([&] { file_.Truncate(size); });
  Refresh(true);
}

void PageFile::Flush() {
  WriteCall([&] { file_.Flush(); });
}

}  // namespace veyra::access
