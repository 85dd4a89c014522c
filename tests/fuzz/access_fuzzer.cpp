#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/data/access/read_everything.h"

namespace {

/// The file that each input is read from, in memory where that can be.
const std::string& InputFile() {
  static const std::string file =
      (std::filesystem::is_directory("/dev/shm") ? std::filesystem::path("/dev/shm")
                                                 : std::filesystem::temp_directory_path()) /
      ("veyra-fuzz-" + std::to_string(getpid()) + ".mdb");
  return file;
}

void RemoveInputFile() {
  std::error_code ignored;
  std::filesystem::remove(InputFile(), ignored);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool registered = (InputFile(), std::atexit(RemoveInputFile) == 0);
  if (!registered) {
    return 0;
  }
  std::ofstream(InputFile(), std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  veyra::ReadEverything(InputFile());
  return 0;
}
