#include <filesystem>

#include "tests/tools/companion/kept_calendar.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

class ListCommandTest : public KeptCalendarTest {
 protected:
  Ended List(const Arguments& options) const {
    Arguments arguments{"list", Folder()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return RunProgram(arguments);
  }
  std::string Listed(const Arguments& options) const { return List(options).Out; }
};

VEYRA_FOR_ALL_KINDS(ListCommandTest);

TEST_P(ListCommandTest, ADayInTheLinesOfTheMonthCells) {
  Book(hall_, "2026-03-02", 47, 48, "Party");
  Book(hall_, "2026-03-02", 19, 21, "Smith");
  Book(pool_, "2026-03-02", 1, 2, "Early Swim");
  Book(pool_, "2026-03-03", 1, 2, "Tomorrow");
  EXPECT_EQ(
      "Monday - 3/2/2026\n"
      "  Pool\n"
      "    12:00A- 1:00A Early Swim\n"
      "  Main Hall\n"
      "     9:00A-10:30A Smith\n"
      "    11:00P-12:00A Party\n",
      Listed({"--on", "3/2/2026"}));
}

TEST_P(ListCommandTest, AWeekBeginsOnItsSunday) {
  for (const char* day : {"2026-02-28", "2026-03-01", "2026-03-07", "2026-03-08"}) {
    Book(pool_, day, 19, 19, day);
  }
  EXPECT_EQ(
      "Sunday - 3/1/2026\n"
      "  Pool\n"
      "     9:00A- 9:30A 2026-03-01\n"
      "\n"
      "Saturday - 3/7/2026\n"
      "  Pool\n"
      "     9:00A- 9:30A 2026-03-07\n",
      Listed({"--on", "2026-03-04", "--week"}));
}

TEST_P(ListCommandTest, AMonthOfOneFacility) {
  for (const char* day : {"2028-01-31", "2028-02-01", "2028-02-29", "2028-03-01"}) {
    Book(pool_, day, 19, 19, day);
    Book(hall_, day, 19, 19, "Hall");
  }
  EXPECT_EQ(
      "Tuesday - 2/1/2028\n"
      "  Pool\n"
      "     9:00A- 9:30A 2028-02-01\n"
      "\n"
      "Tuesday - 2/29/2028\n"
      "  Pool\n"
      "     9:00A- 9:30A 2028-02-29\n",
      Listed({"--on", "2/15/2028", "--month", "--facility", "pool"}));
}

TEST_P(ListCommandTest, BothEndsOfARangeBelongToIt) {
  for (const char* day : {"2026-03-01", "2026-03-02", "2026-03-09", "2026-03-10"}) {
    Book(pool_, day, 19, 19, day);
  }
  const std::string listed = Listed({"--from", "3/2/2026", "--to", "3/9/2026"});
  EXPECT_EQ(std::string::npos, listed.find("2026-03-01"));
  EXPECT_NE(std::string::npos, listed.find("2026-03-02"));
  EXPECT_NE(std::string::npos, listed.find("2026-03-09"));
  EXPECT_EQ(std::string::npos, listed.find("2026-03-10"));
}

TEST_P(ListCommandTest, ANameIsFoundOnAllDaysInAnyLetterCase) {
  Book(pool_, "1999-03-01", 19, 19, "Zo\xC3\x8B Smith");
  Book(pool_, "2031-03-01", 19, 19, "Jones");
  EXPECT_EQ(
      "Monday - 3/1/1999\n"
      "  Pool\n"
      "     9:00A- 9:30A Zo\xC3\x8B Smith\n",
      Listed({"--guest", "zo\xC3\xAB"}));
}

TEST_P(ListCommandTest, TheTimesThatAreFreeForSoLong) {
  Book(pool_, "2026-03-02", 5, 6, "A");
  Book(pool_, "2026-03-02", 10, 45, "B");
  EXPECT_EQ(
      "Monday - 3/2/2026\n"
      "  Pool\n"
      "    12:00A- 2:00A\n"
      "  Main Hall\n"
      "    12:00A-12:00A\n",
      Listed({"--on", "3/2/2026", "--free", "2h"}));
}

TEST_P(ListCommandTest, ABookingIsNeverFreeTime) {
  Book(pool_, "2026-03-02", 1, 30, "A");
  Book(pool_, "2026-03-02", 3, 4, "Inside A");
  Book(pool_, "2026-03-02", 31, 48, "B");
  const Ended ended = List({"--on", "3/2/2026", "--free", "30m", "--facility", "Pool"});
  EXPECT_EQ("", ended.Out);
  EXPECT_EQ(1, ended.Status);
}

TEST_P(ListCommandTest, ProgramsGetTheSameAsJson) {
  Book(pool_, "2026-03-02", 47, 48, "A \"quoted\"\nname", Value(20260302093000.0));
  EXPECT_EQ(
      "[\n"
      "  {\n"
      "    \"facility\": \"Pool\",\n"
      "    \"date\": \"2026-03-02\",\n"
      "    \"from\": \"23:00\",\n"
      "    \"to\": \"24:00\",\n"
      "    \"line\": \"11:00P-12:00A A \\\"quoted\\\" name\",\n"
      "    \"name\": \"A \\\"quoted\\\"\\nname\",\n"
      "    \"series\": \"20260302093000\"\n"
      "  }\n"
      "]\n",
      Listed({"--on", "3/2/2026", "--json"}));
}

TEST_P(ListCommandTest, ANameCannotStartAnotherLineOrTurnIt) {
  Book(pool_, "2026-03-02", 19, 19,
       "A\nB\x1B[2J\xE2\x80\xAE"
       "C");
  EXPECT_NE(std::string::npos, Listed({"--on", "3/2/2026"}).find(" A B [2JC\n"));
}

TEST_P(ListCommandTest, AnEmptyDayEndsWithOne) {
  const Ended ended = List({"--on", "3/2/2026"});
  EXPECT_EQ(1, ended.Status);
  EXPECT_EQ("", ended.Out + ended.Err);
  EXPECT_EQ("[]\n", Listed({"--on", "3/2/2026", "--json"}));
}

TEST_P(ListCommandTest, WhatIsAskedForWronglyEndsWithTwo) {
  for (const Arguments& wrong :
       {Arguments{"--on", "2/30/2026"}, Arguments{"--facility", "Sauna"},
        Arguments{"--free", "long"}, Arguments{"--free", "25h"}, Arguments{"--week", "--month"},
        Arguments{"--from", "3/2/2026", "--to", "3/1/2026"}}) {
    const Ended ended = List(wrong);
    EXPECT_EQ(2, ended.Status) << wrong.back();
    EXPECT_EQ("", ended.Out);
    EXPECT_EQ(0U, ended.Err.find("veyra-data: ")) << ended.Err;
  }
  EXPECT_NE(std::string::npos, List({"--facility", "Sauna"}).Err.find("Pool, Main Hall"));
}

TEST_P(ListCommandTest, TheDeskGoesOnWithTheFileOpen) {
  const auto desk = Desk();
  desk->Insert("Reserv", {{"RmID", pool_},
                          {"Event", std::string("Now")},
                          {"DateOfRes", MakeDate(2026, 3, 2).value()},
                          {"TimeFrom", std::int64_t{1}},
                          {"TimeTo", std::int64_t{1}}});
  EXPECT_NE(std::string::npos, Listed({"--on", "3/2/2026"}).find("12:00A-12:30A Now\n"));
}

class DefaultFolderTest : public testing::Test {
 protected:
  DefaultFolderTest() { fs::copy_file(VEYRA_DATA_PROGRAM, temp_.File("veyra-data")); }

