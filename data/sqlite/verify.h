#pragma once

#include <vector>

#include "data/phrase.h"
#include "data/sqlite/reader.h"

namespace veyra::sqlite {

/// What Store::Verify does.
std::vector<Phrase> Verify(Reader& reader);

}  // namespace veyra::sqlite
