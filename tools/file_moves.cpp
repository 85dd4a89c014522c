#include "tools/file_moves.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "data/errors.h"
#include "data/posix_file.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

Phrase KeepAdvice() {
  return Phrase::Tr(
      "Nothing was changed. Check that the disk has room and that you may make files "
      "in the folder.");
}

/// Returns 0, or EEXIST when the name is taken.
int Keep(const fs::path& file, const fs::path& kept, const fs::path& workshop) {
  if (::link(file.c_str(), kept.c_str()) == 0) {
    return 0;
  }
  if (errno == EEXIST) {
    return EEXIST;
  }
  // A file system without hard links, or a file of another owner.
  return CopyWithoutReplacing(file, kept, workshop);
}

fs::path KeepUnderFreeName(const fs::path& file, Date day, const fs::path& workshop) {
  int number = 1;
  while (Keep(file, KeptName(file, day, number), workshop) != 0) {
    ++number;
  }
  return KeptName(file, day, number);
}

void Replace(const fs::path& fresh, const fs::path& file) {
  if (::rename(fresh.c_str(), file.c_str()) != 0) {
    throw FileError({file.string(),
                     Phrase::Tr("The new file could not be put there: %1.", SystemErrorText(errno)),
                     KeepAdvice()});
  }
}

}  // namespace

fs::path KeptName(const fs::path& file, Date day, int number) {
  const std::string count = number == 1 ? "" : "-" + std::to_string(number);
  return file.parent_path() /
         (file.stem().string() + "-before-" + IsoText(day) + count + file.extension().string());
}

void Flush(const fs::path& path) {
  try {
    FlushByName(path);
  } catch (const PosixFileError& failure) {
    throw FileError({path.string(),
                     Phrase::Tr("It could not be saved to the disk: %1.", failure.Reason()),
                     Phrase::Tr("Nothing was changed. Check that the disk has room.")});
  }
}

int CopyWithoutReplacing(const fs::path& from, const fs::path& to, const fs::path& workshop) {
  const fs::path copy = workshop / to.filename();
  std::error_code failure;
  fs::copy_file(from, copy, fs::copy_options::overwrite_existing, failure);
  int error = failure.value();
  if (!failure) {
    Flush(copy);
    error = RenameWithoutReplacing(copy, to);
  }
  if (error != 0 && error != EEXIST) {
    throw FileError({to.string(),
                     Phrase::Tr("The old file could not be kept: %1.", SystemErrorText(error)),
                     KeepAdvice()});
  }
  return error;
}

fs::path ReplaceAndKeep(const fs::path& fresh, const fs::path& file, Date day) {
  Flush(fresh);
  fs::path kept = KeepUnderFreeName(file, day, fresh.parent_path());
  try {
    Flush(file.parent_path());
    Replace(fresh, file);
    Flush(file.parent_path());
  } catch (const FileError&) {
    // To rename one name of a file to another of its names does nothing, hence the removal.
    std::error_code ignored;
    fs::rename(kept, file, ignored);
    fs::remove(kept, ignored);
    throw;
  }
  return kept;
}

void TakeOverRights(const fs::path& file, const fs::path& fresh) {
  struct stat status {};
  if (::stat(file.c_str(), &status) != 0) {
    return;
  }
  // Only an administrator may give files away; the group, its members may.
  if (::chown(fresh.c_str(), status.st_uid, status.st_gid) != 0 &&
      ::chown(fresh.c_str(), static_cast<uid_t>(-1), status.st_gid) != 0) {
    // Then the new file is this user's, as any other that he makes.
  }
  fs::permissions(fresh, fs::status(file).permissions());
}

}  // namespace veyra
