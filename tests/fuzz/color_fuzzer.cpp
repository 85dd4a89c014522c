#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "data/color_settings.h"
#include "data/errors.h"

/// A colour text is a number that its own decimal text stands for as well, or refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  try {
    const std::int32_t number = veyra::ColorNumber(text, "BkGrnd");
    if (veyra::ColorNumber(std::to_string(number), "BkGrnd") != number) {
      std::abort();
    }
  } catch (const veyra::ValueError&) {
    return 0;
  }
  return 0;
}
