#include "data/posix_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

namespace veyra {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kRights = 0666;
constexpr mode_t kRightsBits = 07777;

int FlagsOf(PosixFile::Use use) {
  switch (use) {
    case PosixFile::Use::Read:
      return O_RDONLY;
    case PosixFile::Use::ReadWrite:
      return O_RDWR;
    case PosixFile::Use::Append:
      return O_WRONLY | O_CREAT | O_APPEND;
    case PosixFile::Use::Empty:
      return O_WRONLY | O_CREAT | O_TRUNC;
    case PosixFile::Use::MakeNew:
      break;
  }
  return O_WRONLY | O_CREAT | O_EXCL;
}

[[noreturn]] void Fail() {
  throw PosixFileError(errno);
}

/// Repeats a call that a signal has interrupted; throws when it fails.
template <typename Call>
auto Repeated(const Call& call) {
  while (true) {
    const auto result = call();
    if (result >= 0) {
      return result;
    }
    if (errno != EINTR) {
      Fail();
    }
  }
}

void RequireOrdinaryFile(int descriptor) {
  struct stat status {};
  Repeated([&] { return fstat(descriptor, &status); });
  if (S_ISDIR(status.st_mode)) {
    throw PosixFileError(EISDIR);
  }
  if (!S_ISREG(status.st_mode)) {
    throw PosixFileError(EINVAL);
  }
}

/// The rights that a new file gets in this program.
mode_t UsualRights() {
  const mode_t mask = umask(0);
  umask(mask);
  return kRights & ~mask;
}

/// The rights of the file that is there, or those that a new one gets.
mode_t RightsAt(const fs::path& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) {
    return status.st_mode & kRightsBits;
  }
  if (errno != ENOENT) {
    Fail();
  }
  return UsualRights();
}

constexpr std::string_view kUnfinished = ".unfinished-";
constexpr std::string_view kPattern = "XXXXXX";

/// A file beside the one that it is to become. It goes unless it was moved; one that was left by a
/// program that was killed goes with the next of the same name. Its lock tells the two apart.
class Unfinished {
 public:
  Unfinished(const fs::path& path, std::string_view contents, mode_t rights) {
    const std::string start = "." + path.filename().string() + std::string(kUnfinished);
    RemoveAbandoned(path.parent_path(), start);
    Make((path.parent_path() / start).string() + std::string(kPattern));
    try {
      Fill(contents, rights);
    } catch (...) {
      Remove();
      throw;
    }
  }
  ~Unfinished() { Remove(); }
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;

  const std::string& Name() const { return name_; }
  void Moved() { name_.clear(); }

 private:
  static void RemoveAbandoned(const fs::path& folder, const std::string& start) {
    std::error_code unreachable;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, unreachable), end;
         !unreachable && entry != end; entry.increment(unreachable)) {
      const std::string name = entry->path().filename().string();
      if (name.starts_with(start) && name.size() == start.size() + kPattern.size()) {
        RemoveIfAbandoned(entry->path());
      }
    }
  }

  static void RemoveIfAbandoned(const fs::path& file) {
    const int descriptor = open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    struct stat status {};
    if (descriptor >= 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
        status.st_uid == geteuid() && flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
      unlink(file.c_str());
    }
    close(descriptor);
  }

  /// Another program may take it for abandoned before it is locked; then it is made again.
  void Make(const std::string& pattern) {
    struct stat status {};
    do {
      if (descriptor_ >= 0) {
        close(descriptor_);
      }
      name_ = pattern;
      descriptor_ = Repeated([this] { return mkostemp(name_.data(), O_CLOEXEC); });
      flock(descriptor_, LOCK_EX);
    } while (fstat(descriptor_, &status) == 0 && status.st_nlink == 0);
  }

  void Fill(std::string_view contents, mode_t rights) const {
    while (!contents.empty()) {
      const ssize_t written =
          Repeated([&] { return write(descriptor_, contents.data(), contents.size()); });
      contents.remove_prefix(static_cast<std::size_t>(written));
    }
    Repeated([&] { return fchmod(descriptor_, rights); });
    Repeated([this] { return fsync(descriptor_); });
  }

  void Remove() {
    if (!name_.empty()) {
      unlink(name_.c_str());
    }
    close(descriptor_);
  }

  std::string name_;
  int descriptor_ = -1;
};

}  // namespace

Phrase SystemErrorText(int error_number) {
  switch (error_number) {
    case ENOSPC:
      return Phrase::Tr("the disk is full");
    case EDQUOT:
      return Phrase::Tr("your share of the disk is full");
    case EROFS:
      return Phrase::Tr("the disk may only be read");
    case EIO:
      return Phrase::Tr("the disk reported a failure");
    case EACCES:
    case EPERM:
      return Phrase::Tr("you do not have the right to");
    case ENOENT:
      return Phrase::Tr("there is no such file or folder");
    case EEXIST:
      return Phrase::Tr("there is a file of that name already");
    case ELOOP:
      return Phrase::Tr("it is a link that leads to itself");
    case ENAMETOOLONG:
      return Phrase::Tr("the name is too long");
    default:
      return std::generic_category().message(error_number);
  }
}

