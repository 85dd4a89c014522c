#pragma once

#include <filesystem>
#include <memory>

#include "data/open_store.h"

namespace veyra {

/// Opens a database as OpenStore does for reading and writing, and tells other computers who has it
/// open, until it is closed: by a note beside the file (data/open_note.h). Where that cannot be
/// written beside an Access file, the file is used without one.
std::unique_ptr<Store> OpenAnnounced(const std::filesystem::path& file, const WaitPolicy& policy);

}  // namespace veyra
