#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace veyra::sqlite {

/// Mixes one more number into a digest. Quick, and no protection against who means harm.
void AddToDigest(std::uint64_t& digest, std::uint64_t word);

/// A digest of the bytes of a page. Bytes at its end that do not fill eight are left out.
std::uint64_t PageDigest(std::span<const unsigned char> page);

/// What a disk writes whole or not at all, in bytes.
inline constexpr std::size_t kSectorBytes = 512;

/// The digests of a page's sectors, in their order. REQUIRES: the page is made of whole sectors.
std::vector<std::uint64_t> SectorDigests(std::span<const unsigned char> page);

}  // namespace veyra::sqlite
