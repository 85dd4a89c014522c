#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace veyra {

/// The note that the desk of the user who runs this keeps beside the link to a shared calendar:
/// which facility it has selected last. A text of two lines, "veyra calendar desk 1" and
/// "facility: 3". Each user of the machine has one of his own, so that two who share the folder do
/// not turn each other's page: "Calendar.mdb-desk-1000".
std::filesystem::path DeskNoteOf(const std::filesystem::path& calendar);

/// The Rooms.ID that stands in the note; nothing when there is no note, or none that can be read.
std::optional<std::int64_t> ReadDeskNote(const std::filesystem::path& note);

/// Puts the note in its place, whole or not at all. Where it cannot be written it is left as it is:
/// the next start shows another facility first, and nothing else depends on it.
void WriteDeskNote(const std::filesystem::path& note, std::int64_t facility);

}  // namespace veyra
