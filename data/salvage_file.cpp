#include "data/salvage_file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include "data/access/salvage/salvage_file.h"
#include "data/access/salvage/salvage_pages.h"
#include "data/calendar_link.h"
#include "data/errors.h"
#include "data/posix_file.h"
#include "data/sqlite/salvage/salvage_file.h"
#include "data/sqlite/salvage/salvage_pages.h"

namespace veyra {

namespace {

constexpr std::string_view kSqliteStart("SQLite format 3\0", 16);
constexpr std::string_view kAccessStart("\0\1\0\0Standard ", 13);
constexpr std::array<std::size_t, 4> kSqlitePages = {1024, 2048, 4096, 8192};

bool BeginsWith(const PosixFile& file, std::string_view start) {
  std::array<unsigned char, 16> bytes{};
  const std::size_t count = file.ReadAt(bytes, 0);
  return count >= start.size() &&
         std::equal(start.begin(), start.end(), bytes.begin(), [](char one, unsigned char other) {
           return static_cast<unsigned char>(one) == other;
         });
}

/// What kind of file it is, by its first bytes or, where they are damaged, by its pages; nothing
/// when no page is one of a database.
std::optional<FileKind> KindOf(const PosixFile& file) {
  try {
    if (BeginsWith(file, kSqliteStart)) {
      return FileKind::Sqlite;
    }
    if (BeginsWith(file, kAccessStart)) {
      return FileKind::Access;
    }
  } catch (const PosixFileError&) {
    // The disk cannot read the beginning.
  }
  const std::size_t access =
      std::max(access::CountLikelyPages(file, 2048), access::CountLikelyPages(file, 4096));
  std::size_t trees = 0;
  for (const std::size_t size : kSqlitePages) {
    trees = std::max(trees, sqlite::CountTreePages(file, size));
  }
  if (access == 0 && trees == 0) {
    return std::nullopt;
  }
  return access > trees ? FileKind::Access : FileKind::Sqlite;
}

Salvage SalvageKnown(const std::string& file, const SalvageModels& models) {
  if (LeadsToServer(file)) {
    throw DatabaseError({file, Phrase::Tr("The file is a link: the calendar is on a server."),
                         Phrase::Tr("Ask whoever looks after the server for its backup.")});
  }
  const std::optional<FileKind> kind = KindOf(PosixFile(file, PosixFile::Use::Read));
  if (!kind) {
    throw DatabaseError({file, Phrase::Tr("Nothing of a database is left in the file."),
                         Phrase::Tr("Go back to a copy of the file.")});
  }
  return *kind == FileKind::Access ? access::SalvageAccessFile(file, models)
                                   : sqlite::SalvageSqliteFile(file, models);
}

}  // namespace

Salvage SalvageFile(const std::filesystem::path& name, const SalvageModels& models) {
  const std::string file = std::filesystem::absolute(name).string();
  try {
    return SalvageKnown(file, models);
  } catch (const PosixFileError& error) {
    throw DatabaseError({file, Phrase::Tr("The file cannot be read: %1.", error.Reason()),
                         Phrase::Tr("Check that the file is there and that you may read it.")});
  } catch (const access::FileProblem& problem) {
    throw DatabaseError({file, problem.cause(), problem.advice()});
  }
}

}  // namespace veyra
