#include "app/other_desk.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "data/open_note.h"
#include "tests/app/startup_fixture.h"

namespace veyra {
namespace {

/// A calendar with a note beside it that says who has it open.
class OtherDeskTest : public StartUpFixture {
 protected:
  OtherDeskTest() { app_.Write("path.txt", data_.Path()); }

  void LeaveNote(const std::vector<OpenUser>& users) {
    WriteOpenNote(data_.File("Calendar.mdb"), {users, {}});
  }

  const OpenUser anna_{"anna", "northern desk", 4711, "2026-11-21 18:30:12"};
};

TEST_F(OtherDeskTest, WhatIsOpenOnAnotherComputerIsOpenedAfterAQuestion) {
  LeaveNote({anna_});
  dialogs_.AnswerNext(Answer::Yes);
  EXPECT_TRUE(Start());
  EXPECT_EQ(
      "[Yes/No Exclamation] This calendar is open on another computer:\r\n\r\n"
      "anna on northern desk, since 11/21/2026 18:30\r\n\r\n"
      "Open it here as well?",
      dialogs_.OnlyBox());
  EXPECT_EQ(Answer::No, dialogs_.LastMessage().Default);
  EXPECT_TRUE(session_.ResCon);
}

TEST_F(OtherDeskTest, WhoeverDoesNotWantToShareOpensNothing) {
  LeaveNote({anna_});
  dialogs_.AnswerNext(Answer::No);
  EXPECT_FALSE(Start());
  EXPECT_FALSE(session_.ResCon);
  EXPECT_FALSE(session_.GuestCon);
}

TEST_F(OtherDeskTest, AllWhoHaveItOpenElsewhereAreNamed) {
  LeaveNote({anna_, ThisUser(), {"ben", "hall", 12, "yesterday"}});
  dialogs_.AnswerNext(Answer::No);
  Start();
  EXPECT_NE(std::string::npos,
            dialogs_.OnlyBox().find("anna on northern desk, since 11/21/2026 18:30\r\n"
                                    "ben on hall, since yesterday\r\n\r\n"));
}

TEST_F(OtherDeskTest, AProgramOfThisComputerIsNoReasonToAsk) {
  LeaveNote({ThisUser()});
  EXPECT_TRUE(Start());
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(OtherDeskTest, ACalendarOfEachKindTellsOthersWhoHasItOpenUntilItIsClosed) {
  if (TestedStoreKind() == StoreKind::Postgres) {
    GTEST_SKIP() << "a server has room for many desks";
  }
  LeaveNote({anna_});
  dialogs_.AnswerNext(Answer::Yes);
  ASSERT_TRUE(Start());
  const auto open = ReadOpenNote(data_.File("Calendar.mdb"));
  ASSERT_TRUE(open);
  ASSERT_EQ(2U, open->Users.size());
  EXPECT_EQ(anna_, open->Users.front());
  EXPECT_EQ(ThisUser().Process, open->Users.back().Process);
  EXPECT_EQ(ThisUser().Machine, open->Users.back().Machine);
  session_.ResCon.reset();
  EXPECT_EQ(std::vector{anna_}, ReadOpenNote(data_.File("Calendar.mdb")).value().Users);
}

TEST_F(OtherDeskTest, TheLastOneToCloseItTakesTheNoteAway) {
  ASSERT_TRUE(Start());
  session_.ResCon.reset();
  EXPECT_FALSE(std::filesystem::exists(OpenNoteName(data_.File("Calendar.mdb"))));
}

TEST_F(OtherDeskTest, ANoteIsFoundBesideTheFileThatALinkLeadsTo) {
  LeaveNote({anna_});
  const TempFolder links;
  std::filesystem::create_symlink(data_.File("Calendar.mdb"), links.File("Calendar.mdb"));
  std::filesystem::create_symlink(data_.File("Veyra.mdb"), links.File("Veyra.mdb"));
  app_.Write("path.txt", links.path().string());
  dialogs_.AnswerNext(Answer::No);
  EXPECT_FALSE(Start());
}

TEST_F(OtherDeskTest, ARunningProgramThatComesToTheFrontIsEnough) {
  LeaveNote({anna_});
  std::string asked;
  EXPECT_FALSE(Start([&](const std::string& data_folder) {
    asked = data_folder;
    return true;
  }));
  EXPECT_EQ(data_.Path(), asked);
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_FALSE(session_.ResCon);
}

}  // namespace
}  // namespace veyra
