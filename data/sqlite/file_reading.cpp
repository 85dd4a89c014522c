#include "data/sqlite/file_reading.h"

#include <stdlib.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <system_error>
#include <thread>
#include <tuple>
#include <utility>

#include "data/errors.h"

namespace veyra::sqlite {

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

/// The byte of the file's head that says how it is written, and its value for a write-ahead log.
constexpr std::size_t kWriteVersion = 18;
constexpr char kWithLog = 2;

/// File times move on in steps of at most this.
constexpr milliseconds kClockStep{20};

std::string LogOf(const std::string& file) {
  return file + "-wal";
}
std::string IndexOf(const std::string& file) {
  return file + "-shm";
}

/// The name as a URI, in which all but the plainest characters are written as their bytes.
std::string Uri(const std::string& file, const std::string& options) {
  constexpr char kHex[] = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : file) {
    const bool is_plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                          (c >= '0' && c <= '9') || c == '/' || c == '.' || c == '-' || c == '_';
    const auto byte = static_cast<unsigned char>(c);
    uri += is_plain ? std::string(1, c) : std::string{'%', kHex[byte / 16], kHex[byte % 16]};
  }
  return uri + "?" + options;
}

/// Which file bears a name, how long it is and when it was last written to; all zero when there is
/// none.
struct FileState {
  std::uint64_t Number = 0;
  std::int64_t Size = 0;
  std::int64_t Seconds = 0;
  std::int64_t Nanoseconds = 0;

  bool operator==(const FileState&) const = default;
};

FileState StateOf(const std::string& file) {
  struct stat state {};
  if (stat(file.c_str(), &state) != 0) return {};
  return {state.st_ino, state.st_size, state.st_mtim.tv_sec, state.st_mtim.tv_nsec};
}

/// A database file and its log at one moment.
struct PairState {
  explicit PairState(const std::string& file) : Main(StateOf(file)), Log(StateOf(LogOf(file))) {}

  bool operator==(const PairState&) const = default;

  FileState Main;
  FileState Log;
};

/// Waits until a further change of the file would show in its time.
void LetTimePass(const FileState& state) {
  using Clock = std::chrono::system_clock;
  const auto written =
      Clock::time_point(std::chrono::seconds(state.Seconds)) +
      std::chrono::duration_cast<Clock::duration>(std::chrono::nanoseconds(state.Nanoseconds));
  const auto age = Clock::now() - written;
  if (age >= Clock::duration::zero() && age < kClockStep) std::this_thread::sleep_for(kClockStep);
}

class LockedReading : public FileReading {
 public:
  explicit LockedReading(std::unique_ptr<Database> database) : reader_(std::move(database)) {}

  Reader& reader() override { return reader_; }

 private:
  Reader reader_;
};

class UnlockedReading : public FileReading {
 public:
  explicit UnlockedReading(const std::string& file)
      : file_(file),
        before_(SettledState(file)),
        reader_(std::make_unique<Database>(Uri(file, "immutable=1"), file, OpenMode::ReadOnly,
                                           milliseconds(0))) {}

  Reader& reader() override { return reader_; }
  bool IsUnlocked() const override { return true; }
  bool HasChanged() override { return PairState(file_) != before_; }

 private:
  static PairState SettledState(const std::string& file) {
    LetTimePass(StateOf(file));
    return PairState(file);
  }

  std::string file_;
  PairState before_;
  Reader reader_;
};

/// A folder of this process's own that goes when it is dropped.
class PrivateFolder {
 public:
  PrivateFolder() {
    std::string name = (fs::temp_directory_path() / "veyra-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
      throw fs::filesystem_error("mkdtemp", name, std::error_code(errno, std::generic_category()));
    }
    path_ = name;
  }
  ~PrivateFolder() {
    std::error_code ignored;  // What is left is in the folder for temporary files.
    fs::remove_all(path_, ignored);
  }
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  fs::path path_;
};

class CopyReading : public FileReading {
 public:
  CopyReading(const std::string& file, milliseconds timeout)
      : copy_(folder_.File("copy")), before_(file), file_(file) {
    fs::copy_file(file, copy_);
    fs::copy_file(LogOf(file), LogOf(copy_));
    reader_ = std::make_unique<Reader>(
        std::make_unique<Database>(copy_, file, OpenMode::ReadWrite, timeout));
  }

  Reader& reader() override { return *reader_; }
  bool IsUnlocked() const override { return true; }
  bool HasChanged() override { return PairState(file_) != before_; }

 private:
  PrivateFolder folder_;
  std::string copy_;
  PairState before_;
  std::string file_;
  std::unique_ptr<Reader> reader_;
};

std::unique_ptr<FileReading> OpenCopy(const std::string& file, milliseconds timeout) {
  try {
    return std::make_unique<CopyReading>(file, timeout);
  } catch (const fs::filesystem_error& error) {
    throw DatabaseError({file,
                         "The file has a log beside it, and could not be copied to be read: " +
                             error.code().message() + ".",
                         "Start the program that the file belongs to, and try again."});
  }
}

}  // namespace

std::unique_ptr<FileReading> OpenForReading(const std::string& file, milliseconds timeout) {
  auto database = std::make_unique<Database>(file, file, OpenMode::ReadOnly, timeout);
  const std::string head = database->FirstBytes(kWriteVersion + 1);
  if (head[kWriteVersion] != kWithLog) {
    return std::make_unique<LockedReading>(std::move(database));
  }
  const FileState log = StateOf(LogOf(file));
  if (log != FileState() && StateOf(IndexOf(file)) != FileState()) {
    return std::make_unique<LockedReading>(
        std::make_unique<Database>(Uri(file, "readonly_shm=1"), file, OpenMode::ReadOnly, timeout));
  }
  if (log.Size == 0) return std::make_unique<UnlockedReading>(file);
  return OpenCopy(file, timeout);
}

}  // namespace veyra::sqlite
