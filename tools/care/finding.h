#pragma once

#include <string>
#include <vector>

#include "data/file_store.h"
#include "data/phrase.h"

namespace veyra {

/// Something that is wrong with a calendar.
struct Finding {
  std::string Kind;                     ///< In a word, for programs: "overlap".
  Phrase What;                          ///< A sentence, on one line.
  Phrase Advice;                        ///< What to do about it: a sentence.
  std::vector<RowChange> Mending = {};  ///< What would put it right and lose nothing; may be empty.
  Phrase Mended = {};                   ///< What that does: a sentence.
};

using Findings = std::vector<Finding>;

}  // namespace veyra
