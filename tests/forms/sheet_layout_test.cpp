#include "forms/print/sheet_layout.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "forms/print/line_fit.h"
#include "tests/forms/fixed_measure.h"

namespace veyra {
namespace {

/// A sheet of March 2014, on paper of A4 that lies on its side.
class SheetLayoutTest : public testing::Test {
 protected:
  SheetLayoutTest() {
    sheet_.Title = "March 2014";
    sheet_.Room = "Pool";
    sheet_.Headers = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    for (int day = 1; day <= 31; ++day) {
      sheet_.Days.push_back({.Place = day + 5,
                             .Number = std::to_string(day),
                             .Date = "March " + std::to_string(day)});
    }
  }

  void Book(std::size_t day, int lines, const std::string& name = "Smith") {
    for (int line = 1; line <= lines; ++line) {
      sheet_.Days.at(day - 1).Lines.push_back(std::to_string(line) + " " + name);
    }
  }

  SheetLayout LayOut(double width = 785, double height = 538) {
    return LayOutSheet(sheet_, width, height, FixedMeasure());
  }

  static std::vector<PlacedText> Texts(const SheetPage& page, TextKind kind) {
    std::vector<PlacedText> found;
    std::copy_if(page.Texts.begin(), page.Texts.end(), std::back_inserter(found),
                 [kind](const PlacedText& text) { return text.Kind == kind; });
    return found;
  }

  static int Lines(const SheetPage& page) {
    return static_cast<int>(Texts(page, TextKind::Line).size());
  }

  PlacedText Room() { return Texts(LayOut().Pages.front(), TextKind::Room).front(); }

