#pragma once

#include <cstddef>
#include <span>

namespace veyra {

/// Whether bytes of a page reach into a sector of the disk, 512 bytes, that holds nothing but
/// zeros: what is left where a page was written only in part. No record is long enough to have one
/// of its own. `begin` is included, `end` is not.
bool ReachIntoZeros(std::span<const unsigned char> page, std::size_t begin, std::size_t end);

}  // namespace veyra
