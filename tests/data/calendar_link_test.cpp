#include "data/calendar_link.h"

#include <gtest/gtest.h>

#include "data/errors.h"
#include "data/open_store.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

class CalendarLinkTest : public testing::Test {
 protected:
  std::string File() const { return folder_.File("Calendar.mdb").string(); }

  CalendarLink Reading(const std::string& text) const {
    folder_.Write("Calendar.mdb", text);
    return ReadCalendarLink(File());
  }

  std::string CauseOf(const std::string& text) const {
    try {
      Reading(text);
    } catch (const DatabaseError& error) {
      EXPECT_EQ(File(), error.report().File);
      EXPECT_NE("", error.report().Advice);
      return error.report().Cause.English();
    }
    ADD_FAILURE() << "no report of " << text;
    return {};
  }

  TempFolder folder_;
};

TEST_F(CalendarLinkTest, WhatIsWrittenIsRead) {
  WriteCalendarLink(File(), {.Server = "service=houses", .Schema = "garden house"});
  EXPECT_EQ("service=houses", ReadCalendarLink(File()).Server);
  EXPECT_EQ("garden house", ReadCalendarLink(File()).Schema);
  EXPECT_EQ(std::vector<std::string>{"Calendar.mdb"}, folder_.Names());
}

TEST_F(CalendarLinkTest, TheUsualSchemaIsNotWritten) {
  WriteCalendarLink(File(), {.Server = "postgresql:///houses"});
  EXPECT_EQ("veyra calendar link 1\npostgresql:///houses\n", folder_.Read("Calendar.mdb"));
  EXPECT_EQ("veyra", ReadCalendarLink(File()).Schema);
}

TEST_F(CalendarLinkTest, AFileThatIsThereStays) {
  folder_.Write("Calendar.mdb", "mine");
  EXPECT_THROW(WriteCalendarLink(File(), {.Server = "service=houses"}), DatabaseError);
  EXPECT_EQ("mine", folder_.Read("Calendar.mdb"));
}

TEST_F(CalendarLinkTest, WhatDoesNotFitInALineIsRefused) {
  for (const char* text : {"", "a\nb", "a\rb"}) {
    EXPECT_THROW(WriteCalendarLink(File(), {.Server = text}), DatabaseError);
    EXPECT_THROW(WriteCalendarLink(File(), {.Server = "x", .Schema = text}), DatabaseError);
  }
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(CalendarLinkTest, LinesOfAnotherEditorAreRead) {
  const CalendarLink link =
      Reading("veyra calendar link 1\r\nservice=houses\r\nschema=garden\r\n\r\n");
  EXPECT_EQ("service=houses", link.Server);
  EXPECT_EQ("garden", link.Schema);
}

TEST_F(CalendarLinkTest, ALastLineNeedsNoEnd) {
  EXPECT_EQ("service=houses", Reading("veyra calendar link 1\nservice=houses").Server);
}

TEST_F(CalendarLinkTest, ALaterVersionIsToldByItsNumber) {
  EXPECT_NE(std::string::npos,
            CauseOf("veyra calendar link 2\nx\n").find("\"veyra calendar link 2\""));
}

TEST_F(CalendarLinkTest, WhatIsNoLinkIsReported) {
  EXPECT_EQ("The file is not a link to a shared calendar.", CauseOf("something\nelse\n"));
  EXPECT_EQ("The link names no server.", CauseOf("veyra calendar link 1\n"));
  EXPECT_EQ("The link names no server.", CauseOf("veyra calendar link 1\n\nservice=x\n"));
  EXPECT_EQ("Line 3 of the link is not understood: \"garden\".",
            CauseOf("veyra calendar link 1\nservice=x\ngarden\n"));
}

TEST_F(CalendarLinkTest, AFileThatOnlyBeginsLikeOneIsNone) {
  EXPECT_TRUE(IsCalendarLink("veyra calendar link 1\nservice=x\n"));
  EXPECT_FALSE(IsCalendarLink("veyra calendar lin"));
  EXPECT_FALSE(IsCalendarLink("Veyra calendar link 1"));
}

/// Whether or not there is anything that talks to servers, the link is told from a database.
TEST_F(CalendarLinkTest, OpeningNamesTheLinkThatLeadsNowhere) {
  WriteCalendarLink(File(), {.Server = "host=" + File() + " dbname=houses"});
  try {
    OpenStore(File(), StoreAccess::ReadWrite);
    FAIL() << "opened";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(File(), error.report().File);
    EXPECT_NE(std::string::npos, error.report().Cause.English().find("server"))
        << error.report().Cause;
  }
}

}  // namespace
}  // namespace veyra
