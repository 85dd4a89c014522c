#include "data/new_file.h"

#include <cerrno>

#include "data/errors.h"
#include "data/posix_file.h"

namespace veyra {

void MakeEmptyFile(const std::string& file) {
  try {
    const PosixFile made(file, PosixFile::Use::MakeNew);
  } catch (const PosixFileError& error) {
    if (error.Number() == EEXIST) {
      throw DatabaseError({file, Phrase::Tr("This file is there already; nothing was made."),
                           Phrase::Tr("Choose another folder, or move the file away first.")});
    }
    throw DatabaseError(
        {file, Phrase::Tr("The file cannot be made: %1.", error.Reason()),
         Phrase::Tr("Check that the folder is there and that you may make files in it.")});
  }
}

}  // namespace veyra
