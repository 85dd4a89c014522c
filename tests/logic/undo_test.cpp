#include "logic/undo.h"

#include "data/color_settings.h"
#include "data/journal.h"
#include "data/open_file_store.h"
#include "logic/delete_facility.h"
#include "logic/facilities.h"
#include "tests/logic/bookings_fixture.h"

namespace veyra::modRes {
namespace {

/// What the desk does, in a calendar that keeps a journal, taken back.
class UndoTest : public BookingsFixture {
 protected:
  UndoTest() { Open()->KeepJournal(true); }

  std::unique_ptr<FileStore> Open() const {
    return OpenFileStore(folder_.File("Calendar.mdb"), StoreAccess::ReadWrite);
  }

  /// The actions that are left to be taken back, the last one in front.
  std::string Names() const {
    std::string names;
    for (const JournalAction& action : ReadJournal(*Open())) {
      const std::size_t rows = NetChanges(action).size();
      names += rows == 0 ? "" : action.Name + " " + std::to_string(rows) + "\n";
    }
    return names;
  }

  /// What is looked up of each name, the last one in front.
  std::string TranslatedNames() const {
    std::string names;
    for (const JournalAction& action : ReadJournal(*Open())) {
      const Phrase name = ActionWords(action.Name);
      EXPECT_EQ(action.Name, name.English());
      const auto whole = [&](const std::string& pattern) {
        names += "<" + pattern + "> ";
        return pattern;
      };
      name.TranslatedBy(whole);
    }
    return names;
  }

