#include "forms/desk_undo.h"

#include "tests/forms/day_fixture.h"

namespace veyra {
namespace {

class FakeFootLine : public FootLine {
 public:
  std::vector<std::string> Lines;
  void ShowFootLine(const Phrase& text) override { Lines.push_back(text.English()); }
};

/// The day window of 6 April 2014 and what is told of its changes.
class DeskUndoWindowsTest : public DayFixture {
 protected:
  void Open() {
    OpenDay();
    undo_ = std::make_unique<DeskUndo>(*session_, windows_, foot_, dialogs_);
  }

  void Book() {
    AnswerNext(Answer::Ok);
    Drag(19, 21);
    undo_->TellOfChange();
  }

  FakeFootLine foot_;
  std::unique_ptr<DeskUndo> undo_;
};

TEST_F(DeskUndoWindowsTest, AChangeIsToldOnce) {
  Open();
  undo_->TellOfChange();
  EXPECT_TRUE(foot_.Lines.empty());
  Book();
  undo_->TellOfChange();
  EXPECT_EQ((Boxes{"Booked: Pool, 4/6/2014,  9:00A-10:30A No Title   Undo (Ctrl+Z)"}), foot_.Lines);
}

TEST_F(DeskUndoWindowsTest, WhatIsUndoneIsToldAndSeen) {
  Open();
  Book();
  AnswerNext(Answer::Yes);
  undo_->Undo();
  undo_->TellOfChange();
  EXPECT_EQ("Undone. Booked: Pool, 4/6/2014,  9:00A-10:30A No Title", foot_.Lines.back());
  EXPECT_EQ(2U, foot_.Lines.size());
  EXPECT_EQ("show what is stored\n", windows_.Log);
  EXPECT_EQ("", Bookings());
}

TEST_F(DeskUndoWindowsTest, WhatIsNotUndoneIsNotTold) {
  Open();
  undo_->Undo();
  EXPECT_TRUE(foot_.Lines.empty());
  EXPECT_EQ("", windows_.Log);
}

TEST_F(DeskUndoWindowsTest, TheDayWindowAsksForIt) {
  Open();
  day_->UndoKey();
  EXPECT_EQ("undo\n", windows_.Log);
}

}  // namespace
}  // namespace veyra
