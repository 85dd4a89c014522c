#include <gtest/gtest.h>

#include "data/access/pages/journal.h"
#include "data/access/write/create_file.h"
#include "data/errors.h"
#include "tests/data/access/access_folder.h"
#include "tests/data/access/failing_calls.h"
#include "tests/data/access/index_check.h"

namespace veyra {
namespace {

using access::CommitStep;

constexpr std::chrono::milliseconds kTimeout{200};
constexpr int kMostCalls = 30;
constexpr int kLasting = 1000;

/// What a program says of the booking that it was asked to make.
enum class Answer { Made, NotMade, NotCertain };

Answer Book(Store& store) {
  try {
    store.Insert("Reserv", Booking(3, "Chess", std::chrono::year{2014} / 3 / 15, 20, 25));
    return Answer::Made;
  } catch (const OutcomeUnknownError& error) {
    EXPECT_TRUE(error.report().Advice.English().starts_with(
        "It is not certain whether this booking was saved: look before you try again."));
    return Answer::NotCertain;
  } catch (const DatabaseError&) {
    return Answer::NotMade;
  }
}

std::size_t Bookings(const AccessFolder& folder) {
  return AllRows(*folder.Open(), "Reserv").size();
}

class FailingDiskTest : public testing::Test {
 protected:
  /// A program whose disk does what `fail` says from that step of a change on.
  std::unique_ptr<Store> OpenAndFailAt(CommitStep when, const std::function<void()>& fail) {
    return OpenAccessStore(folder_.Calendar(), StoreAccess::ReadWrite, kTimeout,
                           [when, fail](CommitStep step) {
                             if (step == when) {
                               fail();
                             }
                           });
  }

  AccessFolder folder_;
  FailingDisk disk_;
};

TEST_F(FailingDiskTest, LeavesNoNewFileThatCouldNotBeWritten) {
  const std::string file = folder_.Folder().File("New.mdb").string();
  FailingDisk::Fail(DiskCall::Write, 1, 1);
  EXPECT_THROW(CreateAccessFile(file), DatabaseError);
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(FailingDiskTest, LeavesABookingMadeOnceWhenTheJournalCannotBeRemoved) {
  const auto store =
      OpenAndFailAt(CommitStep::PagesFlushed, [] { FailingDisk::FailAll(DiskCall::Remove); });
  EXPECT_EQ(Answer::Made, Book(*store));
  EXPECT_TRUE(FailingDisk::HasFailed());
  EXPECT_FALSE(access::HasJournal(folder_.Calendar()));
  EXPECT_EQ(1U, AllRows(*store, "Reserv").size());
}

TEST_F(FailingDiskTest, LeavesABookingMadeOnceWhenTheJournalCannotEvenBeEmptied) {
  const auto store = OpenAndFailAt(CommitStep::PagesFlushed, [] {
    FailingDisk::FailAll(DiskCall::Remove);
    FailingDisk::FailAll(DiskCall::Truncate);
  });
  EXPECT_EQ(Answer::Made, Book(*store));
  EXPECT_TRUE(access::HasJournal(folder_.Calendar()));
  EXPECT_EQ(1U, Bookings(folder_));
  EXPECT_EQ(Answer::Made, Book(*store));
  FailingDisk::Heal();
  EXPECT_EQ(2U, Bookings(folder_));
}

TEST_F(FailingDiskTest, LeavesABookingUnmadeThatNoPageWasWrittenOf) {
  const auto store =
      OpenAndFailAt(CommitStep::JournalFlushed, [] { FailingDisk::FailAll(DiskCall::PageWrite); });
  EXPECT_EQ(Answer::NotMade, Book(*store));
  EXPECT_EQ(0U, Bookings(folder_));
}

TEST_F(FailingDiskTest, ShowsAtTheNextLookWhetherABookingWasMade) {
  const auto store =
      OpenAndFailAt(CommitStep::JournalFlushed, [] { FailingDisk::FailAll(DiskCall::Flush); });
  EXPECT_EQ(Answer::NotCertain, Book(*store));
  const std::size_t seen = AllRows(*store, "Reserv").size();
  FailingDisk::Heal();
  EXPECT_EQ(seen, AllRows(*store, "Reserv").size());
  EXPECT_EQ(seen, Bookings(folder_));
}

TEST_F(FailingDiskTest, SaysThatItIsNotCertainWhenTheJournalMayBeCarriedOut) {
  const auto store = OpenAndFailAt(CommitStep::JournalWritten, [] {
    FailingDisk::FailAll(DiskCall::Flush);
    FailingDisk::FailAll(DiskCall::Remove);
    FailingDisk::FailAll(DiskCall::Truncate);
  });
  EXPECT_EQ(Answer::NotCertain, Book(*store));
  const std::size_t seen = AllRows(*store, "Reserv").size();
  FailingDisk::Heal();
  EXPECT_EQ(seen, Bookings(folder_));
}

/// Which call fails, and whether only once or from then on.
struct Fault {
  DiskCall Call;
  int Count;
};

class EachCall : public testing::TestWithParam<Fault> {};

TEST_P(EachCall, ThatFailsLeavesWhatIsSaidOfTheBooking) {
  const auto [call, count] = GetParam();
  int failed = 0;
  for (int first = 1; first < kMostCalls; ++first) {
    const AccessFolder folder;
    const FailingDisk disk;
    const auto store = folder.Open();
    FailingDisk::Fail(call, first, count);
    const Answer answer = Book(*store);
    failed += FailingDisk::HasFailed() ? 1 : 0;
    const std::size_t seen = AllRows(*store, "Reserv").size();
    FailingDisk::Heal();
    EXPECT_EQ(seen, AllRows(*store, "Reserv").size()) << first;
    EXPECT_EQ(seen, Bookings(folder)) << first;
    if (answer != Answer::NotCertain) {
      EXPECT_EQ(answer == Answer::Made ? 1U : 0U, seen) << first;
    }
    EXPECT_EQ("", IndexFaults(folder.Calendar(), "Reserv")) << first;
    EXPECT_EQ(Answer::Made, Book(*store)) << first;
    EXPECT_EQ(seen + 1, Bookings(folder)) << first;
  }
  EXPECT_GT(failed, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Disk, EachCall,
    testing::Values(Fault{DiskCall::Write, 1}, Fault{DiskCall::Write, kLasting},
                    Fault{DiskCall::PageWrite, 1}, Fault{DiskCall::PageWrite, kLasting},
                    Fault{DiskCall::Flush, 1}, Fault{DiskCall::Flush, kLasting},
                    Fault{DiskCall::Remove, 1}, Fault{DiskCall::Remove, kLasting}));

}  // namespace
}  // namespace veyra
