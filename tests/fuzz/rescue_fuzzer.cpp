#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "data/errors.h"
#include "data/open_file_store.h"
#include "tests/fuzz/input_file.h"
#include "tools/care/rescue.h"

/// Of a file of any bytes a sound new one is made, or nothing, with a report. A report that says
/// the new file is not right is a fault of this program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::filesystem::path folder = veyra::InputFile() + "-rescued";
  veyra::WriteInputFile(data, size);
  std::filesystem::create_directory(folder);
  try {
    const veyra::Rescued rescued =
        veyra::RescueFile(veyra::InputFile(), folder, [](const veyra::CopyStep&) {});
    if (!veyra::OpenFileStore(rescued.File.string(), veyra::StoreAccess::ReadOnly)
             ->Verify()
             .empty()) {
      std::abort();
    }
  } catch (const veyra::FileError&) {
    std::abort();
  } catch (const veyra::DatabaseError& error) {
    // Nothing can be read any more. What can be read, the new file can hold.
    if (error.report().File != veyra::InputFile()) {
      std::abort();
    }
  }
  std::filesystem::remove_all(folder);
  return 0;
}
