#include "data/sqlite/trouble.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include "data/create_store.h"
#include "data/open_store.h"
#include "data/query.h"
#include "data/schema.h"
#include "tests/data/sqlite/disk_shim.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

/// A calendar on a disk that fails as the test says.
class TroubleTest : public testing::Test {
 protected:
  TroubleTest() {
    const auto store = CreateStore(File());
    store->CreateTable(RoomsTable());
    for (int i = 0; i < 200; ++i) {
      store->Insert("Rooms", {{"Name", std::string(100, 'x')}});
    }
  }

  std::string File() const { return folder_.File("Calendar.mdb").string(); }

  /// Opens the calendar and reads its rows; returns how many, or the report.
  std::string ReadAll(StoreAccess access) {
    try {
      const auto store = OpenStore(File(), access, std::chrono::milliseconds(100));
      const auto rows = store->Select(ParseQuery("SELECT * FROM Rooms"));
      int count = 0;
      for (Row row; rows->Next(row);) {
        ++count;
      }
      return std::to_string(count);
    } catch (const Error& error) {
      return error.what();
    }
  }

  static bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }

  TempFolder folder_;
};

TEST_F(TroubleTest, OneFailureOfTheDiskIsNeverCalledDamage) {
  for (const StoreAccess access : {StoreAccess::ReadWrite, StoreAccess::ReadOnly}) {
    bool was_reached = true;
    int read = 0;
    int served = 0;
    for (; was_reached && read < 100; ++read) {
      int left = read;
      const DiskShim shim([&](DiskCall call) {
        return call == DiskCall::Read && left-- == 0 ? SQLITE_IOERR_CORRUPTFS : SQLITE_OK;
      });
      const std::string result = ReadAll(access);
      was_reached = left < 0;
      served += result == "200" ? 1 : 0;
      EXPECT_FALSE(Has(result, "backup")) << "read " << read << ": " << result;
    }
    EXPECT_GT(read, 3);
    EXPECT_GT(served, 3) << "the disk is asked again";
  }
}

TEST_F(TroubleTest, ADiskThatKeepsFailingIsNoReasonToRestore) {
  const DiskShim shim(
      [](DiskCall call) { return call == DiskCall::Read ? SQLITE_IOERR_CORRUPTFS : SQLITE_OK; });
  const std::string report = ReadAll(StoreAccess::ReadWrite);
  EXPECT_TRUE(Has(report, "disk")) << report;
  EXPECT_FALSE(Has(report, "backup")) << report;
}

TEST_F(TroubleTest, AFileThatIsFoundDamagedIsToBeRestored) {
  {
    std::fstream file(File(), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(4096 + 8);
    file << std::string(std::size_t{2} * 4096, '\x7F');
  }
  EXPECT_TRUE(Has(ReadAll(StoreAccess::ReadWrite), "backup copy"));
}

TEST_F(TroubleTest, AFullDiskAtTheStartIsCalledSo) {
  const DiskShim shim([](DiskCall call) {
    errno = ENOSPC;
    return call == DiskCall::MapIndex ? SQLITE_IOERR_SHMSIZE : SQLITE_OK;
  });
  const std::string report = ReadAll(StoreAccess::ReadWrite);
  EXPECT_TRUE(Has(report, "The disk is full")) << report;
  EXPECT_TRUE(Has(report, "Make room")) << report;
}

}  // namespace
}  // namespace veyra
