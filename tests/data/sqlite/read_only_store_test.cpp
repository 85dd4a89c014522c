#include "data/sqlite/read_only_store.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/errors.h"
#include "data/query.h"
#include "tests/data/sqlite/disk_shim.h"
#include "tests/data/sqlite/host_program.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

/// The host product's guest file, in each state in which the host can leave or hold it.
class ReadOnlyStoreTest : public testing::Test {
 protected:
  std::string File() const { return folder_.File("Veyra.mdb").string(); }

  /// A guest file of one guest, kept with a log or with a rollback journal.
  void MakeGuests(const std::string& journal_mode) {
    host_.emplace(File());
    host_->Run("PRAGMA journal_mode = " + journal_mode);
    host_->Run("CREATE TABLE Guest(Name TEXT); INSERT INTO Guest VALUES ('Ann')");
    host_.reset();
  }

  /// The host starts up and adds a guest, which is in its log only.
  void HostAdds(const std::string& name) {
    if (!host_) {
      host_.emplace(File());
    }
    host_->Run("PRAGMA wal_autocheckpoint = 0; INSERT INTO Guest VALUES ('" + name + "')");
  }

  /// The host ends in the middle of its work; its files stay as they are.
  void HostBreaksDown() {
    host_->BreakDown();
    host_.reset();
  }

  void Open() { store_ = sqlite::OpenReadOnly(File(), std::chrono::milliseconds(50)); }

  std::string Guests() {
    std::string names;
    const auto source = store_->Select(ParseQuery("SELECT * FROM Guest"));
    for (Row row; source->Next(row);) {
      names += ToText(row.Values.at(0)) + ";";
    }
    return names;
  }

  /// Every file of the folder with its length and a digest of its bytes.
  std::string Folder() const {
    std::string all;
    for (const std::string& name : folder_.Names()) {
      const std::string bytes = folder_.Read(name);
      all += name + " " + std::to_string(bytes.size()) + " " +
             std::to_string(std::hash<std::string>()(bytes)) + "\n";
    }
    return all;
  }

  TempFolder folder_;
  std::optional<HostProgram> host_;
  std::unique_ptr<Store> store_;
};

TEST_F(ReadOnlyStoreTest, ReadsAFileWithARollbackJournal) {
  MakeGuests("DELETE");
  Open();
  EXPECT_EQ("Ann;", Guests());
}

TEST_F(ReadOnlyStoreTest, LeavesNoTraceOnAFileWithARollbackJournal) {
  MakeGuests("DELETE");
  const std::string before = Folder();
  Open();
  Guests();
  EXPECT_EQ(before, Folder());
}

TEST_F(ReadOnlyStoreTest, ReadsAClosedFileWithALog) {
  MakeGuests("WAL");
  Open();
  EXPECT_EQ("Ann;", Guests());
}

TEST_F(ReadOnlyStoreTest, LeavesNoTraceOnAClosedFileWithALog) {
  MakeGuests("WAL");
  const std::string before = Folder();
  Open();
  Guests();
  EXPECT_EQ(before, Folder());
}

TEST_F(ReadOnlyStoreTest, ReadsWhatIsInTheHostsLogOnly) {
  MakeGuests("WAL");
  HostAdds("Bob");
  Open();
  EXPECT_EQ("Ann;Bob;", Guests());
}

TEST_F(ReadOnlyStoreTest, LeavesNoTraceOnAFileThatTheHostHasOpen) {
  MakeGuests("WAL");
  HostAdds("Bob");
  const std::string before = Folder();
  Open();
  Guests();
  EXPECT_EQ(before, Folder());
}

TEST_F(ReadOnlyStoreTest, ReadsWhileTheHostIsInTheMiddleOfAChange) {
  MakeGuests("WAL");
  HostAdds("Bob");
  host_->Run("BEGIN IMMEDIATE; INSERT INTO Guest VALUES ('Carl')");
  Open();
  EXPECT_EQ("Ann;Bob;", Guests());
}

TEST_F(ReadOnlyStoreTest, ReadsNoHalfOfAChangeThatTheHostIsMaking) {
  MakeGuests("WAL");
  HostAdds("Ann");
  Open();
  std::string changes = "PRAGMA wal_autocheckpoint = 3;";
  for (int i = 0; i < 60; ++i) {
    changes += "UPDATE Guest SET Name = Name || 'a';";
  }
  for (int round = 0; round < 5; ++round) {
    host_->Start(changes);
    for (int i = 0; i < 40; ++i) {
      const std::string guests = Guests();
      const std::size_t half = guests.size() / 2;
      EXPECT_EQ(guests.substr(0, half), guests.substr(half));
    }
    host_->Finish();
  }
}

