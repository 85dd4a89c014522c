#include "data/sqlite/page_digest.h"

#include <cstddef>
#include <cstring>

namespace veyra::sqlite {

void AddToDigest(std::uint64_t& digest, std::uint64_t word) {
  constexpr std::uint64_t kPrime = 0x100000001B3;
  digest = (digest ^ word) * kPrime;
  digest ^= digest >> 29U;
}

std::uint64_t PageDigest(std::span<const unsigned char> page) {
  std::uint64_t digest = 0xCBF29CE484222325;
  for (std::size_t at = 0; at + sizeof digest <= page.size(); at += sizeof digest) {
    std::uint64_t word = 0;
    std::memcpy(&word, page.data() + at, sizeof word);
    AddToDigest(digest, word);
  }
  return digest;
}

std::vector<std::uint64_t> SectorDigests(std::span<const unsigned char> page) {
  std::vector<std::uint64_t> digests;
  for (std::size_t at = 0; at + kSectorBytes <= page.size(); at += kSectorBytes) {
    digests.push_back(PageDigest(page.subspan(at, kSectorBytes)));
  }
  return digests;
}

}  // namespace veyra::sqlite
