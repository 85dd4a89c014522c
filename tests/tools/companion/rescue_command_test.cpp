#include <filesystem>
#include <fstream>

#include "tests/tools/companion/kept_calendar.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

class RescueCommandTest : public KeptCalendarTest {
 protected:
  Ended Rescue(Arguments more = {}) const {
    Arguments arguments{"rescue", CalendarName(), File("rescued")};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunProgram(arguments);
  }

  /// Empties the page that holds the facilities.
  void DamageRooms() const {
    std::string bytes = temp_.Read("data/Calendar.mdb");
    const std::string name =
        GetParam() == StoreKind::Access ? std::string("\xFF\xFEMain Hall") : "Main Hall";
    const std::size_t at = bytes.find(name);
    ASSERT_NE(std::string::npos, at);
    bytes.replace(at / 4096 * 4096, 4096, std::string(4096, '\0'));
    temp_.Write("data/Calendar.mdb", bytes);
  }
};

VEYRA_FOR_ALL_KINDS(RescueCommandTest);

TEST_P(RescueCommandTest, OfASoundCalendarAllIsRead) {
  Book(pool_, "2026-03-02", 1, 10, "Chess");
  const Ended ended = Rescue();
  EXPECT_EQ(0, ended.Status) << ended.Err;
  EXPECT_NE(std::string::npos, ended.Out.find("Everything could be read.\n"));
  EXPECT_EQ(0, RunProgram({"check", File("rescued/Calendar.mdb")}).Status);
}

TEST_P(RescueCommandTest, WhatIsLostIsListedByTableAndPage) {
  Book(pool_, "2026-03-02", 1, 10, "Chess");
  DamageRooms();
  const std::string before = temp_.Read("data/Calendar.mdb");
  const Ended ended = Rescue();
  EXPECT_EQ(1, ended.Status) << ended.Err;
  EXPECT_NE(std::string::npos, ended.Out.find("\nRooms: 0")) << ended.Out;
  EXPECT_NE(std::string::npos, ended.Out.find("\nRooms, page ")) << ended.Out;
  EXPECT_NE(std::string::npos, ended.Out.find("\nReserv: 1")) << ended.Out;
  EXPECT_EQ(before, temp_.Read("data/Calendar.mdb"));
}

TEST_P(RescueCommandTest, ProgramsAreToldTheSame) {
  DamageRooms();
  const std::string out = Rescue({"--json"}).Out;
  EXPECT_NE(std::string::npos, out.find("\"lost\": [\n    {\n      \"table\": \"Rooms\","));
  EXPECT_NE(std::string::npos, out.find("\"name\": \"Rooms\",\n      \"rows\": 0"));
}

TEST_P(RescueCommandTest, WhatIsNoDatabaseIsRefused) {
  temp_.Write("data/Calendar.mdb", std::string(20000, 'x'));
  const Ended ended = Rescue();
  EXPECT_EQ(2, ended.Status);
  EXPECT_NE(std::string::npos, ended.Err.find("Nothing of a database is left in the file."));
  EXPECT_FALSE(fs::exists(File("rescued")));
}

TEST_P(RescueCommandTest, AMissingFileIsRefused) {
  EXPECT_EQ(2, RunProgram({"rescue", File("none.mdb"), File("rescued")}).Status);
  EXPECT_FALSE(fs::exists(File("rescued")));
}

TEST_P(RescueCommandTest, TheJournalGoesOn) {
  Book(pool_, "2026-03-02", 1, 10, "Chess");
  ASSERT_EQ(0, Rescue().Status);
  const Ended history = RunProgram({"history", File("rescued")});
  EXPECT_NE(std::string::npos, history.Out.find("Chess")) << history.Out << history.Err;
  const Ended status = RunProgram({"journal", "status", File("rescued")});
  EXPECT_NE(std::string::npos, status.Out.find("The journal is kept;")) << status.Out;
}

}  // namespace
}  // namespace veyra
