#pragma once

#include <string>
#include <vector>

#include "data/file_store.h"

namespace veyra {

/// Something that is wrong with a calendar.
struct Finding {
  std::string Kind;                     ///< In a word, for programs: "overlap".
  std::string What;                     ///< A sentence, on one line.
  std::string Advice;                   ///< What to do about it: a sentence.
  std::vector<RowChange> Mending = {};  ///< What would put it right and lose nothing; may be empty.
  std::string Mended = {};              ///< What that does: a sentence.
};

using Findings = std::vector<Finding>;

}  // namespace veyra
