#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veyra {

/// One file inside a help archive.
struct HelpObject {
  std::string Name;  ///< Such as "/pictures/month.png"; the archive's tables are "/#SYSTEM" etc.
  std::string Bytes;
};

/// The most that the objects of one archive may take up together, in bytes. A help file is far
/// smaller; a damaged one may claim anything.
inline constexpr std::size_t kMostArchiveBytes = 64U << 20U;

/// How the reader process hands an archive to the program, through a pipe:
///
///   stream   {object} end
///   object   count name count bytes     the name has at least one byte
///   end      count                      of zero
///   count    32 bits, lowest byte first
std::string StreamedObject(const HelpObject& object);
std::string StreamEnd();

/// The objects of a whole stream, or nothing when it is cut short or has another form.
std::optional<std::vector<HelpObject>> ObjectsOfStream(std::string_view stream);

}  // namespace veyra
