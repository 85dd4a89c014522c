#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "data/errors.h"
#include "data/schema.h"
#include "tests/data/schema_fixture.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

class OpeningTest : public SchemaTest {
 protected:
  Report ReportOf(void (*open)(Databases&)) {
    try {
      open(databases_);
    } catch (const DatabaseError& error) {
      return error.report();
    }
    ADD_FAILURE() << "no report";
    return {};
  }
};

TEST_F(OpeningTest, OpensTheCalendarInTheDataFolder) {
  MakeCalendar();
  CreateResCon(databases_);
  EXPECT_EQ(File("Calendar.mdb"), databases_.ResCon->FileName());
}

TEST_F(OpeningTest, OpensTheGuestsInTheDataFolder) {
  Make("Veyra.mdb", {GuestTable()});
  CreateVeyraCon(databases_);
  EXPECT_EQ(File("Veyra.mdb"), databases_.GuestCon->FileName());
}

TEST_F(OpeningTest, OpensTheGuestsForReadingOnly) {
  Make("Veyra.mdb", {GuestTable()});
  CreateVeyraCon(databases_);
  const auto guests =
      databases_.GuestCon->Open("SELECT * FROM Guest", CursorType::StaticOptimistic);
  guests->AddNew();
  EXPECT_THROW(guests->Update(), DatabaseError);
}

TEST_F(OpeningTest, ReadsGuestsFromAFileThatNobodyMayWriteTo) {
  Make("Veyra.mdb", {GuestTable()})->Insert("Guest", {{"Name", "Ann"}});
  fs::permissions(File("Veyra.mdb"), fs::perms::owner_read);
  CreateVeyraCon(databases_);
  EXPECT_EQ(Value("Ann"),
            databases_.GuestCon->Open("SELECT * FROM Guest", CursorType::ForwardOnlyReadOnly)
                ->Field("Name"));
}

TEST_F(OpeningTest, DropsAnEarlierConnection) {
  MakeCalendar();
  CreateResCon(databases_);
  databases_.DataFolder = File("elsewhere");
  EXPECT_THROW(CreateResCon(databases_), DatabaseError);
  EXPECT_EQ(nullptr, databases_.ResCon);
}

TEST_F(OpeningTest, NamesTheMissingCalendarInFull) {
  EXPECT_EQ(File("Calendar.mdb"), ReportOf(CreateResCon).File);
}

TEST_F(OpeningTest, NamesTheMissingGuestFileInFull) {
  EXPECT_EQ(File("Veyra.mdb"), ReportOf(CreateVeyraCon).File);
}

TEST_F(OpeningTest, SaysWhereTheDataFolderIsNamed) {
  EXPECT_EQ("The first line of " + File("path.txt") +
                " must name the folder that holds Calendar.mdb and Veyra.mdb.",
            ReportOf(CreateResCon).Advice);
}

TEST_F(OpeningTest, SaysWhetherTheDataFolderIsMissingToo) {
  databases_.DataFolder = File("nowhere");
  EXPECT_EQ("There is no such file, and no folder " + File("nowhere") + ".",
            ReportOf(CreateResCon).Cause);
}

TEST_F(OpeningTest, LooksAtTheRootWhenNoDataFolderIsKnown) {
  databases_.DataFolder.clear();
  EXPECT_EQ("/Calendar.mdb", ReportOf(CreateResCon).File);
}

TEST_F(OpeningTest, GivesADataFolderThatIsRelativeInFull) {
  databases_.DataFolder = "no-such-folder";
  EXPECT_EQ((fs::current_path() / "no-such-folder/Calendar.mdb").string(),
            ReportOf(CreateResCon).File);
}

TEST_F(OpeningTest, MakesNoCalendarThatIsMissing) {
  ReportOf(CreateResCon);
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(OpeningTest, ReportsACalendarThatCannotBeWritten) {
  if (TestedStoreKind() == StoreKind::Postgres) {
    GTEST_SKIP() << "nothing is written to a link";
  }
  MakeCalendar();
  fs::permissions(File("Calendar.mdb"), fs::perms::owner_read);
  EXPECT_EQ("The file is write-protected, so nothing could be saved.",
            ReportOf(CreateResCon).Cause);
}

}  // namespace
}  // namespace veyra
