#include "data/access/pages/journal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "data/errors.h"
#include "tests/data/access/access_folder.h"
#include "tests/data/access/index_check.h"

namespace veyra {
namespace {

using access::CommitStep;

constexpr std::chrono::milliseconds kTimeout{200};

Row AddBooking(Store& store) {
  return store.Insert("Reserv", Booking(3, "Chess", std::chrono::year{2014} / 3 / 15, 20, 25));
}

/// Adds a booking in a program of its own, which is killed after that step.
void AddBookingAndDie(const std::string& file, CommitStep last) {
  const pid_t child = fork();
  if (child == 0) {
    const auto die = [last](CommitStep step) {
      if (step == last) {
        _exit(0);
      }
    };
    AddBooking(*OpenAccessStore(file, StoreAccess::ReadWrite, kTimeout, die));
    _exit(1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

class BrokenChange : public testing::TestWithParam<CommitStep> {
 protected:
  AccessFolder folder_;
};

TEST_P(BrokenChange, IsMadeWholeOrNotAtAll) {
  AddBookingAndDie(folder_.Calendar(), GetParam());
  const auto store = folder_.Open();
  EXPECT_EQ(1U, AllRows(*store, "Reserv").size());
  EXPECT_EQ("", IndexFaults(folder_.Calendar(), "Reserv"));
  EXPECT_FALSE(access::HasJournal(folder_.Calendar()));
}

TEST_P(BrokenChange, IsSeenByAReaderThatWritesNothing) {
  AddBookingAndDie(folder_.Calendar(), GetParam());
  const std::string before = folder_.Folder().Read("Calendar.mdb");
  const auto store = folder_.Open(StoreAccess::ReadOnly);
  EXPECT_EQ(1U, AllRows(*store, "Reserv").size());
  EXPECT_EQ(before, folder_.Folder().Read("Calendar.mdb"));
}

TEST_P(BrokenChange, IsFollowedByTheNext) {
  AddBookingAndDie(folder_.Calendar(), GetParam());
  const auto store = folder_.Open();
  AddBooking(*store);
  EXPECT_EQ(2U, AllRows(*store, "Reserv").size());
}

INSTANTIATE_TEST_SUITE_P(Steps, BrokenChange,
                         testing::Values(CommitStep::JournalWritten, CommitStep::JournalFlushed,
                                         CommitStep::PagesWritten, CommitStep::PagesFlushed,
                                         CommitStep::Done));

TEST(Journal, ThatIsCutShortIsDroppedAndTheFileStaysAsItWas) {
  const AccessFolder folder;
  AddBookingAndDie(folder.Calendar(), CommitStep::JournalFlushed);
  const std::string journal = folder.Folder().Read("Calendar.mdb-journal");
  folder.Folder().Write("Calendar.mdb-journal", journal.substr(0, journal.size() - 1));
  EXPECT_TRUE(AllRows(*folder.Open(), "Reserv").empty());
}

TEST(Journal, LeavesNothingBesideTheFile) {
  const AccessFolder folder;
  AddBooking(*folder.Open());
  EXPECT_FALSE(access::HasJournal(folder.Calendar()));
}

TEST(LockFile, DoesNotKeepFromReading) {
  const AccessFolder folder;
  AddBooking(*folder.Open());
  folder.Folder().Write("Calendar.ldb", "");
  EXPECT_EQ(1U, AllRows(*folder.Open(), "Reserv").size());
}

}  // namespace
}  // namespace veyra
