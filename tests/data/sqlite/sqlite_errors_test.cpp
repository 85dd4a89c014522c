#include "data/sqlite/sqlite_errors.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "data/errors.h"

namespace veyra {
namespace {

struct Failure {
  const char* Name;
  int Code;
  const char* CauseBegins;
};

class FailureTest : public testing::TestWithParam<Failure> {};

TEST_P(FailureTest, IsToldInWords) {
  try {
    sqlite::ThrowError("/desk/Calendar.mdb", GetParam().Code, "detail");
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_EQ("/desk/Calendar.mdb", error.report().File);
    EXPECT_EQ(0u, error.report().Cause.English().find(GetParam().CauseBegins))
        << error.report().Cause;
    EXPECT_NE("", error.report().Advice);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Codes, FailureTest,
    testing::Values(
        Failure{"Busy", SQLITE_BUSY, "Another program is using the file"},
        Failure{"BusySnapshot", SQLITE_BUSY_SNAPSHOT, "Another program is using the file"},
        Failure{"Locked", SQLITE_LOCKED, "Another program is using the file"},
        Failure{"LogBeingSetUp", SQLITE_READONLY_CANTINIT, "Another program is using the file"},
        Failure{"ReadOnly", SQLITE_READONLY, "The file may be read but not written to"},
        Failure{"ReadOnlyFolder", SQLITE_READONLY_DIRECTORY,
                "The file may be read but not written to"},
        Failure{"Interrupted", SQLITE_READONLY_ROLLBACK, "Another program was interrupted"},
        Failure{"DiskFull", SQLITE_FULL, "The disk is full"},
        Failure{"DiskFailure", SQLITE_IOERR_WRITE, "The disk reported a failure"},
        Failure{"Damaged", SQLITE_CORRUPT, "The file is damaged or was cut short."},
        Failure{"NoDatabase", SQLITE_NOTADB, "The file is not a database"},
        Failure{"CannotOpen", SQLITE_CANTOPEN_ISDIR, "The file cannot be opened"},
        Failure{"NoMemory", SQLITE_NOMEM, "The computer has run out of memory."},
        Failure{"RuleOfTheFile", SQLITE_CONSTRAINT_NOTNULL,
                "The file's own rules do not allow this row: detail."},
        Failure{"AnythingElse", SQLITE_ERROR, "The database reported a failure: detail"}),
    [](const auto& failure) { return failure.param.Name; });

TEST(ThrowErrorTest, TellsABusyFileFromOtherFailures) {
  EXPECT_THROW(sqlite::ThrowError({}, SQLITE_BUSY, {}), DatabaseBusyError);
  try {
    sqlite::ThrowError({}, SQLITE_FULL, {});
  } catch (const DatabaseBusyError&) {
    FAIL() << "a full disk is not busy";
  } catch (const DatabaseError&) {
  }
}

}  // namespace
}  // namespace veyra
