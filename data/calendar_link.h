#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace veyra {

/// Where a calendar lies that several desks share.
struct CalendarLink {
  std::string Server;  ///< A libpq connection URI, "service=NAME" or other "key=value" pairs.
  std::string Schema = "veyra";  ///< The schema of that database which holds its tables.
};

/// A link file stands in the place of a database file: a text of two or three lines, each ended by
/// a line feed, with or without a carriage return before it:
///
///   veyra calendar link 1
///   postgresql://desk@server.example/houses
///   schema=garden
///
/// The third is there only for another schema than the usual one.
///
/// How many of a file's first bytes tell it, and whether they do. One of another version is told,
/// too.
inline constexpr std::size_t kLinkStartBytes = 20;
bool IsCalendarLink(std::string_view first_bytes);

/// Whether a file is there and is a link. REQUIRES: nobody in this process has it open, for some
/// kinds of database lose their locks by being closed again.
bool LeadsToServer(const std::filesystem::path& file);

/// Throws DatabaseError when the file cannot be read, is not a link file, is one of a version not
/// known here, or names no server.
CalendarLink ReadCalendarLink(const std::filesystem::path& file);

/// Makes a link file, whole and flushed or not at all. Throws DatabaseError when a file of that
/// name is there, which stays as it is, when it cannot be made, or when the link cannot be written
/// in lines.
void WriteCalendarLink(const std::filesystem::path& file, const CalendarLink& link);

}  // namespace veyra
