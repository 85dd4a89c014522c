#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "data/date.h"
#include "logic/date_parser.h"

/// A date that a text names is one that the texts made of it name again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const veyra::Date today = veyra::MakeDate(2014, 3, 15).value();
  if (const auto date = veyra::ParseDate(text, today)) {
    if (veyra::ParseDate(veyra::DateText(*date), today) != date ||
        veyra::DateFromIsoText(veyra::IsoText(*date)) != date) {
      std::abort();
    }
  }
  veyra::DateFromIsoText(text);
  return 0;
}
