#pragma once

#include <memory>
#include <string>

#include "data/store.h"
#include "data/waiting.h"

namespace veyra::sqlite {

/// Opens a SQLite file for reading only. Nothing is written to it, or beside it.
///
/// The file is another program's, which may write to it at any time, and may replace it. So it is
/// opened anew for each question and closed after it: this program never stands in the other one's
/// way, and always answers with what is there now.
/// REQUIRES: the file exists; its name is absolute.
std::unique_ptr<Store> OpenReadOnly(const std::string& file, const WaitPolicy& policy);

}  // namespace veyra::sqlite
