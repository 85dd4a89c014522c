#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/create_store.h"
#include "data/errors.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/data/sqlite/faulty_disk.h"
#include "tests/data/sqlite/foreign_program.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

enum class Failing { Once, FromThenOn };

struct Fault {
  const char* Name;
  FaultyDisk::Call Call;
  int Code;
  Failing Lasts;
};

/// A disk that fails while a facility is added: what the operator is told is what the next start
/// finds, or that it is not certain.
class FailingDiskTest : public testing::TestWithParam<Fault> {
 protected:
  FailingDiskTest() {
    const auto store = CreateStore(File());
    store->CreateTable(RoomsTable());
  }

  std::string File() const { return folder_.File("Calendar.mdb").string(); }

  enum class Told { Added, NotAdded, Uncertain };

  /// Lets the `first`th call of the kind fail while the facility is added. Nothing when there are
  /// not that many.
  std::optional<Told> AddWhileFailing(Store& store, int first) {
    calls_ = 0;
    first_ = first;
    Told told = Told::Added;
    try {
      store.Insert("Rooms", {{"Name", "Pool"}});
    } catch (const OutcomeUnknownError&) {
      told = Told::Uncertain;
    } catch (const DatabaseError&) {
      told = Told::NotAdded;
    }
    first_ = 0;
    return calls_ < first ? std::nullopt : std::optional(told);
  }

  int Answer(FaultyDisk::Call call) {
    if (first_ == 0 || call != GetParam().Call) {
      return SQLITE_OK;
    }
    ++calls_;
    const bool fails = GetParam().Lasts == Failing::Once ? calls_ == first_ : calls_ >= first_;
    return fails ? GetParam().Code : SQLITE_OK;
  }

  /// What a start would find if the program ended now without closing.
  int RoomsAfterAKill(const std::string& name) const {
    for (const char* beside : {"", "-wal", "-journal"}) {
      if (fs::exists(File() + beside)) {
        fs::copy_file(File() + beside, folder_.File(name + beside));
      }
    }
    return std::stoi(
        ForeignProgram(folder_.File(name).string()).Rows("SELECT count(*) FROM Rooms"));
  }

  int RoomsShown(Store& store) const {
    int count = 0;
    const auto rows = store.Select(ParseQuery("SELECT * FROM Rooms"));
    for (Row row; rows->Next(row);) {
      ++count;
    }
    return count;
  }

  void ExpectTheTruth(bool with_log) {
    for (int first = 1;; ++first) {
      const FaultyDisk disk(
          [this](const std::string&, FaultyDisk::Call call) { return Answer(call); });
      std::optional<ForeignProgram> reader;
      if (!with_log) {
        reader.emplace(File());
        reader->Run("PRAGMA journal_mode = DELETE; BEGIN; SELECT * FROM Rooms");
      }
      const auto store = OpenStore(File(), StoreAccess::ReadWrite);
      reader.reset();
      const int before = RoomsShown(*store);
      const auto told = AddWhileFailing(*store, first);
      const int after = RoomsAfterAKill("killed" + std::to_string(first));
      SCOPED_TRACE("call " + std::to_string(first));
      if (told != Told::Uncertain) {
        EXPECT_EQ(before + (told == Told::NotAdded ? 0 : 1), after);
      }
      if (told != Told::Uncertain) {
        EXPECT_EQ(after, RoomsShown(*store));
      }
      store->Insert("Rooms", {{"Name", "again"}});
      if (!told) {
        return;
      }
      uncertain_ += told == Told::Uncertain ? 1 : 0;
      not_added_ += told == Told::NotAdded ? 1 : 0;
    }
  }

  TempFolder folder_;
  int first_ = 0;
  int calls_ = 0;
  int uncertain_ = 0;
  int not_added_ = 0;
};

INSTANTIATE_TEST_SUITE_P(
    Faults, FailingDiskTest,
    testing::Values(
        Fault{"OneRead", FaultyDisk::Call::Read, SQLITE_IOERR_READ, Failing::Once},
        Fault{"EveryRead", FaultyDisk::Call::Read, SQLITE_IOERR_READ, Failing::FromThenOn},
        Fault{"OneWrite", FaultyDisk::Call::Write, SQLITE_IOERR_WRITE, Failing::Once},
        Fault{"EveryWrite", FaultyDisk::Call::Write, SQLITE_IOERR_WRITE, Failing::FromThenOn},
        Fault{"FullDisk", FaultyDisk::Call::Write, SQLITE_FULL, Failing::FromThenOn},
        Fault{"OneFlush", FaultyDisk::Call::Flush, SQLITE_IOERR_FSYNC, Failing::Once},
        Fault{"EveryFlush", FaultyDisk::Call::Flush, SQLITE_IOERR_FSYNC, Failing::FromThenOn},
        Fault{"OneRemoval", FaultyDisk::Call::Remove, SQLITE_IOERR_DELETE, Failing::Once},
        Fault{"EveryRemoval", FaultyDisk::Call::Remove, SQLITE_IOERR_DELETE, Failing::FromThenOn}),
    [](const auto& fault) { return fault.param.Name; });

