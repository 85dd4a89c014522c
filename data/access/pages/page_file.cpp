#include "data/access/pages/page_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <span>
#include <string>

#include "data/access/format/rc4.h"

namespace veyra::access {

namespace {

[[noreturn]] void FailFor(const std::string& what) {
  throw FileProblem(what + ": " + std::strerror(errno) + ".",
                    "Check the disk or network folder that holds the file.");
}

int OpenFile(const std::filesystem::path& path, bool writable) {
  const int descriptor =
      open(path.c_str(), (writable ? O_RDWR : O_RDONLY) | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) {
    throw FileProblem(std::string("The database cannot be opened: ") + std::strerror(errno) + ".",
                      "Check that the file is there and that you may use it.");
  }
  return descriptor;
}

/// Reads until `bytes` is full or the file ends; returns how many bytes were read.
std::size_t ReadAt(int descriptor, std::span<Byte> bytes, std::uint64_t offset) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t read = pread(descriptor, bytes.data() + done, bytes.size() - done,
                               static_cast<off_t>(offset + done));
    if (read == 0) {
      break;
    }
    if (read > 0) {
      done += static_cast<std::size_t>(read);
    } else if (errno != EINTR) {
      FailFor("The database cannot be read");
    }
  }
  return done;
}

void WriteAt(int descriptor, std::span<const Byte> bytes, std::uint64_t offset) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t written = pwrite(descriptor, bytes.data() + done, bytes.size() - done,
                                   static_cast<off_t>(offset + done));
    if (written >= 0) {
      done += static_cast<std::size_t>(written);
    } else if (errno != EINTR) {
      FailFor("The database cannot be written");
    }
  }
}

/// The longest tick of a file system's clock, and then some.
constexpr std::chrono::milliseconds kClockTick{20};

/// How far the clock of the machine that has the file may be behind or before this one's.
constexpr std::chrono::minutes kMostSkew{10};

struct stat StatusOf(int descriptor) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0) {
    FailFor("The database cannot be read");
  }
  return status;
}

TimePoint TimeOfChange(int descriptor) {
  const struct stat status = StatusOf(descriptor);
  return TimePoint(std::chrono::seconds(status.st_mtim.tv_sec)) +
         std::chrono::nanoseconds(status.st_mtim.tv_nsec);
}

/// The file's own name, whatever links lead to it.
std::filesystem::path RealPath(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(path, error);
  return error ? path : real;
}

FileHeader HeaderOf(int descriptor) {
  std::array<Byte, kHeaderBytes> bytes;
  const std::size_t size = ReadAt(descriptor, bytes, 0);
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
      descriptor_(OpenFile(path, writable)),
      clock_(std::move(clock)) {
  try {
    header_ = HeaderOf(descriptor_);
    Refresh(true);
  } catch (...) {
    close(descriptor_);
    throw;
  }
}

void PageFile::SetPath(const std::filesystem::path& path) {
  path_ = RealPath(path);
}

PageFile::~PageFile() {
  close(descriptor_);
}

FileStamp PageFile::Stamp() const {
  const struct stat status = StatusOf(descriptor_);
  if (!S_ISREG(status.st_mode)) {
    throw FileProblem("The database is not a file.", "Check the data folder.");
  }
  return {status.st_size, clock_.Changed(descriptor_)};
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
  if (ReadAt(descriptor_, page, std::uint64_t{number} * PageSize()) < PageSize()) {
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
  for (const auto& [number, page] : pages) {
    WriteAt(descriptor_, page, std::uint64_t{number} * PageSize());
  }
  for (const auto& [number, page] : pages) {
    pages_.resize(std::max<std::size_t>(pages_.size(), number + std::size_t{1}));
    pages_[number] = std::make_shared<const Bytes>(page);
  }
  SeeStamp();
}

void PageFile::CutTo(std::uint64_t size) {
  if (ftruncate(descriptor_, static_cast<off_t>(size)) != 0) {
    FailFor("The database cannot be written");
  }
  Refresh(true);
}

void PageFile::Flush() {
  if (fsync(descriptor_) != 0) {
    FailFor("The database cannot be written");
  }
}

}  // namespace veyra::access
