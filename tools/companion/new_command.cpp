#include "tools/companion/new_command.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <utility>

#include "data/connection.h"
#include "data/errors.h"
#include "data/file_name.h"
#include "data/open_file_store.h"
#include "data/schema.h"
#include "tools/companion/folder_argument.h"
#include "tools/new_database.h"
#include "tools/plain_text.h"
#include "tools/sample_data.h"
#include "tools/unfinished_folder.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr const char* kCalendarFile = "Calendar.mdb";
constexpr const char* kGuestFile = "Veyra.mdb";

/// Adds the facilities and returns their ID, in the same order.
std::vector<Value> AddFacilities(Connection& calendar, const SampleData& sample) {
  std::vector<Value> ids;
  auto rooms = calendar.Open("SELECT * FROM Rooms", CursorType::StaticOptimistic);
  for (std::size_t i = 0; i < sample.Facilities.size(); ++i) {
    rooms->AddNew();
    rooms->SetField("Name", sample.Facilities[i]);
    rooms->SetField("Active", std::int64_t{i == sample.ActiveFacility});
    rooms->Update();
    rooms->MoveLast();
    ids.push_back(rooms->Field("ID"));
  }
  return ids;
}

void AddBookings(Connection& calendar, const SampleData& sample, const std::vector<Value>& ids) {
  auto bookings = calendar.Open("SELECT * FROM Reserv", CursorType::StaticOptimistic);
  for (const SampleBooking& booking : sample.Bookings) {
    bookings->AddNew();
    bookings->SetField("RmID", ids[booking.Facility]);
    bookings->SetField("Event", booking.Event);
    bookings->SetField("DateOfRes", booking.Day);
    bookings->SetField("TimeFrom", std::int64_t{booking.TimeFrom});
    bookings->SetField("TimeTo", std::int64_t{booking.TimeTo});
    if (booking.MultKey) {
      bookings->SetField("MultKey", static_cast<double>(*booking.MultKey));
    }
    bookings->Update();
  }
}

void AddGuests(Connection& guest_database, const SampleData& sample) {
  auto guests = guest_database.Open("SELECT * FROM Guest", CursorType::StaticOptimistic);
  for (const std::string& name : sample.Guests) {
    guests->AddNew();
    guests->SetField("Name", name);
    guests->Update();
  }
}

void MakeCalendar(const fs::path& file, FileKind kind, const SampleData& sample) {
  auto store = NewDatabase(file, kind, {RoomsTable(), ReservTable()});
  FileStore& journalled = *store;
  Connection calendar(std::move(store));
  AddBookings(calendar, sample, AddFacilities(calendar, sample));
  // From now on: how a calendar is made is not in its journal.
  journalled.KeepJournal(true);
}

void MakeDatabases(const fs::path& folder, FileKind kind, const SampleData& sample) {
  MakeCalendar(folder / kCalendarFile, kind, sample);
  Connection guest_database(NewDatabase(folder / kGuestFile, kind, {GuestTable()}));
  AddGuests(guest_database, sample);
}

void MakeDataFolder(const fs::path& folder, FileKind kind, const SampleData& sample) {
  UnfinishedFolder::RemoveAbandoned(folder);
  RefuseIfThere(folder / kCalendarFile);
  RefuseIfThere(folder / kGuestFile);
  UnfinishedFolder unfinished(folder);
  MakeDatabases(unfinished.path(), kind, sample);
  unfinished.MoveOut({kGuestFile, kCalendarFile});
}

std::string Contents(const SampleData& sample) {
  return ", with " + std::to_string(sample.Facilities.size()) + " facilities, " +
         std::to_string(sample.Bookings.size()) + " bookings and " +
         std::to_string(sample.Guests.size()) + " guests";
}

struct Options {
  std::string Folder;
  bool Access = false;
  bool Sample = false;
};

void RunNew(const Options& options, Date today, std::ostream& out) {
  const SampleData sample = options.Sample ? MakeSampleData(today) : SampleData{};
  const FileKind kind = options.Access ? FileKind::Access : FileKind::Sqlite;
  const fs::path folder = NativePath(options.Folder);
  MakeDataFolder(folder, kind, sample);
  out << "Made " << kCalendarFile << " and " << kGuestFile << " in " << OneLine(folder.string())
      << (options.Sample ? Contents(sample) : "") << ".\n";
}

Command::Action Declare(CLI::App& app, Date today) {
  const auto options = std::make_shared<Options>();
  AddRequiredName(app, "FOLDER", options->Folder, "the data folder to be made");
  app.add_flag("--access", options->Access, "make Access 2000 files; else they are SQLite files");
  app.add_flag("--sample", options->Sample,
               "fill them: five facilities, forty guests, bookings over three months");
  return [options, today](Streams& streams) {
    RunNew(*options, today, streams.Out);
    return ExitStatus::Fine;
  };
}

}  // namespace

Command NewCommand(Date today) {
  return {"new", "Make a data folder with an empty Calendar.mdb and Veyra.mdb",
          "Files that are there are never written over.\n"
          "Example: veyra-data new ~/our-calendar",
          [today](CLI::App& app) { return Declare(app, today); }};
}

}  // namespace veyra
