#include "data/new_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "data/errors.h"

namespace veyra {

void MakeEmptyFile(const std::string& file) {
  const int descriptor = open(file.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666);
  if (descriptor >= 0) {
    close(descriptor);
    return;
  }
  if (errno == EEXIST) {
    throw DatabaseError({file, "This file is there already; nothing was made.",
                         "Choose another folder, or move the file away first."});
  }
  throw DatabaseError({file,
                       "The file cannot be made: " + std::generic_category().message(errno) + ".",
                       "Check that the folder is there and that you may make files in it."});
}

}  // namespace veyra