/// Each guest fills a page of his own, and the host changes both at once, starting and ending anew
/// each time.
TEST_F(ReadOnlyStoreTest, ReadsNoHalfOfAChangeOfAHostThatStartsAndEnds) {
  MakeGuests("WAL");
  HostAdds("Ann");
  host_->Run("UPDATE Guest SET Name = Name || substr(hex(zeroblob(2000)), 1, 3500)");
  host_.reset();
  store_ = sqlite::OpenReadOnly(File(), std::chrono::milliseconds(30000));
  const pid_t host = fork();
  if (host == 0) {
    for (int i = 0; i < 60; ++i) {
      ForeignProgram(File()).Run("PRAGMA busy_timeout = 5000; UPDATE Guest SET Name = Name || 'a'");
    }
    _exit(0);
  }
  for (int status = 0; waitpid(host, &status, WNOHANG) == 0;) {
    const std::string guests = Guests();
    const std::size_t half = guests.size() / 2;
    ASSERT_TRUE(guests.substr(0, half) == guests.substr(half)) << guests.size();
  }
}

TEST_F(ReadOnlyStoreTest, AFileThatIsGoneForAMomentIsNoReport) {
  MakeGuests("WAL");
  HostAdds("Bob");
  Open();
  int failing = 1;
  const DiskShim shim([&](DiskCall call) {
    return call == DiskCall::Open && failing-- > 0 ? SQLITE_CANTOPEN : SQLITE_OK;
  });
  EXPECT_EQ("Ann;Bob;", Guests());
  EXPECT_LT(failing, 1);
}

TEST_F(ReadOnlyStoreTest, LetsTheHostCloseItsLogWhileItStaysOpen) {
  MakeGuests("WAL");
  HostAdds("Bob");
  Open();
  Guests();
  host_.reset();
  EXPECT_EQ(std::vector<std::string>{"Veyra.mdb"}, folder_.Names());
}

TEST_F(ReadOnlyStoreTest, SeesAGuestAddedWhileItStaysOpen) {
  MakeGuests("WAL");
  Open();
  EXPECT_EQ("Ann;", Guests());
  HostAdds("Bob");
  EXPECT_EQ("Ann;Bob;", Guests());
}

TEST_F(ReadOnlyStoreTest, SeesAGuestAddedAndTheHostClosed) {
  MakeGuests("WAL");
  Open();
  EXPECT_EQ("Ann;", Guests());
  HostAdds("Bob");
  host_.reset();
  EXPECT_EQ("Ann;Bob;", Guests());
}

TEST_F(ReadOnlyStoreTest, SeesThatTheHostChangedTheKindOfJournal) {
  MakeGuests("DELETE");
  Open();
  EXPECT_EQ("Ann;", Guests());
  host_.emplace(File());
  host_->Run("PRAGMA journal_mode = WAL");
  host_.reset();
  const std::string before = Folder();
  EXPECT_EQ("Ann;", Guests());
  EXPECT_EQ(before, Folder());
}

TEST_F(ReadOnlyStoreTest, ReadsAFileThatTheHostReplaced) {
  MakeGuests("DELETE");
  Open();
  EXPECT_EQ("Ann;", Guests());
  fs::remove(File());
  host_.emplace(File());
  host_->Run("CREATE TABLE Guest(Name TEXT); INSERT INTO Guest VALUES ('Zoe')");
  host_.reset();
  EXPECT_EQ("Zoe;", Guests());
}

TEST_F(ReadOnlyStoreTest, ReadsTheLogOfAHostThatBrokeDown) {
  MakeGuests("WAL");
  HostAdds("Bob");
  HostBreaksDown();
  const std::string before = Folder();
  Open();
  EXPECT_EQ("Ann;Bob;", Guests());
  EXPECT_EQ(before, Folder());
}

TEST_F(ReadOnlyStoreTest, ReadsALogThatLostItsIndex) {
  MakeGuests("WAL");
  HostAdds("Bob");
  HostBreaksDown();
  fs::remove(File() + "-shm");
  const std::string before = Folder();
  Open();
  EXPECT_EQ("Ann;Bob;", Guests());
  EXPECT_EQ(before, Folder());
}

TEST_F(ReadOnlyStoreTest, ReportsAChangeThatAHostWithAJournalBrokeOff) {
  MakeGuests("DELETE");
  host_.emplace(File());
  host_->Run("PRAGMA cache_size = 1; PRAGMA cache_spill = 1; CREATE TABLE Big(b); BEGIN");
  for (int i = 0; i < 20; ++i) {
    host_->Run("INSERT INTO Big VALUES (zeroblob(4000))");
  }
  host_->Run("UPDATE Guest SET Name = 'half'");
  HostBreaksDown();
  const std::string before = Folder();
  try {
    Open();
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_EQ("Another program was interrupted in the middle of a change of the file.",
              error.report().Cause);
  }
  EXPECT_EQ(before, Folder());
}

TEST_F(ReadOnlyStoreTest, ReadsAFileWhoseNameNeedsCare) {
  MakeGuests("WAL");
  const fs::path odd = folder_.File("100% #1? \xC3\xA9&x=y.mdb");
  fs::rename(File(), odd);
  store_ = sqlite::OpenReadOnly(odd.string(), std::chrono::milliseconds(50));
  EXPECT_EQ("Ann;", Guests());
}

TEST_F(ReadOnlyStoreTest, ReportsAFileThatWentAway) {
  MakeGuests("DELETE");
  Open();
  fs::remove(File());
  EXPECT_THROW(Guests(), DatabaseError);
}

}  // namespace
}  // namespace veyra
