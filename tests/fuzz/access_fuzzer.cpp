#include <cstddef>
#include <cstdint>

#include "tests/data/access/read_everything.h"
#include "tests/fuzz/input_file.h"

/// An Access file of any pages is read and changed, or refused with a report.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  veyra::WriteInputFile(data, size);
  veyra::ReadEverything(veyra::InputFile());
  return 0;
}
