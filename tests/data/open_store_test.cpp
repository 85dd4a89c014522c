#include "data/open_store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "data/create_store.h"
#include "data/errors.h"
#include "data/schema.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

/// Files that cannot be opened, and what the operator is told of each.
class OpenStoreTest : public testing::Test {
 protected:
  ~OpenStoreTest() override { fs::permissions(folder_.path(), fs::perms::owner_all); }

  std::string File() const { return folder_.File("Calendar.mdb").string(); }

  void MakeCalendar() {
    const auto store = CreateStore(File());
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
    for (int i = 0; i < 6; ++i) {
      store->Insert("Reserv", {{"Event", std::string(3000, 'x')}});
    }
  }

  Report ReportOf(const std::string& file, StoreAccess access) const {
    try {
      OpenStore(file, access, std::chrono::milliseconds(50));
    } catch (const DatabaseError& error) {
      return error.report();
    }
    ADD_FAILURE() << "no report";
    return {};
  }

  /// What is told of the file, which is the same whether it is to be read or written.
  std::string Cause() const {
    const Report report = ReportOf(File(), StoreAccess::ReadWrite);
    EXPECT_EQ(report.Cause, ReportOf(File(), StoreAccess::ReadOnly).Cause);
    EXPECT_EQ(File(), report.File);
    EXPECT_NE("", report.Advice);
    return report.Cause.English();
  }

  /// The same of a file that is only refused when it is to be written.
  std::string CauseOfRefusal() const {
    const Report report = ReportOf(File(), StoreAccess::ReadWrite);
    EXPECT_EQ(File(), report.File);
    EXPECT_NE("", report.Advice);
    return report.Cause.English();
  }

  TempFolder folder_;
};

TEST_F(OpenStoreTest, ReportsAMissingFile) {
  EXPECT_EQ("There is no such file.", Cause());
}

