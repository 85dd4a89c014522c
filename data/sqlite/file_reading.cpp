#include "data/sqlite/file_reading.h"

#include <stdlib.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>

#include "data/errors.h"

namespace veyra::sqlite {

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

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

/// A database file, its log and the log's index at one moment.
struct FilesState {
  explicit FilesState(const std::string& file)
      : Main(StateOf(file)), Log(StateOf(LogOf(file))), Index(StateOf(IndexOf(file)).Number) {}

  bool operator==(const FilesState&) const = default;

  FileState Main;
  FileState Log;
  std::uint64_t Index;
};

/// Whether a further change of the file now could bear the time of the last one.
bool IsJustWritten(const FileState& state) {
  using Clock = std::chrono::system_clock;
  const auto written =
      Clock::time_point(std::chrono::seconds(state.Seconds)) +
      std::chrono::duration_cast<Clock::duration>(std::chrono::nanoseconds(state.Nanoseconds));
  const auto age = Clock::now() - written;
  return age >= Clock::duration::zero() && age < kClockStep;
}

bool IsJustWritten(const FilesState& state) {
  return IsJustWritten(state.Main) || IsJustWritten(state.Log);
}

/// What all ways of reading have in common.
class Reading : public FileReading {
 public:
  Reading(std::string file, const FilesState& before) : file_(std::move(file)), before_(before) {}

  Reader& reader() override { return *reader_; }
  bool HasChanged() const override { return FilesState(file_) != before_; }

 protected:
  void Open(const std::string& location, OpenMode mode, const Patience& patience) {
    reader_ = std::make_unique<Reader>(std::make_unique<Database>(location, file_, mode, patience));
  }

  void Close() { reader_.reset(); }

  const std::string& file() const { return file_; }

 private:
  std::string file_;
  FilesState before_;
  std::unique_ptr<Reader> reader_;
};

class LockedReading : public Reading {
 public:
  LockedReading(const std::string& name, const FilesState& before, const std::string& location,
                const Patience& patience)
      : Reading(name, before) {
    Open(location, OpenMode::ReadOnly, patience);
  }

  bool IsUnlocked() const override { return false; }
};

class UnlockedReading : public Reading {
 public:
  UnlockedReading(const std::string& name, const FilesState& before) : Reading(name, before) {
    Open(Uri(name, "immutable=1"), OpenMode::ReadOnly, milliseconds(0));
  }

  bool IsUnlocked() const override { return true; }
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

class CopyReading : public Reading {
 public:
  CopyReading(const std::string& name, const FilesState& before, const Patience& patience)
      : Reading(name, before) {
    const std::string copy = folder_.File("copy");
    fs::copy_file(file(), copy);
    fs::copy_file(LogOf(file()), LogOf(copy));
    Open(copy, OpenMode::ReadWrite, patience);
  }
  ~CopyReading() override { Close(); }  // Before the folder goes.

  bool IsUnlocked() const override { return true; }

 private:
  PrivateFolder folder_;
};

std::unique_ptr<FileReading> OpenCopy(const std::string& file, const FilesState& before,
                                      const Patience& patience) {
  try {
    return std::make_unique<CopyReading>(file, before, patience);
  } catch (const fs::filesystem_error& error) {
    throw DatabaseError({file,
                         "The file has a log beside it, and could not be copied to be read: " +
                             error.code().message() + ".",
                         "Start the program that the file belongs to, and try again."});
  }
}

bool HasLog(const std::string& file, const Patience& patience) {
  return Database(file, file, OpenMode::ReadOnly, patience)
             .FirstBytes(kWriteVersion + 1)[kWriteVersion] == kWithLog;
}

/// Opens the file as its state asks for; null when it was written to so recently that a change
/// while it is read without locks could go unnoticed.
std::unique_ptr<FileReading> OpenByState(const std::string& file, const FilesState& state,
                                         const Patience& patience) {
  if (!HasLog(file, patience)) {
    return std::make_unique<LockedReading>(file, state, file, patience);
  }
  if (state.Log != FileState() && state.Index != 0) {
    return std::make_unique<LockedReading>(file, state, Uri(file, "readonly_shm=1"), patience);
  }
  if (IsJustWritten(state)) return nullptr;
  if (state.Log.Size == 0) return std::make_unique<UnlockedReading>(file, state);
  return OpenCopy(file, state, patience);
}

}  // namespace

std::unique_ptr<FileReading> OpenForReading(const std::string& file, const Patience& patience,
                                            steady_clock::time_point deadline, Wait& wait) {
  while (true) {
    const FilesState state(file);
    try {
      if (auto reading = OpenByState(file, state, patience)) return reading;
    } catch (const DatabaseError&) {
      // A log or index may have been removed between the look at it and its opening.
      if (FilesState(file) == state || steady_clock::now() >= deadline) throw;
      continue;
    }
    if (steady_clock::now() >= deadline || !wait.GoOn()) {
      throw DatabaseBusyError({file, "Another program is writing to the file all the time.",
                               "Wait until the other program has finished, and try again."});
    }
  }
}

}  // namespace veyra::sqlite