PosixFileError::PosixFileError(int error_number)
    : std::runtime_error(SystemErrorText(error_number).English()), number_(error_number) {}

PosixFile::PosixFile(const fs::path& path, Use use)
    : descriptor_(Repeated([&] {
        return open(path.c_str(), FlagsOf(use) | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, kRights);
      })) {
  try {
    RequireOrdinaryFile(descriptor_);
  } catch (...) {
    close(descriptor_);
    throw;
  }
}

PosixFile::~PosixFile() {
  if (descriptor_ >= 0) {
    close(descriptor_);
  }
}

PosixFile::PosixFile(PosixFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)) {}

std::uint64_t PosixFile::Size() const {
  struct stat status {};
  Repeated([&] { return fstat(descriptor_, &status); });
  return static_cast<std::uint64_t>(status.st_size);
}

std::size_t PosixFile::ReadAt(std::span<unsigned char> bytes, std::uint64_t offset) const {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t read = Repeated([&] {
      return pread(descriptor_, bytes.data() + done, bytes.size() - done,
                   static_cast<off_t>(offset + done));
    });
    if (read == 0) {
      break;
    }
    done += static_cast<std::size_t>(read);
  }
  return done;
}

void PosixFile::WriteAt(std::span<const unsigned char> bytes, std::uint64_t offset) const {
  std::size_t done = 0;
  while (done < bytes.size()) {
    done += static_cast<std::size_t>(Repeated([&] {
      return pwrite(descriptor_, bytes.data() + done, bytes.size() - done,
                    static_cast<off_t>(offset + done));
    }));
  }
}

void PosixFile::Write(std::span<const unsigned char> bytes) const {
  while (!bytes.empty()) {
    const ssize_t written =
        Repeated([&] { return write(descriptor_, bytes.data(), bytes.size()); });
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
}

void PosixFile::Write(std::string_view text) const {
  Write({reinterpret_cast<const unsigned char*>(text.data()), text.size()});  // NOLINT: bytes
}

void PosixFile::Flush() const {
  Repeated([this] { return fsync(descriptor_); });
}

void PosixFile::Truncate(std::uint64_t size) const {
  Repeated([&] { return ftruncate(descriptor_, static_cast<off_t>(size)); });
}

std::string ReadWholeFile(const fs::path& path, std::size_t most_bytes) {
  const PosixFile file(path, PosixFile::Use::Read);
  const std::uint64_t size = file.Size();
  if (size > most_bytes) {
    throw PosixFileError(EFBIG);
  }
  std::string contents(static_cast<std::size_t>(size), '\0');
  auto* bytes = reinterpret_cast<unsigned char*>(contents.data());  // NOLINT: bytes
  contents.resize(file.ReadAt({bytes, contents.size()}, 0));
  return contents;
}

void MakeWholeFile(const fs::path& path, std::string_view contents) {
  Unfinished unfinished(path, contents, UsualRights());
  if (const int error = RenameWithoutReplacing(unfinished.Name(), path); error != 0) {
    throw PosixFileError(error);
  }
  unfinished.Moved();
  FlushFolderOf(path);
}

void PutWholeFile(const fs::path& path, std::string_view contents) {
  Unfinished unfinished(path, contents, RightsAt(path));
  Rename(unfinished.Name(), path);
  unfinished.Moved();
  FlushFolderOf(path);
}

void FlushByName(const fs::path& path) {
  const int descriptor = Repeated([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC); });
  int result = fsync(descriptor);
  while (result != 0 && errno == EINTR) {
    result = fsync(descriptor);
  }
  const int error = result == 0 ? 0 : errno;
  close(descriptor);
  // EINVAL comes from file systems that have nothing to flush for a folder.
  if (error != 0 && error != EINVAL) {
    throw PosixFileError(error);
  }
}

void FlushFolderOf(const fs::path& file) {
  const fs::path folder = file.parent_path();
  FlushByName(folder.empty() ? "." : folder);
}

void Rename(const fs::path& from, const fs::path& to) {
  Repeated([&] { return rename(from.c_str(), to.c_str()); });
}

int RenameWithoutReplacing(const fs::path& from, const fs::path& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
    return 0;
  }
  if (errno != EINVAL && errno != ENOSYS) {
    return errno;
  }
  // A file system that knows no such flag.
  std::error_code error;
  if (fs::exists(fs::symlink_status(to, error))) {
    return EEXIST;
  }
  return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

void RemoveFile(const fs::path& path) {
  if (unlink(path.c_str()) != 0 && errno != ENOENT) {
    Fail();
  }
}

}  // namespace veyra
