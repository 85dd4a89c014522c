#include "data/zero_sectors.h"

#include <algorithm>

namespace veyra {

bool ReachIntoZeros(std::span<const unsigned char> page, std::size_t begin, std::size_t end) {
  constexpr std::size_t kSector = 512;
  for (std::size_t at = begin / kSector * kSector; at < end && at < page.size(); at += kSector) {
    const auto sector = page.subspan(at, std::min(kSector, page.size() - at));
    if (std::all_of(sector.begin(), sector.end(), [](unsigned char byte) { return byte == 0; })) {
      return true;
    }
  }
  return false;
}

}  // namespace veyra
