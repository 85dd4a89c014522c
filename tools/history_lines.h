#pragma once

#include <vector>

#include "data/phrase.h"
#include "logic/journal_words.h"

namespace veyra {

/// "12  3/5/2026 09:30:12  New series: 4 rows".
Phrase HeadLine(const modRes::JournalAction& action, std::size_t changes);

/// A line for each row: "+ Pool, 3/5/2026,  9:00A-10:30A Smith" added, "-" deleted, "~ ... -> ..."
/// changed. More than `most` end with "... and 12 more". What stands in them may hold line breaks.
std::vector<Phrase> ChangeLines(const std::vector<modRes::JournalledChange>& changes,
                                const modRes::JournalWords& words, std::size_t most);

}  // namespace veyra