TEST_P(FailingDiskTest, IsToldAsItIsWithALog) {
  ExpectTheTruth(true);
}

TEST_P(FailingDiskTest, IsToldAsItIsWithARollbackJournal) {
  ExpectTheTruth(false);
}

class FailingFlushTest : public FailingDiskTest {};

INSTANTIATE_TEST_SUITE_P(Faults, FailingFlushTest,
                         testing::Values(Fault{"One", FaultyDisk::Call::Flush, SQLITE_IOERR_FSYNC,
                                               Failing::Once}));

/// Where the change can be taken back from the log, the outcome is known.
TEST_P(FailingFlushTest, IsNoReasonForUncertaintyWhenItIsOnlyOne) {
  ExpectTheTruth(true);
  EXPECT_EQ(0, uncertain_);
  EXPECT_LT(0, not_added_);
}

class LastingFailureTest : public FailingDiskTest {};

INSTANTIATE_TEST_SUITE_P(Faults, LastingFailureTest,
                         testing::Values(Fault{"EveryFlush", FaultyDisk::Call::Flush,
                                               SQLITE_IOERR_FSYNC, Failing::FromThenOn}));

TEST_P(LastingFailureTest, IsReportedAsUncertain) {
  const FaultyDisk disk([this](const std::string&, FaultyDisk::Call call) { return Answer(call); });
  const auto store = OpenStore(File(), StoreAccess::ReadWrite);
  first_ = 1;
  try {
    store->Insert("Rooms", {{"Name", "Pool"}});
    FAIL() << "no report";
  } catch (const OutcomeUnknownError& error) {
    EXPECT_EQ(File(), error.report().File);
    EXPECT_NE(std::string::npos, std::string(error.what())
                                     .find("It is not certain whether this booking was saved: "
                                           "look before you try again"));
  }
  first_ = 0;
}

/// A disk that fails while the calendar is closed and its log is put into the file.
class FailingCloseTest : public testing::Test {
 protected:
  static constexpr int kFacilities = 12;

  FailingCloseTest() {
    const auto store = CreateStore(File());
    store->CreateTable(RoomsTable());
    for (int number = 0; number < kFacilities; ++number) {
      store->Insert("Rooms", {{"Name", Name('0')}});
    }
  }

  std::string File() const { return folder_.File("Calendar.mdb").string(); }

  /// So long that there are a few facilities on each page of the file.
  static std::string Name(char letter) { return std::string(900, letter); }

  /// Gives all facilities another name of the same length, so that the file makes sense with any of
  /// its pages changed; and closes it, when the `failing`th write into the file itself fails.
  void RenameAndClose(char letter, int failing) {
    writes_ = 0;
    const FaultyDisk disk([&](const std::string& file, FaultyDisk::Call call) {
      const bool is_counted = call == FaultyDisk::Call::Write && file == File();
      return is_counted && ++writes_ == failing ? SQLITE_IOERR_WRITE : SQLITE_OK;
    });
    const auto store = OpenStore(File(), StoreAccess::ReadWrite);
    std::vector<Row> before;
    const auto rows = store->Select(ParseQuery("SELECT * FROM Rooms"));
    for (Row row; rows->Next(row);) {
      before.push_back(row);
    }
    for (const Row& row : before) {
      store->Update("Rooms", row, {{"Name", Name(letter)}});
    }
  }

  std::string NamesAfterAStart() const {
    const auto store = OpenStore(File(), StoreAccess::ReadWrite);
    EXPECT_FALSE(store->TakeNotice().has_value());
    return ForeignProgram(File()).Rows("SELECT DISTINCT substr(Name, 1, 1) FROM Rooms");
  }

  TempFolder folder_;
  int writes_ = 0;
};

TEST_F(FailingCloseTest, LosesNothingThoughOnlyAPartIsInTheFile) {
  int failing = 0;
  do {
    const auto letter = static_cast<char>('a' + failing);
    RenameAndClose(letter, ++failing);
    SCOPED_TRACE("write " + std::to_string(failing));
    EXPECT_EQ(std::string(1, letter) + "\n", NamesAfterAStart());
  } while (writes_ >= failing && !HasFailure());
  EXPECT_LT(3, failing);
}

}  // namespace
}  // namespace veyra
