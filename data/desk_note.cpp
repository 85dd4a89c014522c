#include "data/desk_note.h"

#include <unistd.h>

#include <charconv>
#include <string>
#include <string_view>

#include "data/posix_file.h"

namespace veyra {

namespace {

constexpr std::string_view kStart = "veyra calendar desk 1\nfacility: ";
constexpr std::size_t kMostBytes = 200;

std::string Contents(const std::filesystem::path& note) {
  try {
    return ReadWholeFile(note, kMostBytes);
  } catch (const PosixFileError&) {
    return {};
  }
}

}  // namespace

std::filesystem::path DeskNoteOf(const std::filesystem::path& calendar) {
  return calendar.string() + "-desk-" + std::to_string(::geteuid());
}

std::optional<std::int64_t> ReadDeskNote(const std::filesystem::path& note) {
  const std::string text = Contents(note);
  if (!text.starts_with(kStart) || !text.ends_with('\n')) {
    return std::nullopt;
  }
  const char* const end = text.data() + text.size() - 1;
  std::int64_t facility = 0;
  const auto [stop, error] = std::from_chars(text.data() + kStart.size(), end, facility);
  return error == std::errc() && stop == end ? std::optional(facility) : std::nullopt;
}

void WriteDeskNote(const std::filesystem::path& note, std::int64_t facility) {
  try {
    PutWholeFile(note, std::string(kStart) + std::to_string(facility) + "\n");
  } catch (const PosixFileError&) {
    // As the header says.
  }
}

}  // namespace veyra
