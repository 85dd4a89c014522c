#include "tools/companion/text_file.h"

#include <cerrno>
#include <system_error>

#include "data/errors.h"
#include "data/posix_file.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

FileError NotRead(const fs::path& file, const PosixFileError& failure) {
  if (failure.Number() == EFBIG) {
    return FileError(
        {file.string(), Phrase::Tr("The file is larger than 50 MB, as no calendar is."),
         Phrase::Tr("Check that it is the right file, or export a shorter range of days.")});
  }
  return FileError({file.string(), Phrase::Tr("It cannot be read: %1.", failure.Reason()),
                    Phrase::Tr("Check the name, and that you may read the file.")});
}

FileError NotWritten(const fs::path& file, const PosixFileError& failure) {
  if (failure.Number() == EEXIST) {
    return FileError({file.string(), Phrase::Tr("This file is there already; nothing was made."),
                      Phrase::Tr("Choose another name, or say --replace to write over it.")});
  }
  return FileError({file.string(), Phrase::Tr("It cannot be written: %1.", failure.Reason()),
                    Phrase::Tr("Nothing was made. Check that the disk has room.")});
}

}  // namespace

std::string ReadTextFile(const fs::path& file) {
  try {
    return ReadWholeFile(file, kLargestFile);
  } catch (const PosixFileError& failure) {
    throw NotRead(file, failure);
  }
}

void WriteTextFile(const fs::path& file, const std::string& text, bool replace) {
  std::error_code unreachable;
  try {
    if (replace && fs::exists(file, unreachable)) {
      PutWholeFile(file, text);
    } else {
      MakeWholeFile(file, text);
    }
  } catch (const PosixFileError& failure) {
    throw NotWritten(file, failure);
  }
}

}  // namespace veyra
