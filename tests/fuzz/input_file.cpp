#include "tests/fuzz/input_file.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/memory_folder.h"

namespace veyra {

namespace {

std::string NewName() {
  return MemoryFolder().value_or(std::filesystem::temp_directory_path()) /
         ("veyra-fuzz-" + std::to_string(getpid()));
}

void RemoveInputFile() {
  std::error_code ignored;
  std::filesystem::remove(InputFile(), ignored);
}

}  // namespace

const std::string& InputFile() {
  static const std::string file = NewName();
  return file;
}

void WriteInputFile(const std::uint8_t* data, std::size_t size) {
  static const bool registered = (InputFile(), std::atexit(RemoveInputFile) == 0);
  if (!registered) {
    std::abort();
  }
  std::ofstream(InputFile(), std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}

}  // namespace veyra
