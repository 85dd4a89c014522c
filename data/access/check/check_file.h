#pragma once

#include <vector>

#include "data/access/pages/page_source.h"
#include "data/phrase.h"

namespace veyra::access {

/// What is wrong with a file, a sentence each: the list of its tables, every table as CheckTable
/// does, and that each page belongs to one owner or is free. Empty when nothing is wrong.
std::vector<Phrase> CheckFile(PageSource& pages);

}  // namespace veyra::access
