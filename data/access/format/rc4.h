#pragma once

#include <span>

#include "data/access/format/bytes.h"

namespace veyra::access {

/// Encodes `bytes` in place with the RC4 stream of `key`; doing so twice gives them back.
/// REQUIRES: `key` is not empty.
void ApplyRc4(std::span<const Byte> key, std::span<Byte> bytes);

}  // namespace veyra::access
