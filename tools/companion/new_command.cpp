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
#include "data/shared_calendar.h"
#include "tools/companion/folder_argument.h"
#include "tools/companion/link_arguments.h"
#include "tools/companion/parser_words.h"
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

struct Options {
  std::string Folder;
  CalendarLink Shared;  ///< Names no server when the calendar is to be a file.
  bool Access = false;
  bool Sample = false;

  FileKind Kind() const { return Access ? FileKind::Access : FileKind::Sqlite; }
};

void MakeCalendarFile(const fs::path& file, FileKind kind, const SampleData& sample) {
  auto store = NewDatabase(file, kind, {RoomsTable(), ReservTable()});
  FileStore& journalled = *store;
  Connection calendar(std::move(store));
  AddBookings(calendar, sample, AddFacilities(calendar, sample));
  // From now on: how a calendar is made is not in its journal.
  journalled.KeepJournal(true);
}

void MakeSharedCalendar(const fs::path& file, const CalendarLink& link) {
  WriteCalendarLink(file, link);
  const auto made = BeginSharedCalendar(file, link);
  made->Rows().CreateTable(RoomsTable());
  made->Rows().CreateTable(ReservTable());
  made->Rows().KeepJournal(true);
  made->Save();
}

void MakeGuestFile(const fs::path& file, FileKind kind, const SampleData& sample) {
  Connection guest_database(NewDatabase(file, kind, {GuestTable()}));
  AddGuests(guest_database, sample);
}

/// What is made on a server comes last: it stays there even if the files cannot be moved out.
void MakeDatabases(const fs::path& folder, const Options& options, const SampleData& sample) {
  MakeGuestFile(folder / kGuestFile, options.Kind(), sample);
  if (options.Shared.Server.empty()) {
    MakeCalendarFile(folder / kCalendarFile, options.Kind(), sample);
  } else {
    MakeSharedCalendar(folder / kCalendarFile, options.Shared);
  }
}

void MakeDataFolder(const fs::path& folder, const Options& options, const SampleData& sample) {
  UnfinishedFolder::RemoveAbandoned(folder);
  RefuseIfThere(folder / kCalendarFile);
  RefuseIfThere(folder / kGuestFile);
  UnfinishedFolder unfinished(folder);
  MakeDatabases(unfinished.path(), options, sample);
  unfinished.MoveOut({kGuestFile, kCalendarFile});
}

Phrase Made(const std::string& folder, const Options& options, const SampleData& sample) {
  return options.Sample
             ? Phrase::Tr("Made %1 and %2 in %3, with %4 facilities, %5 bookings and %6 guests.",
                          kCalendarFile, kGuestFile, folder, sample.Facilities.size(),
                          sample.Bookings.size(), sample.Guests.size())
             : Phrase::Tr("Made %1 and %2 in %3.", kCalendarFile, kGuestFile, folder);
}

void RunNew(const Options& options, Date today, const Streams& streams) {
  const SampleData sample = options.Sample ? MakeSampleData(today) : SampleData{};
  const fs::path folder = NativePath(options.Folder);
  if (!options.Shared.Server.empty()) {
    TellOfConnection(options.Shared, streams);
  }
  MakeDataFolder(folder, options, sample);
  streams.Tell(Made(OneLine(folder.string()), options, sample));
}

Command::Action Declare(CLI::App& app, Date today) {
  const auto options = std::make_shared<Options>();
  AddRequiredName(app, "FOLDER", options->Folder, Phrase::Tr("the data folder to be made"));
  app.add_flag("--access", options->Access,
               Meaning(Phrase::Tr("make Access 2000 files; else they are SQLite files")));
  CLI::Option* const sample = app.add_flag(
      "--sample", options->Sample,
      Meaning(Phrase::Tr("fill them: five facilities, forty guests, bookings over three months")));
  app.add_option("--shared", options->Shared.Server,
                 Meaning(Phrase::Tr(
                     "make the calendar on a PostgreSQL server, and Calendar.mdb a link to it")))
      ->type_name("URI")
      ->excludes(sample);
  AddSchema(app, options->Shared);
  return [options, today](Streams& streams) {
    RunNew(*options, today, streams);
    return ExitStatus::Fine;
  };
}

}  // namespace

Command NewCommand(Date today) {
  return {"new", Phrase::Tr("Make a data folder with an empty Calendar.mdb and Veyra.mdb"),
          Phrase::Tr("Files that are there are never written over.") +
              Examples({"veyra-data new ~/our-calendar"}),
          [today](CLI::App& app) { return Declare(app, today); }};
}

}  // namespace veyra
