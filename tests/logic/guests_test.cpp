#include "logic/guests.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "data/errors.h"
#include "tests/calendar_folder.h"

namespace veyra::modRes {
namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

class GuestsTest : public testing::Test {
 protected:
  NameBox Load(NameBox box = {}) {
    const auto session = folder_.OpenSession();
    LoadGuestNames(*session, box);
    return box;
  }

  static Names LoadIn(Session& session) {
    NameBox box;
    LoadGuestNames(session, box);
    return box.Items;
  }

  /// Waits until the file's last change lies so far back that one which follows shows; at once
  /// where nothing is kept that could be old.
  static void AwaitSteadyMark(Session& session) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    for (auto mark = session.GuestCon->MarkOf("Guest"); mark != nullptr;) {
      const auto next = session.GuestCon->MarkOf("Guest");
      if (next == mark) {
        return;
      }
      mark = next;
      ASSERT_LT(std::chrono::steady_clock::now(), deadline);
    }
  }

  CalendarFolder folder_;
};

TEST_F(GuestsTest, NamesComeInTheTablesOwnOrderWithDuplicates) {
  for (const char* name : {"Zoe", "Adam", "Zoe"}) {
    folder_.AddGuest(std::string(name));
  }
  EXPECT_EQ((Names{"Zoe", "Adam", "Zoe"}), Load().Items);
}

TEST_F(GuestsTest, AnEmptyTableIsToldInTheTextNotInTheList) {
  const NameBox box = Load({{"left over"}, ""});
  EXPECT_EQ((NameBox{{}, "No Guests in Veyra"}), box);
}

TEST_F(GuestsTest, ANullNameAddsNothingAndAnEmptyOneAnEmptyLine) {
  folder_.AddGuest(std::string("Ann"));
  folder_.AddGuest(Null{});
  folder_.AddGuest(std::string());
  EXPECT_EQ((Names{"Ann", ""}), Load().Items);
}

TEST_F(GuestsTest, OnlyNullNamesAreAnEmptyListButNoEmptyTable) {
  folder_.AddGuest(Null{});
  EXPECT_EQ((NameBox{{}, ""}), Load());
}

TEST_F(GuestsTest, LoadingAgainReplacesTheListAndKeepsTheText) {
  folder_.AddGuest(std::string("Ann"));
  EXPECT_EQ((NameBox{{"Ann"}, "typed"}), Load({{"Old"}, "typed"}));
}

TEST_F(GuestsTest, NamesOfAnyScriptArriveWhole) {
  const std::string long_name(10000, 'x');
  const Names names = {"O'Brien \"Bob\" #1", "two\nlines", "\U0001F3BE", "\u05D3\u05D5\u05D3",
                       long_name};
  for (const std::string& name : names) {
    folder_.AddGuest(name);
  }
  EXPECT_EQ(names, Load().Items);
}

TEST_F(GuestsTest, WhoeverComesOrLeavesMeanwhileShowsTheNextTime) {
  const auto session = folder_.OpenSession();
  EXPECT_EQ(Names{}, LoadIn(*session));
  folder_.AddGuest(std::string("Ann"));
  EXPECT_EQ(Names{"Ann"}, LoadIn(*session));
  folder_.AddGuest(std::string("Bob"));
  EXPECT_EQ((Names{"Ann", "Bob"}), LoadIn(*session));
  folder_.RemoveGuest();
  EXPECT_EQ(Names{"Bob"}, LoadIn(*session));
}

TEST_F(GuestsTest, WhoeverComesLongAfterTheLastChangeShowsTheNextTime) {
  folder_.AddGuest(std::string("Ann"));
  const auto session = folder_.OpenSession();
  AwaitSteadyMark(*session);
  EXPECT_EQ(Names{"Ann"}, LoadIn(*session));
  folder_.AddGuest(std::string("Bob"));
  EXPECT_EQ((Names{"Ann", "Bob"}), LoadIn(*session));
}

TEST_F(GuestsTest, AreReadAgainOnlyWhenAnAccessFileHasChanged) {
  if (TestedStoreKind() != StoreKind::Access) {
    GTEST_SKIP() << "other kinds of file are read each time";
  }
  folder_.AddGuest(std::string("Ann"));
  const auto session = folder_.OpenSession();
  AwaitSteadyMark(*session);
  LoadIn(*session);
  session->Guests.Names.front() = "Kept";
  EXPECT_EQ(Names{"Kept"}, LoadIn(*session));
}

TEST_F(GuestsTest, OfAnotherFileAreNotThoseThatWereKept) {
  folder_.AddGuest(std::string("Ann"));
  const auto session = folder_.OpenSession();
  AwaitSteadyMark(*session);
  EXPECT_EQ(Names{"Ann"}, LoadIn(*session));
  CalendarFolder other;
  other.AddGuest(std::string("Zoe"));
  session->DataFolder = other.Path();
  CreateVeyraCon(*session);
  AwaitSteadyMark(*session);
  EXPECT_EQ(Names{"Zoe"}, LoadIn(*session));
}

/// The host product has made its file anew, as when it is compacted.
TEST_F(GuestsTest, OfAFileThatTookThePlaceShowTheNextTime) {
  if (TestedStoreKind() == StoreKind::Postgres) {
    GTEST_SKIP() << "the guests of a server are in no file";
  }
  folder_.AddGuest(std::string("Ann"));
  const auto session = folder_.OpenSession();
  EXPECT_EQ(Names{"Ann"}, LoadIn(*session));
  CalendarFolder other;
  other.AddGuest(std::string("Zoe"));
  fs::rename(other.File("Veyra.mdb"), folder_.File("Veyra.mdb"));
  EXPECT_EQ(Names{"Zoe"}, LoadIn(*session));
  folder_.AddGuest(std::string("Bob"));
  EXPECT_EQ((Names{"Zoe", "Bob"}), LoadIn(*session));
}

TEST_F(GuestsTest, OfAFileThatCannotBeReadComeOnceItCan) {
  if (TestedStoreKind() == StoreKind::Postgres) {
    GTEST_SKIP() << "the guests of a server are in no file";
  }
  folder_.AddGuest(std::string("Ann"));
  const auto session = folder_.OpenSession();
  CalendarFolder other;
  other.AddGuest(std::string("Zoe"));
  folder_.Folder().Write("broken", std::string(10000, 'x'));
  fs::rename(folder_.File("broken"), folder_.File("Veyra.mdb"));
  NameBox box;
  EXPECT_THROW(LoadGuestNames(*session, box), DatabaseError);
  EXPECT_THROW(LoadGuestNames(*session, box), DatabaseError);
  fs::rename(other.File("Veyra.mdb"), folder_.File("Veyra.mdb"));
  EXPECT_EQ(Names{"Zoe"}, LoadIn(*session));
}

TEST_F(GuestsTest, ThatThereAreNoneIsToldEachTime) {
  const auto session = folder_.OpenSession();
  AwaitSteadyMark(*session);
  for (int time = 0; time < 2; ++time) {
    NameBox box;
    LoadGuestNames(*session, box);
    EXPECT_EQ((NameBox{{}, "No Guests in Veyra"}), box);
  }
}

}  // namespace
}  // namespace veyra::modRes
