#include <algorithm>
#include <filesystem>

#include "tests/tools/companion/kept_calendar.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

class ExchangeTest : public KeptCalendarTest {
 protected:
  Ended Export(const std::string& name, const Arguments& options = {}) const {
    Arguments arguments{"export", name == "-" ? name : File(name), Folder()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return RunProgram(arguments);
  }

  /// Imports a file with these bytes.
  Ended Import(const std::string& name, const std::string& bytes,
               const Arguments& options = {}) const {
    temp_.Write(name, bytes);
    Arguments arguments{"import", File(name), Folder()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return RunShell("TZ=Europe/Berlin " + ProgramLine(arguments));
  }

  static std::string Calendar(const std::string& events) {
    std::string text = "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:test\n" + events + "END:VCALENDAR\n";
    for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2) {
      text.replace(at, 1, "\r\n");
    }
    return text;
  }
  static std::string Event(const std::string& lines, const std::string& uid = "one") {
    return "BEGIN:VEVENT\nUID:" + uid + "\nDTSTAMP:20260101T000000Z\nCATEGORIES:Pool\n" + lines +
           "END:VEVENT\n";
  }
};

VEYRA_FOR_ALL_KINDS(ExchangeTest);

TEST_P(ExchangeTest, CsvOfARangeOfOneFacility) {
  Book(pool_, "2026-03-02", 19, 21, "Smith, \"John\"");
  Book(pool_, "2026-03-03", 47, 48, "=HYPERLINK(1)", Value(20260302093000.0));
  Book(pool_, "2026-03-04", 1, 1, "Too late");
  Book(hall_, "2026-03-02", 1, 1, "Elsewhere");
  const Ended ended = Export("-", {"--format", "csv", "--facility", "Pool", "--to", "3/3/2026"});
  EXPECT_EQ(
      "Facility,Date,From,To,Name,Series\r\n"
      "Pool,2026-03-02,09:00,10:30,\"Smith, \"\"John\"\"\",\r\n"
      "Pool,2026-03-03,23:00,24:00,'=HYPERLINK(1),20260302093000\r\n",
      ended.Out);
  EXPECT_EQ(0, ended.Status);
}

TEST_P(ExchangeTest, WhatWasExportedComesBackTheSame) {
  Book(pool_, "2026-03-02", 19, 21, "Smith, \"John\"; \\ + co");
  Book(pool_, "2026-03-03", 47, 48, "=1+1", Value(20260302093000.0));
  Book(pool_, "2026-03-10", 47, 48, "=1+1", Value(20260302093000.0));
  Book(hall_, "2026-03-29", 5, 6, "Zo\xC3\xAB in the hour that is skipped");
  const std::string before = Rows("Reserv");
  for (const char* name : {"all.csv", "all.ics"}) {
    ASSERT_EQ(0, Export(name).Status);
    const auto desk = Desk();
    std::vector<Row> rows;
    const auto source = desk->Select(ParseQuery("SELECT * FROM Reserv"));
    for (Row row; source->Next(row);) {
      rows.push_back(row);
    }
    for (const Row& row : rows) {
      desk->Delete("Reserv", row);
    }
    ASSERT_EQ("", Rows("Reserv"));
    const Ended ended = Import(name, temp_.Read(name));
    EXPECT_EQ(0, ended.Status) << ended.Err << ended.Out;
    EXPECT_EQ(before, Rows("Reserv")) << name;
  }
}

TEST_P(ExchangeTest, TheSameFileTwiceChangesNothing) {
  Book(pool_, "2026-03-02", 19, 21, "Smith");
  for (const char* name : {"all.csv", "all.ics"}) {
    ASSERT_EQ(0, Export(name).Status);
    const std::string before = Rows("Reserv");
    const Ended ended = Import(name, temp_.Read(name));
    EXPECT_EQ("Added 0 bookings; 1 were there already, 0 clash.\n", ended.Out);
    EXPECT_EQ(1, ended.Status);
    EXPECT_EQ(before, Rows("Reserv"));
  }
}

TEST_P(ExchangeTest, AnEventHasAStableUidACategoryAndItsSeriesARelation) {
  Book(pool_, "2026-03-02", 19, 48, "Smith", Value(20260302093000.0));
  const std::string one = Export("-", {"--format", "ics"}).Out;
  const std::string other = Export("-", {"--format", "ics", "--from", "3/2/2026"}).Out;
  const auto uid = [](const std::string& text) { return text.substr(text.find("UID:"), 36); };
  EXPECT_EQ(uid(one), uid(other));
  for (const char* line :
       {"DTSTART:20260302T090000\r\n", "DTEND:20260303T000000\r\n", "SUMMARY:Smith\r\n",
        "CATEGORIES:Pool\r\n", "RELATED-TO;RELTYPE=SIBLING:"}) {
    EXPECT_NE(std::string::npos, one.find(line)) << line << one;
  }
}

TEST_P(ExchangeTest, AnExportNeverWritesOverAFileUnlessToldSo) {
  temp_.Write("all.csv", "mine");
  EXPECT_EQ(2, Export("all.csv").Status);
  EXPECT_EQ("mine", temp_.Read("all.csv"));
  EXPECT_EQ(0, Export("all.csv", {"--replace"}).Status);
  EXPECT_EQ("Facility,Date,From,To,Name,Series\r\n", temp_.Read("all.csv"));
}

TEST_P(ExchangeTest, ADiskThatFillsHalfWayLeavesNoExport) {
  std::string csv = "Date,From,To,Name\n";
  for (int day = 0; day < 100; ++day) {
    csv += IsoText(AddDays(MakeDate(2026, 3, 2).value(), day)) + ",9:00,10:00,Somebody\n";
  }
  ASSERT_EQ(0, Import("in.csv", csv, {"--facility", "Pool"}).Status);
  const Ended ended =
      RunShell("trap '' XFSZ; ulimit -f 2; " + ProgramLine({"export", File("all.csv"), Folder()}));
  EXPECT_EQ(2, ended.Status);
  EXPECT_NE(std::string::npos, ended.Err.find("Check that the disk has room.")) << ended.Err;
  EXPECT_EQ((std::vector<std::string>{"data", "in.csv"}), temp_.Names());
}

TEST_P(ExchangeTest, TimesAreRoundedOutwardsAndSaidSo) {
  const Ended ended = Import("in.csv",
                             "facility,date,from,to,name\r\n"
                             "Pool,3/2/2026,9:10 AM,10:05A,Smith\r\n");
  EXPECT_EQ("1 Smith 2026-03-02 19 21 \n", Rows("Reserv"));
  EXPECT_NE(std::string::npos,
            ended.Out.find("note: line 2: Smith on 3/2/2026 was rounded outwards"))
      << ended.Out;
}

TEST_P(ExchangeTest, WhatRunsOverMidnightIsSplit) {
  EXPECT_EQ(0, Import("in.csv", "Date,From,To,Name\n2026-12-31,22:00,1:00,Ball\n",
                      {"--facility", "Main Hall"})
                   .Status);
  EXPECT_EQ("2 Ball 2026-12-31 45 48 \n2 Ball 2027-01-01 1 2 \n", Rows("Reserv"));
}

TEST_P(ExchangeTest, RepetitionsAreExpandedInsideTheRange) {
  const std::string weekly =
      Calendar(Event("SUMMARY:Yoga\nDTSTART:20260302T090000\nDTEND:20260302T100000\n"
                     "RRULE:FREQ=WEEKLY;BYDAY=MO,WE\nEXDATE:20260309T090000\n") +
               Event("SUMMARY:Yoga late\nRECURRENCE-ID:20260311T090000\nDTSTART:20260311T110000\n"
                     "DURATION:PT1H\n"));
  const Ended ended = Import("in.ics", weekly, {"--from", "3/3/2026", "--to", "3/16/2026"});
  EXPECT_EQ(0, ended.Status) << ended.Err;
  const std::string rows = Rows("Reserv");
  EXPECT_EQ(0U, rows.find("1 Yoga 2026-03-04 19 20 ")) << rows;
  EXPECT_NE(std::string::npos, rows.find("\n1 Yoga 2026-03-16 19 20 ")) << rows;
  EXPECT_NE(std::string::npos, rows.find("\n1 Yoga late 2026-03-11 23 24 \n")) << rows;
  EXPECT_EQ(3, std::count(rows.begin(), rows.end(), '\n')) << rows;
  const std::string start = "1 Yoga 2026-03-04 19 20 ";
  const std::string group = rows.substr(start.size(), 14);
  EXPECT_EQ(std::string::npos, group.find_first_not_of("0123456789")) << rows;
  EXPECT_NE(std::string::npos, rows.find("2026-03-16 19 20 " + group + "\n")) << rows;
}

TEST_P(ExchangeTest, WhatRepeatsWithoutEndNeedsALastDay) {
  const Ended ended = Import(
      "in.ics", Calendar(Event("SUMMARY:Yoga\nDTSTART:20260302T090000\nRRULE:FREQ=DAILY\n")));
  EXPECT_EQ(2, ended.Status);
  EXPECT_NE(std::string::npos, ended.Err.find("repeats without end")) << ended.Err;
  EXPECT_EQ("", Rows("Reserv"));
}

TEST_P(ExchangeTest, TimesOfAZoneBecomeLocalOnesAndDaysAreBookedWhole) {
  const Ended ended = Import(
      "in.ics",
      Calendar(
          Event("SUMMARY:Call\nDTSTART:20260701T080000Z\nDTEND:20260701T090000Z\n", "a") +
          Event("SUMMARY:Fair\nDTSTART;VALUE=DATE:20260705\nDTEND;VALUE=DATE:20260707\n", "b") +
          Event("SUMMARY:Off\nSTATUS:CANCELLED\nDTSTART:20260701T080000\n", "c")));
  EXPECT_EQ(0, ended.Status) << ended.Err;
  const std::string rows = Rows("Reserv");
  EXPECT_EQ(0U, rows.find("1 Call 2026-07-01 21 22 \n")) << rows;
  EXPECT_NE(std::string::npos, rows.find("1 Fair 2026-07-05 1 48 ")) << rows;
  EXPECT_NE(std::string::npos, rows.find("1 Fair 2026-07-06 1 48 ")) << rows;
  EXPECT_EQ(std::string::npos, rows.find("Off"));
  EXPECT_EQ(std::string::npos, rows.find("2026-07-07"));
}

TEST_P(ExchangeTest, AClashIsListedAndNothingIsWritten) {
  Book(pool_, "2026-03-02", 20, 21, "Smith");
  const std::string before = Rows("Reserv");
  const std::string csv =
      "Facility,Date,From,To,Name\n"
      "Pool,2026-03-02,9:00,12:00,Encloses Smith\n"
      "Main Hall,2026-03-02,9:00,12:00,Free\n"
      "Main Hall,2026-03-02,11:30,12:00,Within the file\n";
  const Ended refused = Import("in.csv", csv);
  EXPECT_EQ(1, refused.Status);
  EXPECT_NE(std::string::npos,
            refused.Out.find("clash: Pool, 3/2/2026,  9:00A-12:00P Encloses Smith (line 2) clashes "
                             "with  9:30A-10:30A Smith.\n"))
      << refused.Out;
  EXPECT_NE(std::string::npos,
            refused.Out.find("Added 0 bookings; 0 were there already, 2 clash."));
  EXPECT_EQ(before, Rows("Reserv"));
  const Ended skipped = Import("in.csv", csv, {"--skip-clashes"});
  EXPECT_EQ(1, skipped.Status);
  EXPECT_EQ(before + "2 Free 2026-03-02 19 24 \n", Rows("Reserv"));
}

TEST_P(ExchangeTest, ADryRunChangesNothing) {
  const Ended ended =
      Import("in.csv", "Facility,Date,From,To,Name\nPool,2026-03-02,9:00,10:00,A\n", {"--dry-run"});
  EXPECT_EQ(0, ended.Status);
  EXPECT_NE(std::string::npos, ended.Out.find("would add: Pool, 3/2/2026,  9:00A-10:00A A\n"));
  EXPECT_EQ("", Rows("Reserv"));
}

TEST_P(ExchangeTest, FacilitiesThatAreNotThereAreAllNamed) {
  const Ended ended = Import("in.csv",
                             "Facility,Date,From,To,Name\n"
                             "Pool,2026-03-02,9:00,10:00,A\n"
                             "Sauna,2026-03-02,9:00,10:00,A\n"
                             "Bar,2026-03-02,9:00,10:00,A\n");
  EXPECT_EQ(2, ended.Status);
  EXPECT_NE(std::string::npos, ended.Err.find("There is no facility \"Bar\", \"Sauna\"."));
  EXPECT_EQ("", Rows("Reserv"));
}

TEST_P(ExchangeTest, LongEmptyAndManyLinedNamesAreTidied) {
  EXPECT_EQ(0, Import("in.csv",
                      "Date,From,To,Name\n2026-03-02,9:00,10:00,\"two\nlines\"\n"
                      "2026-03-03,9:00,10:00,\n2026-03-04,9:00,10:00," +
                          std::string(60, 'x') + "\n",
                      {"--facility", "Pool"})
                   .Status);
  EXPECT_EQ("1 two lines 2026-03-02 19 20 \n1 No Title 2026-03-03 19 20 \n1 " +
                std::string(50, 'x') + " 2026-03-04 19 20 \n",
            Rows("Reserv"));
}

TEST_P(ExchangeTest, FilesOfTheWrongKindOrCutShortAreClearErrors) {
  const std::string event = Event("SUMMARY:A\nDTSTART:20260302T090000\nDTEND:20260302T100000\n");
  const std::string whole = Calendar(event);
  struct Wrong {
    const char* Name;
    std::string Bytes;
  };
  const std::vector<Wrong> all = {
      {"a.ics", ""},
      {"b.ics", "Dear diary"},
      {"c.ics", whole.substr(0, whole.size() - 20)},
      {"d.ics", whole.substr(0, whole.size() / 2)},
      {"e.ics", std::string("BEGIN:VCALENDAR\0\0", 17)},
      {"f.ics", Calendar(Event("SUMMARY:A\nDTSTART:20260232T990000\n"))},
      {"g.ics", Calendar(Event("SUMMARY:A\n"))},
      {"h.ics", Calendar(Event("SUMMARY:A\nDTSTART:20260302T090000\nDTEND:20260301T090000\n"))},
      {"i.ics", Calendar(Event("SUMMARY:A\nDTSTART:20260302T090000\n"
                               "RRULE:FREQ=SECONDLY;UNTIL=20300101T000000\n"))},
      {"a.csv", ""},
      {"b.csv", "Dear diary\n"},
      {"c.csv", "Date,From,To,Name\n2026-02-30,9:00,10:00,A\n"},
      {"d.csv", "Date,From,To,Name\n2026-03-02,nine,10:00,A\n"},
      {"e.csv", "Date,From,To,Name\n2026-03-02,9:00\n"},
      {"f.csv", "Date,From,To,Name\n2026-03-02,9:00,10:00,\"A\n"},
      {"g.csv", "Date,From,To,Name\n2026-03-02,9:00,10:00,Caf\xE9\n"},
      {"h.txt", "Date,From,To,Name\n"},
  };
  for (const Wrong& wrong : all) {
    const Ended ended = Import(wrong.Name, wrong.Bytes, {"--facility", "Pool"});
    EXPECT_EQ(2, ended.Status) << wrong.Name << ended.Out;
    EXPECT_NE(std::string::npos, ended.Err.find(wrong.Name)) << ended.Err;
    EXPECT_EQ("", ended.Out);
  }
  EXPECT_EQ("", Rows("Reserv"));
}

TEST_P(ExchangeTest, AHundredMegabytesAreRefusedAtOnce) {
  temp_.Write("big.csv", "");
  fs::resize_file(File("big.csv"), 100U << 20U);
  const Ended ended = RunProgram({"import", File("big.csv"), Folder()});
  EXPECT_EQ(2, ended.Status);
  EXPECT_NE(std::string::npos, ended.Err.find("larger than 50 MB")) << ended.Err;
}

TEST_P(ExchangeTest, TwoCompanionsAtOnceBookEachBookingOnce) {
  std::string csv = "Date,From,To,Name\n";
  for (int i = 0; i < 30; ++i) {
    csv += IsoText(AddDays(MakeDate(2026, 3, 2).value(), i)) + ",9:00,10:00,Somebody\n";
  }
  temp_.Write("in.csv", csv);
  const std::string line =
      ProgramLine({"import", File("in.csv"), Folder(), "--facility", "Pool"}) + " & ";
  RunShell(line + line + line + "wait");
  const std::string rows = Rows("Reserv");
  EXPECT_EQ(30, std::count(rows.begin(), rows.end(), '\n'));
}

TEST_P(ExchangeTest, WhatTheDeskBooksMeanwhileIsNeverBookedOver) {
  temp_.Write("in.csv", "Date,From,To,Name\n2026-03-02,9:00,10:00,Imported\n");
  const auto desk = Desk();
  desk->Insert("Reserv", {{"RmID", pool_},
                          {"Event", std::string("Desk")},
                          {"DateOfRes", MakeDate(2026, 3, 2).value()},
                          {"TimeFrom", std::int64_t{20}},
                          {"TimeTo", std::int64_t{20}}});
  const Ended ended = RunProgram({"import", File("in.csv"), Folder(), "--facility", "Pool"});
  EXPECT_EQ(1, ended.Status);
  EXPECT_EQ(std::string::npos, Rows("Reserv").find("Imported"));
}

TEST_P(ExchangeTest, WithoutItsModuleTheProgramStillExchangesCsv) {
  fs::copy_file(VEYRA_DATA_PROGRAM, File("veyra-data"));
  const auto export_to = [&](const char* name) {
    return RunShell(ProgramLine({"export", File(name), Folder()}, File("veyra-data")));
  };
  const Ended ended = export_to("all.ics");
  EXPECT_EQ(2, ended.Status);
  EXPECT_NE(std::string::npos, ended.Err.find("veyra-ical.so\nThis part of the program cannot"))
      << ended.Err;
  EXPECT_FALSE(fs::exists(File("all.ics")));
  EXPECT_EQ(0, export_to("all.csv").Status);
}

}  // namespace
}  // namespace veyra
