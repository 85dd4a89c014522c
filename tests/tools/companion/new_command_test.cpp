#include "tools/companion/new_command.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>

#include "data/connection.h"
#include "data/errors.h"
#include "data/open_store.h"
#include "tests/temp_folder.h"
#include "tests/tools/companion/run_command.h"
#include "tools/sample_data.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

using Names = std::set<std::string>;

const Date kToday = MakeDate(2026, 11, 21).value();

class NewCommandTest : public ::testing::Test {
 protected:
  void New(const Arguments& arguments) { RunWith(NewCommand(kToday), arguments, out_); }

  std::string Folder() const { return temp_.File("data").string(); }

  static Names FilesIn(const fs::path& folder) {
    Names names;
    for (const auto& entry : fs::directory_iterator(folder)) {
      names.insert(entry.path().filename());
    }
    return names;
  }

  Connection Open(const std::string& file) const {
    return Connection(OpenStore(Folder() + "/" + file, StoreAccess::ReadOnly));
  }

  std::size_t RowsOf(const std::string& file, const std::string& table) const {
    Connection connection = Open(file);
    return connection.Open("SELECT * FROM " + table, CursorType::StaticOptimistic)->RecordCount();
  }

  TempFolder temp_;
  std::ostringstream out_;
};

TEST_F(NewCommandTest, MakesTheTwoDatabasesAndNothingElse) {
  New({Folder()});
  EXPECT_EQ((Names{"Calendar.mdb", "Veyra.mdb"}), FilesIn(Folder()));
}

TEST_F(NewCommandTest, ABackslashInTheFolderCountsAsASlash) {
  New({temp_.path().string() + "\\office\\data"});
  EXPECT_EQ((Names{"Calendar.mdb", "Veyra.mdb"}), FilesIn(temp_.File("office/data")));
}

TEST_F(NewCommandTest, TheCalendarHasNoSettingsYet) {
  New({Folder()});
  const std::vector<std::string> tables = Open("Calendar.mdb").TableNames();
  EXPECT_EQ((Names{"ChangeJournal", "Reserv", "Rooms"}), Names(tables.begin(), tables.end()));
}

TEST_F(NewCommandTest, TheBookingsHaveAColumnForTheGroup) {
  New({Folder()});
  EXPECT_EQ(
      (std::vector<std::string>{"RmID", "Event", "DateOfRes", "TimeFrom", "TimeTo", "MultKey"}),
      Open("Calendar.mdb").ColumnNames("Reserv"));
}

TEST_F(NewCommandTest, WithoutSampleEveryTableIsEmpty) {
  New({Folder()});
  EXPECT_EQ(0U, RowsOf("Calendar.mdb", "Rooms"));
  EXPECT_EQ(0U, RowsOf("Calendar.mdb", "Reserv"));
  EXPECT_EQ(0U, RowsOf("Veyra.mdb", "Guest"));
}

TEST_F(NewCommandTest, SampleFillsEveryTable) {
  New({"--sample", Folder()});
  const SampleData sample = MakeSampleData(kToday);
  EXPECT_EQ(sample.Facilities.size(), RowsOf("Calendar.mdb", "Rooms"));
  EXPECT_EQ(sample.Bookings.size(), RowsOf("Calendar.mdb", "Reserv"));
  EXPECT_EQ(sample.Guests.size(), RowsOf("Veyra.mdb", "Guest"));
}

TEST_F(NewCommandTest, ExactlyOneFacilityOfTheSampleIsActive) {
  New({Folder(), "--sample"});
  EXPECT_EQ(1U, RowsOf("Calendar.mdb", "Rooms Where Active = 1"));
  EXPECT_EQ(4U, RowsOf("Calendar.mdb", "Rooms Where Active = 0"));
}

TEST_F(NewCommandTest, EveryBookingOfTheSampleBelongsToAFacility) {
  New({Folder(), "--sample"});
  Connection calendar = Open("Calendar.mdb");
  std::set<std::int64_t> ids;
  auto rooms = calendar.Open("SELECT * FROM Rooms", CursorType::ForwardOnlyReadOnly);
  for (; !rooms->AtEnd(); rooms->MoveNext()) {
    ids.insert(ToInteger(rooms->Field("ID")).value());
  }
  auto bookings = calendar.Open("SELECT * FROM Reserv", CursorType::ForwardOnlyReadOnly);
  for (; !bookings->AtEnd(); bookings->MoveNext()) {
    EXPECT_TRUE(ids.contains(ToInteger(bookings->Field("RmID")).value()));
  }
}

TEST_F(NewCommandTest, SingleBookingsOfTheSampleHaveNoKey) {
  New({Folder(), "--sample"});
  const SampleData sample = MakeSampleData(kToday);
  const auto singles = std::count_if(sample.Bookings.begin(), sample.Bookings.end(),
                                     [](const auto& booking) { return !booking.MultKey; });
  const std::size_t grouped = RowsOf("Calendar.mdb", "Reserv Where MultKey > 0");
  EXPECT_EQ(sample.Bookings.size() - static_cast<std::size_t>(singles), grouped);
}

TEST_F(NewCommandTest, AccessMakesBothAsAccessFiles) {
  New({Folder(), "--access"});
  for (const char* name : {"Calendar.mdb", "Veyra.mdb"}) {
    EXPECT_EQ("Standard Jet DB", temp_.Read(std::string("data/") + name).substr(4, 15)) << name;
  }
}

