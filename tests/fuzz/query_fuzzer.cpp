#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "data/errors.h"
#include "data/query.h"

/// Any text is either a query or refused with a report.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const veyra::Query query =
        veyra::ParseQuery(std::string_view(reinterpret_cast<const char*>(data), size));
    if (query.Table.empty()) {
      std::abort();
    }
  } catch (const veyra::DatabaseError&) {
    return 0;
  }
  return 0;
}