TEST_F(OpenStoreTest, MakesNoFileThatIsMissing) {
  ReportOf(File(), StoreAccess::ReadWrite);
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(OpenStoreTest, ReportsAMissingFolder) {
  const std::string file = folder_.File("nowhere").string() + "/Calendar.mdb";
  EXPECT_EQ("There is no such file, and no folder " + folder_.File("nowhere").string() + ".",
            ReportOf(file, StoreAccess::ReadOnly).Cause);
}

TEST_F(OpenStoreTest, ReportsALinkThatLeadsNowhere) {
  fs::create_symlink(folder_.File("gone"), File());
  EXPECT_EQ("There is no such file.", Cause());
}

TEST_F(OpenStoreTest, ReportsAFolderInPlaceOfTheFile) {
  fs::create_directory(File());
  EXPECT_EQ("This is a folder, where a database file should be.", Cause());
}

TEST_F(OpenStoreTest, ReportsAPipeInPlaceOfTheFileWithoutWaitingForIt) {
  ASSERT_EQ(0, mkfifo(File().c_str(), 0600));
  EXPECT_EQ("This is not a file that can be read.", Cause());
}

TEST_F(OpenStoreTest, ReportsAnEmptyFile) {
  folder_.Write("Calendar.mdb", "");
  EXPECT_EQ("The file is empty.", Cause());
}

TEST_F(OpenStoreTest, ReportsATextFile) {
  folder_.Write("Calendar.mdb", std::string(5000, 'x'));
  EXPECT_EQ("The file is not a database of a kind known here.", Cause());
}

TEST_F(OpenStoreTest, ReportsAFileOfOneByte) {
  folder_.Write("Calendar.mdb", "S");
  EXPECT_EQ("The file is not a database of a kind known here.", Cause());
}

TEST_F(OpenStoreTest, ReportsAHeadWithNonsenseAfterIt) {
  folder_.Write("Calendar.mdb", std::string("SQLite format 3\0", 16) + std::string(5000, 'x'));
  EXPECT_EQ("The file is not a database, or it is damaged or locked with a password.", Cause());
}

TEST_F(OpenStoreTest, ReportsAFileCutShortByAPage) {
  MakeCalendar();
  fs::resize_file(File(), fs::file_size(File()) - 4096);
  EXPECT_EQ("The file is damaged or was cut short.", Cause());
}

TEST_F(OpenStoreTest, ReportsAFileCutShortInTheMiddleOfAPage) {
  MakeCalendar();
  fs::resize_file(File(), fs::file_size(File()) - 100);
  EXPECT_EQ("The file is damaged or was cut short.", Cause());
}

TEST_F(OpenStoreTest, ReportsEachShorterFile) {
  MakeCalendar();
  const std::string whole = folder_.Read("Calendar.mdb");
  for (const std::size_t size : {15u, 16u, 19u, 99u, 100u, 512u, 1000u, 4095u, 4096u}) {
    folder_.Write("Calendar.mdb", whole.substr(0, size));
    EXPECT_NE("", Cause()) << size;
  }
}

TEST_F(OpenStoreTest, LeavesADamagedFileAsItIs) {
  MakeCalendar();
  fs::resize_file(File(), fs::file_size(File()) - 100);
  const std::string before = folder_.Read("Calendar.mdb");
  Cause();
  EXPECT_EQ(before, folder_.Read("Calendar.mdb"));
}

TEST_F(OpenStoreTest, ReportsADamagedPageWhenItIsRead) {
  MakeCalendar();
  std::string bytes = folder_.Read("Calendar.mdb");
  bytes.replace(4096, std::string::npos, bytes.size() - 4096, '\xFF');
  folder_.Write("Calendar.mdb", bytes);
  const auto store = OpenStore(File(), StoreAccess::ReadWrite);
  try {
    Row row;
    const auto source = store->Select(ParseQuery("SELECT * FROM Reserv"));
    while (source->Next(row)) {
    }
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(File(), error.report().File);
    EXPECT_EQ("The file is damaged or was cut short.", error.report().Cause);
  }
}

TEST_F(OpenStoreTest, ReportsAFileThatNobodyMayWriteTo) {
  MakeCalendar();
  fs::permissions(File(), fs::perms::owner_read);
  EXPECT_EQ("The file is write-protected, so nothing could be saved.", CauseOfRefusal());
}

TEST_F(OpenStoreTest, ReadsAFileThatNobodyMayWriteTo) {
  MakeCalendar();
  fs::permissions(File(), fs::perms::owner_read);
  EXPECT_EQ(2u, OpenStore(File(), StoreAccess::ReadOnly)->TableNames().size());
}

TEST_F(OpenStoreTest, ReportsAFolderThatNobodyMayWriteTo) {
  MakeCalendar();
  fs::permissions(folder_.path(), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ("The folder " + fs::canonical(folder_.path()).string() +
                " is write-protected, so nothing could be saved.",
            CauseOfRefusal());
}

TEST_F(OpenStoreTest, ReadsInAFolderThatNobodyMayWriteTo) {
  MakeCalendar();
  fs::permissions(folder_.path(), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(2u, OpenStore(File(), StoreAccess::ReadOnly)->TableNames().size());
}

TEST_F(OpenStoreTest, ChecksTheFolderThatALinkLeadsTo) {
  MakeCalendar();
  const TempFolder other;
  const fs::path link = other.File("Calendar.mdb");
  fs::create_symlink(File(), link);
  fs::permissions(folder_.path(), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_THROW(OpenStore(link.string(), StoreAccess::ReadWrite), DatabaseError);
}

TEST_F(OpenStoreTest, GoesByTheContentNotByTheName) {
  MakeCalendar();
  fs::rename(File(), folder_.File("notes.txt"));
  EXPECT_EQ(
      2u,
      OpenStore(folder_.File("notes.txt").string(), StoreAccess::ReadWrite)->TableNames().size());
}

TEST_F(OpenStoreTest, OpensANameThatLooksLikeAnAddress) {
  MakeCalendar();
  const fs::path odd = folder_.File("file:a?mode=memory&x=%41");
  fs::rename(File(), odd);
  EXPECT_EQ(2u, OpenStore(odd.string(), StoreAccess::ReadWrite)->TableNames().size());
}

}  // namespace
}  // namespace veyra
