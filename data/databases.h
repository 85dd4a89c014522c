#pragma once

#include <filesystem>
#include <memory>

#include "data/connection.h"
#include "data/open_store.h"

namespace veyra {

/// The two databases and the folders they were found by.
struct Databases {
  std::filesystem::path AppFolder;       ///< The program's own folder, no separator at its end.
  std::filesystem::path DataFolder;      ///< Of both databases; empty when path.txt named none.
  WaitPolicy Waiting;                    ///< How to wait for a file that another program holds.
  std::unique_ptr<Connection> ResCon;    ///< The calendar: Rooms, Reserv, Settings.
  std::unique_ptr<Connection> GuestCon;  ///< The host product's guests: Guest, read only.
  bool WaitedInVain = false;  ///< An upgrade could not have ResCon's file: the next do not wait.
};

/// The calendar file in the data folder; in the root when no folder is known.
std::filesystem::path CalendarFileOf(const Databases& databases);

/// Opens Calendar.mdb in DataFolder as ResCon, in place of any connection that is open there.
/// Throws DatabaseError when the file cannot be opened for reading and writing.
void CreateResCon(Databases& databases);

/// The same for a ResCon whose file was replaced. When the file that is there now cannot be opened,
/// ResCon is a connection that fails with a FileReplacedError whatever is asked of it, until a
/// later call succeeds.
void ReopenResCon(Databases& databases);

/// Opens Veyra.mdb in DataFolder as GuestCon, in place of any connection that is open there.
/// Throws DatabaseError when the file cannot be opened for reading.
void CreateVeyraCon(Databases& databases);

}  // namespace veyra