  Sheet sheet_;
};

TEST_F(SheetLayoutTest, AnEmptyMonthHasOnePageWithACellForEachDay) {
  const SheetLayout layout = LayOut();
  ASSERT_EQ(1U, layout.Pages.size());
  EXPECT_EQ(31U, layout.Pages[0].Cells.size());
  EXPECT_EQ(7U, Texts(layout.Pages[0], TextKind::Header).size());
  EXPECT_EQ(31U, Texts(layout.Pages[0], TextKind::Number).size());
}

TEST_F(SheetLayoutTest, TheCellsReachFromOneSideOfThePageToTheOtherAndToItsFoot) {
  const std::vector<PlacedCell> cells = LayOut().Pages[0].Cells;
  EXPECT_NEAR(0, cells[1].Frame.Left, 0.01);
  EXPECT_NEAR(785, cells[7].Frame.Left + cells[7].Frame.Width, 0.01);
  EXPECT_NEAR(538, cells[30].Frame.Top + cells[30].Frame.Height, 0.01);
}

TEST_F(SheetLayoutTest, AFewLinesAreAllInTheirCell) {
  Book(5, 5);
  const SheetLayout layout = LayOut();
  EXPECT_EQ(1U, layout.Pages.size());
  EXPECT_EQ(5, Lines(layout.Pages[0]));
  EXPECT_TRUE(Texts(layout.Pages[0], TextKind::More).empty());
}

TEST_F(SheetLayoutTest, ALineStaysWithinItsCell) {
  Book(5, 5, std::string(60, 'x'));
  const SheetPage page = LayOut().Pages[0];
  const Box frame = page.Cells[4].Frame;
  for (const PlacedText& line : Texts(page, TextKind::Line)) {
    const int rows = FixedMeasure().RowsOf(line.Kind, line.Text, line.Width, line.Size);
    EXPECT_LT(frame.Left, line.Left);
    EXPECT_GT(frame.Left + frame.Width, line.Left + line.Width);
    EXPECT_GT(frame.Top + frame.Height, line.Top + rows * line.Size * kRowHeight);
  }
}

TEST_F(SheetLayoutTest, AllLinesHaveOneSize) {
  Book(5, 12);
  Book(20, 1);
  const SheetLayout layout = LayOut();
  for (const PlacedText& line : Texts(layout.Pages[0], TextKind::Line)) {
    EXPECT_DOUBLE_EQ(layout.LineSize, line.Size);
  }
}

TEST_F(SheetLayoutTest, WhatHasNoRoomIsUnderItsDateOnTheSecondPage) {
  Book(5, 60);
  const SheetLayout layout = LayOut();
  ASSERT_EQ(2U, layout.Pages.size());
  EXPECT_EQ(60, Lines(layout.Pages[0]) + Lines(layout.Pages[1]));
  ASSERT_EQ(1U, Texts(layout.Pages[1], TextKind::Heading).size());
  EXPECT_EQ("March 5", Texts(layout.Pages[1], TextKind::Heading)[0].Text);
}

TEST_F(SheetLayoutTest, TheCellSaysHowManyAreThere) {
  Book(5, 60);
  const SheetLayout layout = LayOut();
  ASSERT_EQ(1U, Texts(layout.Pages[0], TextKind::More).size());
  EXPECT_EQ("+" + std::to_string(Lines(layout.Pages[1])) + " more, page 2",
            Texts(layout.Pages[0], TextKind::More)[0].Text);
}

TEST_F(SheetLayoutTest, TheCellNamesThePageThatItsOwnDateIsOn) {
  for (std::size_t day = 1; day <= 31; ++day) {
    Book(day, 60);
  }
  const SheetLayout layout = LayOut();
  ASSERT_LT(3U, layout.Pages.size());
  const std::string last = Texts(layout.Pages[0], TextKind::More).back().Text;
  EXPECT_TRUE(last.ends_with(", page " + std::to_string(layout.Pages.size()))) << last;
}

TEST_F(SheetLayoutTest, EveryLineIsOnThePagesOnce) {
  for (std::size_t day = 1; day <= 31; ++day) {
    Book(day, 60, "guest of day " + std::to_string(day) + ".");
  }
  std::vector<std::string> wanted;
  for (const SheetDay& day : sheet_.Days) {
    wanted.insert(wanted.end(), day.Lines.begin(), day.Lines.end());
  }
  std::vector<std::string> placed;
  for (const SheetPage& page : LayOut().Pages) {
    for (const PlacedText& line : Texts(page, TextKind::Line)) {
      placed.push_back(line.Text);
    }
  }
  std::sort(wanted.begin(), wanted.end());
  std::sort(placed.begin(), placed.end());
  EXPECT_EQ(wanted, placed);
}

TEST_F(SheetLayoutTest, ANameOfTwoThousandLettersIsWholeOnTheFurtherPages) {
  Book(5, 1, std::string(2000, 'x'));
  const SheetLayout layout = LayOut();
  EXPECT_EQ(0, Lines(layout.Pages[0]));
  int rows = 0;
  for (const PlacedText& part : Texts(layout.Pages.at(1), TextKind::Line)) {
    EXPECT_EQ(rows, part.FirstRow);
    rows += part.Rows.value_or(0);
  }
  const PlacedText part = Texts(layout.Pages[1], TextKind::Line).front();
  EXPECT_EQ(FixedMeasure().RowsOf(part.Kind, part.Text, part.Width, part.Size), rows);
}

TEST_F(SheetLayoutTest, TheFurtherPagesBearTheHeadAndTheirNumber) {
  Book(5, 60);
  const SheetPage page = LayOut().Pages.at(1);
  EXPECT_EQ("March 2014", Texts(page, TextKind::Title).front().Text);
  EXPECT_EQ("Pool", Texts(page, TextKind::Room).front().Text);
  EXPECT_EQ("Page 2 of 2", Texts(page, TextKind::Footer).front().Text);
}

/// Prints what is translated as "<English>".
class MarkingMeasure : public FixedMeasure {
 public:
  std::string TextOf(const Phrase& phrase) const override {
    return phrase.TranslatedBy([](const std::string& pattern) { return "<" + pattern + ">"; });
  }
};

TEST_F(SheetLayoutTest, WhatIsAddedSpeaksTheOperatorsLanguage) {
  Book(5, 60);
  const SheetLayout layout = LayOutSheet(sheet_, 785, 538, MarkingMeasure());
  const std::string left = std::to_string(Lines(layout.Pages.at(1)));
  EXPECT_EQ("<+" + left + " more, page 2>", Texts(layout.Pages[0], TextKind::More).at(0).Text);
  EXPECT_EQ("<Page 2 of 2>", Texts(layout.Pages[1], TextKind::Footer).at(0).Text);
}

TEST_F(SheetLayoutTest, WhatIsAddedToAnEnglishSheetIsEnglish) {
  Book(5, 60);
  sheet_.IsEnglish = true;
  const SheetLayout layout = LayOutSheet(sheet_, 785, 538, MarkingMeasure());
  const std::string left = std::to_string(Lines(layout.Pages.at(1)));
  EXPECT_EQ("+" + left + " more, page 2", Texts(layout.Pages[0], TextKind::More).at(0).Text);
  EXPECT_EQ("Page 2 of 2", Texts(layout.Pages[1], TextKind::Footer).at(0).Text);
}

TEST_F(SheetLayoutTest, TheSheetsOwnTextsAreTranslatedWhereTheyAreMarked) {
  Book(5, 200);
  sheet_.Title = Phrase::Tr("March");
  sheet_.Days[4].Number = Phrase::Tr("%1 %2", Phrase::Tr("Wednesday"), 5);
  sheet_.Days[4].Date = Phrase::Tr("May");
  const SheetLayout layout = LayOutSheet(sheet_, 785, 538, MarkingMeasure());
  EXPECT_EQ("<March>", Texts(layout.Pages.at(0), TextKind::Title).at(0).Text);
  EXPECT_EQ("<<Wednesday> 5>", Texts(layout.Pages[0], TextKind::Number).at(4).Text);
  const std::vector<PlacedText> dates = Texts(layout.Pages.at(1), TextKind::Heading);
  EXPECT_EQ("<May>", dates.at(0).Text);
  EXPECT_EQ("<<May>, continued>", dates.at(1).Text);
}

TEST_F(SheetLayoutTest, ThePageOfAMonthThatFitsBearsNoNumber) {
  EXPECT_TRUE(Texts(LayOut().Pages[0], TextKind::Footer).empty());
}

TEST_F(SheetLayoutTest, AFacilityNameThatFitsHasOneRow) {
  EXPECT_EQ(1, Room().Rows);
}

TEST_F(SheetLayoutTest, ALongFacilityNameWrapsToTwoRowsBeforeItShrinks) {
  const double size = Room().Size;
  sheet_.Room = std::string(150, 'x');
  EXPECT_EQ(2, Room().Rows);
  EXPECT_DOUBLE_EQ(size, Room().Size);
}

TEST_F(SheetLayoutTest, ALongerFacilityNameShrinksInTwoRows) {
  const double size = Room().Size;
  sheet_.Room = std::string(250, 'x');
  EXPECT_EQ(2, Room().Rows);
  EXPECT_GT(size, Room().Size);
  EXPECT_LE(kSmallestLine, Room().Size);
}

TEST_F(SheetLayoutTest, AFacilityNameWithoutEndLeavesRoomForTheMonth) {
  sheet_.Room = std::string(100000, 'x');
  const SheetLayout layout = LayOut();
  EXPECT_GT(538.0 / 2, layout.Pages[0].Cells[0].Frame.Top);
}

TEST_F(SheetLayoutTest, TheTitleAndTheLastRowOfTheFacilityStandOnOneLine) {
  sheet_.Room = std::string(150, 'x');
  const SheetPage page = LayOut().Pages[0];
  const PlacedText title = Texts(page, TextKind::Title).front();
  const PlacedText room = Texts(page, TextKind::Room).front();
  const double foot = room.Top + room.Size * (kRowHeight + kBaseline);
  EXPECT_NEAR(title.Top + title.Size * kBaseline, foot, 0.01);
}

TEST_F(SheetLayoutTest, OnLargerPaperEverythingIsLarger) {
  const SheetLayout small = LayOut();
  const SheetLayout large = LayOut(1134, 785);
  EXPECT_NEAR(785.0 / 538, large.Scale, 0.001);
  EXPECT_LT(Texts(small.Pages[0], TextKind::Title).front().Size,
            Texts(large.Pages[0], TextKind::Title).front().Size);
  EXPECT_LT(small.LineSize, large.LineSize);
}

TEST_F(SheetLayoutTest, AWeekHasItsDaysBelowEachOtherOnUprightPaper) {
  sheet_.Headers.clear();
  sheet_.UprightColumns = 1;
  sheet_.Days.resize(7);
  for (int place = 0; place < 7; ++place) {
    sheet_.Days[static_cast<std::size_t>(place)].Place = place;
  }
  EXPECT_DOUBLE_EQ(538, LayOut(538, 785).Pages[0].Cells[6].Frame.Width);
  EXPECT_DOUBLE_EQ(LayOut().Pages[0].Cells[0].Frame.Top, LayOut().Pages[0].Cells[6].Frame.Top);
}

TEST_F(SheetLayoutTest, EveryTextStaysOnThePageWhateverThePaper) {
  for (std::size_t day = 1; day <= 31; ++day) {
    Book(day, 20, std::string(day * 9, 'x'));
  }
  for (const auto& [width, height] :
       std::vector<std::pair<double, double>>{{785, 538}, {538, 785}, {240, 400}, {2300, 1600}}) {
    for (const SheetPage& page : LayOut(width, height).Pages) {
      for (const PlacedText& text : page.Texts) {
        const int all = FixedMeasure().RowsOf(text.Kind, text.Text, text.Width, text.Size);
        const int rows = text.Rows.value_or(all);
        EXPECT_GE(width + 0.01, text.Left + text.Width) << text.Text;
        EXPECT_GE(height + 0.01, text.Top + rows * text.Size * kRowHeight) << text.Text;
      }
    }
  }
}

}  // namespace
}  // namespace veyra