TEST_F(NewCommandTest, AccessFilesAreMadeOfTheSameTables) {
  New({Folder(), "--access"});
  EXPECT_EQ((std::vector<std::string>{"Rooms", "Reserv", "ChangeJournal", "ChangeJournalSwitch"}),
            Open("Calendar.mdb").TableNames());
  EXPECT_EQ((std::vector<std::string>{"Guest"}), Open("Veyra.mdb").TableNames());
}

TEST_F(NewCommandTest, TheSampleInAccessFilesIsTheSame) {
  New({Folder(), "--access", "--sample"});
  const SampleData sample = MakeSampleData(kToday);
  Connection calendar = Open("Calendar.mdb");
  auto bookings = calendar.Open("SELECT * FROM Reserv", CursorType::ForwardOnlyReadOnly);
  for (const SampleBooking& booking : sample.Bookings) {
    ASSERT_FALSE(bookings->AtEnd());
    EXPECT_EQ(booking.Event, ToText(bookings->Field("Event")));
    EXPECT_EQ(booking.Day, ToDate(bookings->Field("DateOfRes")));
    EXPECT_EQ(booking.TimeFrom, ToInteger(bookings->Field("TimeFrom")));
    EXPECT_EQ(booking.MultKey, ToInteger(bookings->Field("MultKey")));
    bookings->MoveNext();
  }
  EXPECT_TRUE(bookings->AtEnd());
  EXPECT_EQ(sample.Guests.size(), RowsOf("Veyra.mdb", "Guest"));
}

TEST_F(NewCommandTest, AccessFilesLeaveNothingBesideThem) {
  New({Folder(), "--access", "--sample"});
  EXPECT_EQ((Names{"Calendar.mdb", "Veyra.mdb"}), FilesIn(Folder()));
}

TEST_F(NewCommandTest, AFacilityAddedToAnAccessSampleGetsTheNextNumber) {
  New({Folder(), "--access", "--sample"});
  const auto store = OpenStore(Folder() + "/Calendar.mdb", StoreAccess::ReadWrite);
  EXPECT_EQ(Value(std::int64_t{6}), store->Insert("Rooms", {{"Name", "Attic"}}).Values.front());
}

TEST_F(NewCommandTest, SaysWhatItMade) {
  New({Folder()});
  EXPECT_EQ("Made Calendar.mdb and Veyra.mdb in " + Folder() + ".\n", out_.str());
}

TEST_F(NewCommandTest, MakesTheFoldersAboveToo) {
  const std::string deep = Folder() + "/a/b";
  New({deep});
  EXPECT_EQ((Names{"Calendar.mdb", "Veyra.mdb"}), FilesIn(deep));
}

TEST_F(NewCommandTest, UsesAFolderThatIsThereAndKeepsWhatIsInIt) {
  fs::create_directory(Folder());
  temp_.Write("data/notes.txt", "mine");
  New({Folder()});
  EXPECT_EQ((Names{"Calendar.mdb", "Veyra.mdb", "notes.txt"}), FilesIn(Folder()));
}

class NewCommandRefusalTest : public NewCommandTest,
                              public ::testing::WithParamInterface<const char*> {};

TEST_P(NewCommandRefusalTest, WritesOverNothingAndMakesNothing) {
  fs::create_directory(Folder());
  const std::string name = std::string("data/") + GetParam();
  temp_.Write(name, "precious");
  EXPECT_THROW(New({Folder(), "--sample"}), FileError);
  EXPECT_EQ((Names{GetParam()}), FilesIn(Folder()));
  EXPECT_EQ("precious", temp_.Read(name));
}

INSTANTIATE_TEST_SUITE_P(, NewCommandRefusalTest,
                         ::testing::Values("Calendar.mdb", "Veyra.mdb", "Calendar.mdb-wal",
                                           "Veyra.mdb-journal"));

TEST_F(NewCommandTest, ALinkThatLeadsNowhereIsAFileThatIsThere) {
  fs::create_directory(Folder());
  fs::create_symlink("/nowhere", Folder() + "/Veyra.mdb");
  EXPECT_THROW(New({Folder()}), FileError);
  EXPECT_EQ((Names{"Veyra.mdb"}), FilesIn(Folder()));
}

TEST_F(NewCommandTest, AFileInPlaceOfTheFolderIsReported) {
  temp_.Write("data", "a file");
  EXPECT_THROW(New({Folder()}), FileError);
  EXPECT_EQ("a file", temp_.Read("data"));
}

TEST_F(NewCommandTest, AFolderThatCannotBeMadeLeavesNoneOfThoseAbove) {
  const std::string too_long = Folder() + "/" + std::string(300, 'x');
  EXPECT_THROW(New({too_long}), FileError);
  EXPECT_FALSE(fs::exists(Folder()));
}

TEST_F(NewCommandTest, ACommandLineThatIsNotUnderstoodMakesNothing) {
  EXPECT_THROW(New({}), CLI::ParseError);
  EXPECT_THROW(New({""}), CLI::ParseError);
  EXPECT_THROW(New({Folder(), "another"}), CLI::ParseError);
  EXPECT_THROW(New({Folder(), "--simple"}), CLI::ParseError);
  EXPECT_FALSE(fs::exists(Folder()));
}

}  // namespace
}  // namespace veyra