  /// Takes the last action back and returns what stands in the way.
  std::vector<Phrase> Undo() {
    const auto store = Open();
    const auto action = LastAction(*store);
    const UndoPlan plan = PlanUndo(*store, action.value(), JournalWords(*store, {*action}));
    if (plan.Obstacles.empty()) {
      CarryOutUndo(*store, plan);
    }
    return plan.Obstacles;
  }
};

TEST_F(UndoTest, ABookingIsAnAction) {
  Book("Smith", 19, 21);
  EXPECT_EQ("New booking 1\n", Names());
  EXPECT_TRUE(Undo().empty());
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(UndoTest, ASeriesIsOneAction) {
  Book("Smith", 1, 2);
  BookSeveral("Choir", 19, 21, "4/6/2014", "4/20/2014", {1});
  EXPECT_EQ("New series 3\nNew booking 1\n", Names());
  EXPECT_TRUE(Undo().empty());
  EXPECT_EQ("1 2014-04-06 1-2 Smith\n", folder_.Bookings());
}

TEST_F(UndoTest, AnUndoIsUndone) {
  BookSeveral("Choir", 19, 21, "4/6/2014", "4/20/2014", {1});
  const std::string before = folder_.Bookings();
  EXPECT_TRUE(Undo().empty());
  EXPECT_EQ("", folder_.Bookings());
  EXPECT_TRUE(Undo().empty());
  EXPECT_EQ("Undo of 4 3\nUndo of 1 3\nNew series 3\n", Names());
  std::string after = folder_.Bookings();
  EXPECT_EQ(before.size(), after.size());
}

TEST_F(UndoTest, ADeletedSeriesComesBack) {
  AddGroup();
  const std::string before = folder_.Bookings();
  dialogs_.AnswerNext(Answer::Yes);
  Delete(19, 19);
  EXPECT_EQ("2 2014-04-06 19-21 Choir 20140401120000\n", folder_.Bookings());
  EXPECT_EQ(0U, Names().find("Series deleted 3\n"));
  EXPECT_TRUE(Undo().empty());
  EXPECT_EQ(4, std::count(before.begin(), before.end(), '\n'));
  const std::string after = folder_.Bookings();
  EXPECT_EQ(4, std::count(after.begin(), after.end(), '\n'));
}

TEST_F(UndoTest, ARenamedSeriesHasItsNameAgain) {
  AddGroup();
  const std::string before = folder_.Bookings();
  dialogs_.AnswerNext(Answer::Yes);
  Rename(19, 19, "Band");
  EXPECT_NE(before, folder_.Bookings());
  EXPECT_EQ(0U, Names().find("Series renamed 3\n"));
  EXPECT_TRUE(Undo().empty());
  EXPECT_EQ(before, folder_.Bookings());
}

TEST_F(UndoTest, ADeletedFacilityComesBackWithItsBookings) {
  AddGroup();
  const std::string before = folder_.Bookings();
  NameBox box;
  std::string caption;
  LoadFacilities(Desk(), box);
  DeleteFacility(Desk(), box, caption, dialogs_);
  EXPECT_EQ("2 Hall active\n", folder_.Rooms());
  EXPECT_TRUE(Undo().empty());
  std::string rooms = folder_.Rooms();
  EXPECT_NE(std::string::npos, rooms.find("1 Pool\n")) << rooms;
  EXPECT_NE(std::string::npos, rooms.find("2 Hall active\n")) << rooms;
  const std::string after = folder_.Bookings();
  EXPECT_EQ(before.size(), after.size());
}

TEST_F(UndoTest, PickingAFacilityIsNotWhatIsUndone) {
  Book("Smith", 19, 21);
  SelectFacility(Desk(), "Hall");
  EXPECT_EQ("New booking", LastAction(*Open()).value().Name);
}

TEST_F(UndoTest, WhateverTheDeskDoesHasANameInTheOperatorsLanguage) {
  folder_.Calendar()->CreateTable(CalendarTables().back());
  folder_.Calendar()->Insert("Settings", {{"ID", std::int64_t{1}}});
  Book("Smith", 1, 2);
  Rename(1, 2, "Jones");
  Delete(1, 2);
  BookSeveral("Choir", 19, 21, "4/6/2014", "4/20/2014", {1});
  dialogs_.AnswerNext(Answer::Yes);
  Rename(19, 19, "Band");
  dialogs_.AnswerNext(Answer::Yes);
  Delete(19, 19);
  NameBox box;
  box.Text = "Court";
  AddFacility(Desk(), box);
  std::string caption;
  DeleteFacility(Desk(), box, caption, dialogs_);
  ColorSettings colors;
  SaveColorSettings(*Desk().ResCon, DefaultColors(), colors);
  EXPECT_TRUE(Undo().empty());
  EXPECT_EQ(
      "<Undo of %1> <Colors saved> <Facility deleted> <New facility> <Series deleted> "
      "<Series renamed> <New series> <Booking deleted> <Booking renamed> <New booking> ",
      TranslatedNames());
}

TEST_F(UndoTest, PickingAFacilityHasANameInTheOperatorsLanguage) {
  SelectFacility(Desk(), "Hall");
  const auto looked_up = [](const std::string&) { return "?"; };
  EXPECT_EQ("?", ActionWords("Facility picked").TranslatedBy(looked_up));
  for (const JournalAction& action : ReadJournal(*Open())) {
    EXPECT_EQ("Facility picked", action.Name);
  }
}

TEST_F(UndoTest, ANameThatThisVersionDoesNotGiveStaysAsItIs) {
  for (const std::string name : {"Spring cleaning", "Undo of it all", "Undo of ", "Import of ",
                                 "new booking", "check --mend"}) {
    EXPECT_EQ(name, ActionWords(name).TranslatedBy([](const std::string&) { return "?"; }));
  }
}

TEST_F(UndoTest, WhatWasBookedSinceStandsInTheWay) {
  Book("Smith", 19, 21);
  Delete(19, 21);
  // Not a booking of this facility, and not at that time.
  folder_.AddBooking(hall_, "2014-04-06", 19, 21, "Elsewhere");
  folder_.AddBooking(pool_, "2014-04-06", 22, 22, "Later");
  folder_.AddBooking(pool_, "2014-04-06", 21, 30, "Jones");
  const auto store = Open();
  const auto deletion = FindAction(*store, 2).value();
  EXPECT_EQ("Booking deleted", deletion.Name);
  const UndoPlan plan = PlanUndo(*store, deletion, JournalWords(*store, {}));
  EXPECT_EQ((std::vector<Phrase>{"Pool, 4/6/2014,  9:00A-10:30A Smith cannot come back: Pool, "
                                 "4/6/2014, 10:00A- 3:00P Jones stands there now."}),
            plan.Obstacles);
}

TEST_F(UndoTest, AFacilityOfTheSameNameStandsInTheWay) {
  NameBox box;
  std::string caption;
  LoadFacilities(Desk(), box);
  DeleteFacility(Desk(), box, caption, dialogs_);
  folder_.AddRoom("Pool");
  const auto store = Open();
  for (const JournalAction& action : ReadJournal(*store)) {
    if (action.Name == "Facility deleted") {
      const UndoPlan plan = PlanUndo(*store, action, JournalWords(*store, {action}));
      EXPECT_EQ((std::vector<Phrase>{
                    "The facility Pool cannot come back: there is a facility Pool now."}),
                plan.Obstacles);
    }
  }
}

TEST_F(UndoTest, ANewFacilityWithBookingsDoesNotGo) {
  NameBox box;
  box.Text = "Court";
  AddFacility(Desk(), box);
  const std::int64_t court = Desk().CurRmID;
  const std::int64_t number = ReadJournal(*Open()).front().Number;
  folder_.AddBooking(court, "2014-04-06", 1, 2, "Tennis");
  const auto store = Open();
  const auto action = FindAction(*store, number).value();
  EXPECT_EQ("New facility", action.Name);
  EXPECT_EQ((std::vector<Phrase>{"The facility Court cannot go: it has 1 bookings now."}),
            PlanUndo(*store, action, JournalWords(*store, {})).Obstacles);
}

TEST_F(UndoTest, ABookingThatCameSinceThePlanIsNotOverwritten) {
  Book("Smith", 19, 21);
  Delete(19, 21);
  const auto store = Open();
  const UndoPlan plan = PlanUndo(*store, LastAction(*store).value(), JournalWords(*store, {}));
  folder_.AddBooking(pool_, "2014-04-06", 20, 20, "Jones");
  EXPECT_THROW(CarryOutUndo(*store, plan), RowChangedError);
  EXPECT_EQ("1 2014-04-06 20-20 Jones\n", folder_.Bookings());
}

}  // namespace
}  // namespace veyra::modRes