  Ended List() const {
    return RunShell(
        ProgramLine({"list", "--on", "3/2/2026", "--json"}, temp_.File("veyra-data").string()));
  }

  TempFolder temp_;
};

TEST_F(DefaultFolderTest, ItIsTheOneThatPathTxtBesideTheProgramNames) {
  const std::string folder = temp_.File("our data").string();
  ASSERT_EQ(0, RunProgram({"new", folder}).Status);
  temp_.Write("path.txt", "\xEF\xBB\xBF" + folder + " \r\nother\r\n");
  const Ended ended = List();
  EXPECT_EQ("[]\n", ended.Out) << ended.Err;
}

TEST_F(DefaultFolderTest, WithoutPathTxtItMustBeNamed) {
  const Ended ended = List();
  EXPECT_EQ(2, ended.Status);
  EXPECT_NE(std::string::npos, ended.Err.find("Name the data folder on the command line"));
  EXPECT_FALSE(fs::exists(temp_.File("path.txt")));
}

TEST_F(DefaultFolderTest, AnEmptyPathTxtOrAPipeIsNotWaitedFor) {
  temp_.Write("path.txt", "\r\n");
  EXPECT_EQ(2, List().Status);
  fs::remove(temp_.File("path.txt"));
  ASSERT_EQ(0, RunShell("mkfifo " + ShellQuoted(temp_.File("path.txt").string())).Status);
  EXPECT_EQ(2, List().Status);
}

TEST(FullDiskTest, AListThatCannotBeWrittenIsAFailure) {
  const TempFolder temp;
  const std::string folder = temp.File("data").string();
  ASSERT_EQ(0, RunProgram({"new", folder, "--sample"}).Status);
  const Ended ended = RunShell(ProgramLine({"list", folder, "--from", "1/1/2000"}) + " >/dev/full");
  EXPECT_EQ(2, ended.Status);
  EXPECT_NE("", ended.Err);
}

}  // namespace
}  // namespace veyra
