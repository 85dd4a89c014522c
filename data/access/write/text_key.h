#pragma once

#include <string_view>

#include "data/access/format/bytes.h"

namespace veyra::access {

// The key of a text in the general sort order, which knows no letter case:
//
//   a byte or two for each character; none for an apostrophe or a hyphen
//   01
//   where letters have accents: a byte for each character up to the last of those, 02 for none
//   where there are apostrophes or hyphens: 01 01 01, then for each of them the number of
//     characters before it, times 4 plus 8007, in 2 bytes, big-endian; 06; its own byte
//   00

/// Whether all characters of a text are ones whose place in the order is known: ASCII, and the
/// letters of the western languages with their accents.
bool HasTextKey(std::string_view text);

/// Adds the key of a text. Throws FileProblem when it has none.
void AppendTextKey(Bytes& key, std::string_view text);

}  // namespace veyra::access
