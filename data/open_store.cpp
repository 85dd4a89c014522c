#include "data/open_store.h"

#include <unistd.h>

#include <filesystem>
#include <string_view>
#include <system_error>

#include "data/access/access_store.h"
#include "data/calendar_link.h"
#include "data/errors.h"
#include "data/postgres/postgres_store.h"
#include "data/sqlite/read_only_store.h"
#include "data/sqlite/sqlite_store.h"

namespace veyra {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSqliteStart("SQLite format 3\0", 16);
constexpr std::string_view kAccessStart("\0\1\0\0Standard ", 13);

Phrase RightFile() {
  return Phrase::Tr("Put the right file, or a backup copy of it, in its place and start again.");
}

/// Whether any of the permission bits is set; true when that cannot be told.
bool HasPermission(const fs::path& path, fs::perms any_of) {
  std::error_code error;
  const fs::perms permissions = fs::status(path, error).permissions();
  return error || permissions == fs::perms::unknown || (permissions & any_of) != fs::perms::none;
}

/// The administrator may write to everything, but what nobody may write to was protected on
/// purpose.
bool IsWritable(const fs::path& path) {
  constexpr fs::perms kAnyWrite =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  return HasPermission(path, kAnyWrite) && ::access(path.c_str(), W_OK) == 0;
}

[[noreturn]] void FailAsMissing(const fs::path& path) {
  std::error_code error;
  const fs::path folder = path.parent_path();
  const bool has_folder = fs::is_directory(folder, error);
  throw MissingFileError(
      {path.string(),
       has_folder ? Phrase::Tr("There is no such file.")
                  : Phrase::Tr("There is no such file, and no folder %1.", folder.string()),
       Phrase::Tr("Check that the folder is the right one and that the file is in it.")});
}

void RequireFile(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) {
    FailAsMissing(path);
  }
  if (status.type() == fs::file_type::directory) {
    throw DatabaseError({path.string(),
                         Phrase::Tr("This is a folder, where a database file should be."),
                         Phrase::Tr("Move the folder away and put the file in its place.")});
  }
  if (status.type() != fs::file_type::regular) {
    throw DatabaseError(
        {path.string(), Phrase::Tr("This is not a file that can be read."),
         Phrase::Tr("Check that the disk is connected and that you may use the folder.")});
  }
  if (fs::file_size(path, error) == 0) {
    throw DatabaseError({path.string(), Phrase::Tr("The file is empty."), RightFile()});
  }
  if (::access(path.c_str(), R_OK) != 0) {
    throw DatabaseError({path.string(), Phrase::Tr("You may not read the file."),
                         Phrase::Tr("Ask for the right to read and change the file.")});
  }
}

void RequireWritable(const fs::path& path) {
  if (!IsWritable(path)) {
    throw DatabaseError(
        {path.string(), Phrase::Tr("The file is write-protected, so nothing could be saved."),
         Phrase::Tr("Ask for the right to change the file, or remove its write protection.")});
  }
  const fs::path folder = fs::weakly_canonical(path).parent_path();
  if (!IsWritable(folder)) {
    throw DatabaseError(
        {path.string(),
         Phrase::Tr("The folder %1 is write-protected, so nothing could be saved.",
                    folder.string()),
         Phrase::Tr(
             "Ask for the right to make files in the folder, or remove its write protection.")});
  }
}

std::unique_ptr<Store> OpenSqlite(const std::string& file, StoreAccess access,
                                  const WaitPolicy& policy) {
  switch (access) {
    case StoreAccess::ReadOnly:
      return sqlite::OpenReadOnly(file, policy);
    case StoreAccess::Exclusive:
      return sqlite::OpenExclusive(file, policy);
    case StoreAccess::ReadWrite:
      break;
  }
  return sqlite::OpenReadWrite(file, policy);
}

std::unique_ptr<Store> OpenByFirstBytes(const fs::path& path, StoreAccess access,
                                        const WaitPolicy& policy) {
  const std::string bytes = sqlite::FirstBytes(path.string(), kLinkStartBytes);
  if (IsCalendarLink(bytes)) {
    return postgres::OpenPostgres(ReadCalendarLink(path), path.string(), access, policy);
  }
  if (access != StoreAccess::ReadOnly) {
    RequireWritable(path);
  }
  if (bytes.starts_with(kSqliteStart)) {
    return OpenSqlite(path.string(), access, policy);
  }
  if (bytes.starts_with(kAccessStart)) {
    return OpenAccessStore(path.string(), access, policy);
  }
  throw DatabaseError(
      {path.string(), Phrase::Tr("The file is not a database of a kind known here."), RightFile()});
}

}  // namespace

std::unique_ptr<Store> OpenStore(const fs::path& file, StoreAccess access, WaitPolicy policy) {
  const fs::path path = fs::absolute(file);
  RequireFile(path);
  policy.File = path.string();
  return OpenByFirstBytes(path, access, policy);
}

}  // namespace veyra
