#include <gtest/gtest.h>

#include <filesystem>

#include "data/errors.h"
#include "tests/data/access/access_folder.h"

namespace veyra {
namespace {

/// The cause of the report that adding a booking ends with; empty when it is added.
std::string RefusalOfABooking(const std::string& file) {
  try {
    OpenAccessStore(file, StoreAccess::ReadWrite)
        ->Insert("Reserv", Booking(3, "Chess", std::chrono::year{2014} / 3 / 15, 20, 25));
  } catch (const DatabaseError& error) {
    return error.report().Cause.English();
  }
  return "";
}

/// 32 bytes of a lock file, something left behind the name.
std::string Entry(const std::string& name) {
  std::string entry = name + '\0' + "left behind";
  entry.resize(32, '\0');
  return entry;
}

class LockFileNames : public testing::TestWithParam<const char*> {};

TEST_P(LockFileNames, KeepFromWritingInAnyLetterCase) {
  const AccessFolder folder;
  folder.Folder().Write(GetParam(), Entry("FRONTDESK") + Entry("Admin"));
  EXPECT_EQ("Another program has the database open: Admin on FRONTDESK.",
            RefusalOfABooking(folder.Calendar()));
}

INSTANTIATE_TEST_SUITE_P(Access, LockFileNames,
                         testing::Values("Calendar.ldb", "Calendar.LDB", "CALENDAR.LDB",
                                         "calendar.Ldb", "calendar.LACCDB"));

TEST(LockFile, WithoutNamesStillKeepsFromWriting) {
  const AccessFolder folder;
  folder.Folder().Write("Calendar.laccdb", "");
  EXPECT_EQ("Another program has the database open.", RefusalOfABooking(folder.Calendar()));
}

TEST(LockFile, OfAnotherDatabaseDoesNotKeepFromWriting) {
  const AccessFolder folder;
  for (const char* name : {"Veyra.ldb", "Calendar.ldb.bak", "Calendar2.ldb", "ldb"}) {
    folder.Folder().Write(name, Entry("FRONTDESK") + Entry("Admin"));
  }
  EXPECT_EQ("", RefusalOfABooking(folder.Calendar()));
}

TEST(LockFile, BesideTheFileThatALinkLeadsToKeepsFromWriting) {
  const AccessFolder folder;
  const TempFolder links;
  const std::filesystem::path link = links.File("Linked.mdb");
  std::filesystem::create_symlink(folder.Calendar(), link);
  folder.Folder().Write("Calendar.ldb", "");
  EXPECT_EQ("Another program has the database open.", RefusalOfABooking(link.string()));
}

TEST(LockFile, KeepsTheBlanksInsideAName) {
  const AccessFolder folder;
  folder.Folder().Write("Calendar.ldb", Entry("FRONT DESK  ") + Entry(" Anna Berg"));
  EXPECT_EQ("Another program has the database open: Anna Berg on FRONT DESK.",
            RefusalOfABooking(folder.Calendar()));
}

}  // namespace
}  // namespace veyra
