#include "data/calendar_link.h"

#include <cerrno>
#include <fstream>
#include <vector>

#include "data/errors.h"
#include "data/posix_file.h"

namespace veyra {

namespace {

constexpr std::string_view kStart = "veyra calendar link ";
constexpr std::string_view kFirstLine = "veyra calendar link 1";
constexpr std::string_view kSchema = "schema=";
constexpr std::size_t kMostBytes = 65'536;

static_assert(kStart.size() == kLinkStartBytes);

Phrase WriteAnew() {
  return Phrase::Tr(
      "Put a backup copy in its place, or write the link anew with \"veyra-data link\".");
}

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    lines.emplace_back(line);
  }
  return lines;
}

std::string Contents(const std::filesystem::path& file) {
  try {
    return ReadWholeFile(file, kMostBytes);
  } catch (const PosixFileError& error) {
    throw DatabaseError(
        {file.string(), Phrase::Tr("The link cannot be read: %1.", error.Reason()), WriteAnew()});
  }
}

/// What stands after the second line: nothing, or a schema.
std::string SchemaIn(const std::filesystem::path& file, const std::vector<std::string>& lines) {
  std::string schema = CalendarLink().Schema;
  for (std::size_t i = 2; i < lines.size(); ++i) {
    if (lines[i].empty()) {
      continue;
    }
    if (!lines[i].starts_with(kSchema) || lines[i].size() == kSchema.size()) {
      throw DatabaseError(
          {file.string(),
           Phrase::Tr("Line %1 of the link is not understood: \"%2\".", i + 1, lines[i]),
           WriteAnew()});
    }
    schema = lines[i].substr(kSchema.size());
  }
  return schema;
}

bool IsOneLine(const std::string& text) {
  return !text.empty() && text.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos;
}

std::string TextOf(const CalendarLink& link) {
  const bool is_usual = link.Schema == CalendarLink().Schema;
  return std::string(kFirstLine) + "\n" + link.Server + "\n" +
         (is_usual ? "" : std::string(kSchema) + link.Schema + "\n");
}

}  // namespace

bool IsCalendarLink(std::string_view first_bytes) {
  return first_bytes.starts_with(kStart);
}

bool LeadsToServer(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string start(kLinkStartBytes, '\0');
  stream.read(start.data(), static_cast<std::streamsize>(start.size()));
  return IsCalendarLink(start);
}

CalendarLink ReadCalendarLink(const std::filesystem::path& file) {
  const std::vector<std::string> lines = Lines(Contents(file));
  if (lines.empty() || !IsCalendarLink(lines.front())) {
    throw DatabaseError(
        {file.string(), Phrase::Tr("The file is not a link to a shared calendar."), WriteAnew()});
  }
  if (lines.front() != kFirstLine) {
    throw DatabaseError(
        {file.string(),
         Phrase::Tr("The link is of a kind that this version of the program does not know: \"%1\".",
                    lines.front()),
         Phrase::Tr("Use the version of the program that wrote it.")});
  }
  if (lines.size() < 2 || lines[1].empty()) {
    throw DatabaseError({file.string(), Phrase::Tr("The link names no server."), WriteAnew()});
  }
  return {.Server = lines[1], .Schema = SchemaIn(file, lines)};
}

void WriteCalendarLink(const std::filesystem::path& file, const CalendarLink& link) {
  if (!IsOneLine(link.Server) || !IsOneLine(link.Schema)) {
    throw DatabaseError(
        {file.string(),
         Phrase::Tr("The server or the schema of the link is empty or has a line break in it."),
         Phrase::Tr("Write each of them in one line.")});
  }
  try {
    MakeWholeFile(file, TextOf(link));
  } catch (const PosixFileError& error) {
    const bool is_there = error.Number() == EEXIST;
    throw DatabaseError(
        {file.string(),
         is_there ? Phrase::Tr("This file is there already; nothing was made.")
                  : Phrase::Tr("The link cannot be made: %1.", error.Reason()),
         is_there
             ? Phrase::Tr("Choose another folder, or move the file away first.")
             : Phrase::Tr("Check that the folder is there and that you may make files in it.")});
  }
}

}  // namespace veyra
