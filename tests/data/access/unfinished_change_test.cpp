#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "data/access/pages/journal.h"
#include "data/errors.h"
#include "tests/data/access/access_folder.h"
#include "tests/data/access/index_check.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

using access::CommitStep;

constexpr std::chrono::milliseconds kTimeout{200};
constexpr Date kDay = std::chrono::year{2014} / 3 / 15;

void Book(Store& store, const std::string& event) {
  store.Insert("Reserv", Booking(3, event, kDay, 20, 25));
}

/// The events booked, each followed by a semicolon.
std::string Events(Store& store) {
  std::string events;
  for (const Row& row : AllRows(store, "Reserv")) {
    events += ToText(row.Values.at(1)) + ";";
  }
  return events;
}

/// A calendar whose program was killed while it booked "Chess", and another program, which knows
/// nothing of journals, that wrote to the file before the calendar started again.
class UnfinishedChange : public testing::Test {
 protected:
  void BookChessAndDie(CommitStep last) {
    const pid_t child = fork();
    if (child == 0) {
      const auto die = [last](CommitStep step) {
        if (step == last) {
          _exit(0);
        }
      };
      Book(*OpenAccessStore(folder_.Calendar(), StoreAccess::ReadWrite, kTimeout, die), "Chess");
      _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }

  /// Lets another program do something while the journal lies there.
  template <typename Work>
  void AsAnother(const Work& work) {
    const fs::path journal = access::JournalPath(folder_.Calendar());
    const fs::path elsewhere = folder_.Folder().File("elsewhere");
    fs::rename(journal, elsewhere);
    work(*folder_.Open());
    fs::rename(elsewhere, journal);
  }

  void ExpectSetAside(const std::string& events) {
    const std::string before = folder_.Folder().Read("Calendar.mdb");
    const auto store = folder_.Open();
    EXPECT_EQ(events, Events(*store));
    EXPECT_EQ(before, folder_.Folder().Read("Calendar.mdb"));
    const std::optional<Report> notice = store->TakeNotice();
    ASSERT_TRUE(notice.has_value());
    EXPECT_EQ(folder_.Calendar(), notice->File);
    EXPECT_NE(std::string::npos, notice->Cause.English().find("Event Chess, DateOfRes 2014-03-15"));
    EXPECT_NE(std::string::npos, notice->Advice.English().find("Calendar.mdb-unfinished-change."));
    EXPECT_FALSE(store->TakeNotice().has_value());
    EXPECT_EQ((std::vector<std::string>{"Calendar.mdb", "Calendar.mdb-unfinished-change"}),
              folder_.Folder().Names());
    Book(*store, "Next");
    EXPECT_EQ(events + "Next;", Events(*folder_.Open()));
  }

  AccessFolder folder_;
};

TEST_F(UnfinishedChange, GivesWayToABookingInThePagesThatItWasToAdd) {
  BookChessAndDie(CommitStep::JournalFlushed);
  AsAnother([](Store& store) { Book(store, "Bridge"); });
  ExpectSetAside("Bridge;");
}

TEST_F(UnfinishedChange, GivesWayToAChangeOfAnotherPageOfItsTable) {
  for (int i = 0; i < 200; ++i) {
    Book(*folder_.Open(), "Old");
  }
  const Row first = AllRows(*folder_.Open(), "Reserv").front();
  BookChessAndDie(CommitStep::JournalFlushed);
  AsAnother([](Store& store) { Book(store, "Bridge"); });
  std::string events;
  for (int i = 0; i < 200; ++i) {
    events += "Old;";
  }
  ExpectSetAside(events + "Bridge;");
}

TEST_F(UnfinishedChange, GivesWayToAProgramThatChangedTheHeaderOnly) {
  BookChessAndDie(CommitStep::JournalFlushed);
  std::string bytes = folder_.Folder().Read("Calendar.mdb");
  bytes[0xE00] = static_cast<char>(bytes[0xE00] ^ 1);
  folder_.Folder().Write("Calendar.mdb", bytes);
  ExpectSetAside("");
}

TEST_F(UnfinishedChange, GivesWayToAFileThatHasGrown) {
  BookChessAndDie(CommitStep::JournalFlushed);
  folder_.Folder().Write("Calendar.mdb", folder_.Folder().Read("Calendar.mdb") +
                                             std::string(std::size_t{5} * 4096, '\0'));
  ExpectSetAside("");
}

TEST_F(UnfinishedChange, OfARowAloneGivesWayToARowThatWasAdded) {
  Book(*folder_.Open(), "Old");
  const std::string before = folder_.Folder().Read("Calendar.mdb");
  {
    const pid_t child = fork();
    if (child == 0) {
      const auto die = [](CommitStep step) {
        if (step == CommitStep::JournalFlushed) {
          _exit(0);
        }
      };
      const auto store = OpenAccessStore(folder_.Calendar(), StoreAccess::ReadWrite, kTimeout, die);
      store->Update("Reserv", AllRows(*store, "Reserv").front(), {{"Event", "Chess"}});
      _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
  }
  std::string bytes = folder_.Folder().Read("Calendar.mdb");
  ASSERT_EQ(before, bytes);
  for (std::size_t page = 0; page < bytes.size() / 4096; ++page) {
    if (bytes[page * 4096] == 2) {
      bytes[page * 4096 + 20] = static_cast<char>(bytes[page * 4096 + 20] + 1);
    }
  }
  folder_.Folder().Write("Calendar.mdb", bytes);
  const auto store = folder_.Open();
  EXPECT_TRUE(store->TakeNotice().has_value());
  EXPECT_EQ("Old;", Events(*store));
}

TEST_F(UnfinishedChange, IsSeenAsTheFileIsByAReaderThatWritesNothing) {
  BookChessAndDie(CommitStep::JournalFlushed);
  AsAnother([](Store& store) { Book(store, "Bridge"); });
  EXPECT_EQ("Bridge;", Events(*folder_.Open(StoreAccess::ReadOnly)));
  EXPECT_TRUE(access::HasJournal(folder_.Calendar()));
}

TEST_F(UnfinishedChange, KeepsEveryJournalUnderANameOfItsOwn) {
  for (int i = 0; i < 2; ++i) {
    BookChessAndDie(CommitStep::JournalFlushed);
    AsAnother([](Store& store) { Book(store, "Bridge"); });
    folder_.Open();
  }
  EXPECT_EQ((std::vector<std::string>{"Calendar.mdb", "Calendar.mdb-unfinished-change",
                                      "Calendar.mdb-unfinished-change-2"}),
            folder_.Folder().Names());
}

TEST_F(UnfinishedChange, IsFinishedBesideTheFileThatALinkLeadsTo) {
  const TempFolder links;
  const fs::path link = links.File("Calendar.mdb");
  fs::create_symlink(folder_.Calendar(), link);
  const auto store =
      OpenAccessStore(link.string(), StoreAccess::ReadWrite, kTimeout, [&](CommitStep step) {
        if (step == CommitStep::JournalFlushed) {
          EXPECT_TRUE(access::HasJournal(folder_.Calendar()));
          EXPECT_EQ(std::vector<std::string>{"Calendar.mdb"}, links.Names());
        }
      });
  Book(*store, "Chess");
  EXPECT_EQ("Chess;", Events(*folder_.Open()));
}

}  // namespace
}  // namespace veyra
