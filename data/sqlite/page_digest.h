#pragma once

#include <cstdint>
#include <span>

namespace veyra::sqlite {

/// Mixes one more number into a digest. Quick, and no protection against who means harm.
void AddToDigest(std::uint64_t& digest, std::uint64_t word);

/// A digest of the bytes of a page. Bytes at its end that do not fill eight are left out.
std::uint64_t PageDigest(std::span<const unsigned char> page);

}  // namespace veyra::sqlite
