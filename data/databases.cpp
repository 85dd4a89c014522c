#include "data/databases.h"

#include "data/announced_store.h"
#include "data/errors.h"
#include "data/lost_store.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

fs::path GuestFileOf(const Databases& databases) {
  return databases.DataFolder.string() + "/Veyra.mdb";
}

Phrase FolderAdvice(const Databases& databases) {
  if (databases.AppFolder.empty()) {
    return Phrase::Tr("Check that the folder is the right one.");
  }
  return Phrase::Tr(
      "The first line of %1 must name the folder that holds Calendar.mdb and Veyra.mdb.",
      (databases.AppFolder / "path.txt").string());
}

std::unique_ptr<Connection> OpenConnection(const Databases& databases, const fs::path& file,
                                           StoreAccess access) {
  try {
    return std::make_unique<Connection>(access == StoreAccess::ReadWrite
                                            ? OpenAnnounced(file, databases.Waiting)
                                            : OpenStore(file, access, databases.Waiting));
  } catch (const MissingFileError& error) {
    throw MissingFileError({error.report().File, error.report().Cause, FolderAdvice(databases)});
  }
}

}  // namespace

fs::path CalendarFileOf(const Databases& databases) {
  return databases.DataFolder.string() + "/Calendar.mdb";
}

void CreateResCon(Databases& databases) {
  databases.ResCon.reset();
  databases.WaitedInVain = false;
  databases.ResCon = OpenConnection(databases, CalendarFileOf(databases), StoreAccess::ReadWrite);
}

void ReopenResCon(Databases& databases) {
  const std::string file = databases.ResCon->FileName();
  try {
    CreateResCon(databases);
  } catch (const Error& failure) {
    databases.ResCon = std::make_unique<Connection>(MakeLostStore(file, failure.report()));
    throw;
  }
}

void CreateVeyraCon(Databases& databases) {
  databases.GuestCon.reset();
  databases.GuestCon = OpenConnection(databases, GuestFileOf(databases), StoreAccess::ReadOnly);
}

}  // namespace veyra
