#include "data/access/pages/copy_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "data/access/format/problem.h"
#include "data/access/pages/journal.h"

namespace veyra::access {

namespace {

constexpr std::size_t kPiece = 1 << 16;

[[noreturn]] void FailTo(const char* what) {
  throw FileProblem(std::string(what) + ": " + std::generic_category().message(errno) + ".",
                    "Check that the disk has room and that you may make files in the folder.");
}

void WriteAt(int target, const std::uint8_t* bytes, std::size_t size, off_t place) {
  while (size > 0) {
    const ssize_t written = ::pwrite(target, bytes, size, place);
    if (written < 0 && errno != EINTR) {
      FailTo("The copy cannot be written");
    }
    const std::size_t done = written < 0 ? 0 : static_cast<std::size_t>(written);
    bytes += done;
    size -= done;
    place += static_cast<off_t>(done);
  }
}

/// Returns the number of bytes read, 0 at the end of the file.
std::size_t ReadAt(int source, std::array<std::uint8_t, kPiece>& piece, off_t place) {
  while (true) {
    const ssize_t read = ::pread(source, piece.data(), piece.size(), place);
    if (read >= 0) {
      return static_cast<std::size_t>(read);
    }
    if (errno != EINTR) {
      FailTo("The file cannot be read");
    }
  }
}

void CopyBytes(int source, int target) {
  std::array<std::uint8_t, kPiece> piece;
  off_t place = 0;
  for (std::size_t read = ReadAt(source, piece, 0); read > 0; read = ReadAt(source, piece, place)) {
    WriteAt(target, piece.data(), read, place);
    place += static_cast<off_t>(read);
  }
}

void WritePending(PageFile& file, int target) {
  if (!HasJournal(file.Path())) {
    return;
  }
  for (const auto& [number, page] : PendingPages(file)) {
    WriteAt(target, page.data(), page.size(),
            static_cast<off_t>(number) * static_cast<off_t>(page.size()));
  }
}

}  // namespace

void CopyFile(PageFile& file, const std::filesystem::path& new_file) {
  const int target = ::open(new_file.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
  if (target < 0) {
    FailTo("The copy cannot be made");
  }
  try {
    CopyBytes(file.Descriptor(), target);
    WritePending(file, target);
  } catch (const FileProblem&) {
    ::close(target);
    ::unlink(new_file.c_str());
    throw;
  }
  ::close(target);
}

}  // namespace veyra::access
