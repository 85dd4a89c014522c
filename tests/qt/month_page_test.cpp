#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QFileInfo>
#include <QFontMetricsF>
#include <QListWidget>
#include <QPageLayout>
#include <QScrollBar>
#include <csignal>
#include <memory>

#include "forms/month/print/month_printer.h"
#include "forms/month/print/qt_month_page.h"
#include "forms/month/print/qt_month_pdf.h"
#include "tests/forms/fake_month_printer.h"
#include "tests/qt/printed_page.h"
#include "tests/qt/shown_month.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

QString InFolder(const TempFolder& folder, const char* name) {
  return QString::fromStdString(folder.File(name).string());
}

QPageLayout Paper(QPageSize::PageSizeId size) {
  return QPageLayout(QPageSize(size), QPageLayout::Portrait, {});
}

/// The longest run of such pixels in the row of the picture, as its first and last place.
std::pair<int, int> RunOf(const QImage& picture, int row, QRgb color) {
  int first = -1;
  int last = -1;
  for (int x = 0; x < picture.width(); ++x) {
    if (picture.pixel(x, row) == color) {
      first = first < 0 ? x : first;
      last = x;
    }
  }
  return {first, last};
}

bool HasColor(const QImage& picture, QRgb color) {
  for (int row = 0; row < picture.height(); ++row) {
    if (RunOf(picture, row, color).first >= 0) {
      return true;
    }
  }
  return false;
}

class MonthPageTest : public testing::Test {
 protected:
  MonthPageTest() : month_([](auto&) { return std::make_unique<FakeMonthPrinter>(); }) {}

  void ShowFullMonth(int width = 1000, int height = 680) {
    for (int day = 1; day <= 31; ++day) {
      month_.Book(day, 12);
    }
    month_.Show(width, height);
  }

  PrintedPage Print(QPageSize::PageSizeId paper = QPageSize::A4) {
    const QtMonthPage page = month_.Window.InSight();
    WriteMonthPdf(File(), LayoutFor(page, Paper(paper)), page);
    return PrintedPage(File());
  }

  QString File() const { return InFolder(folder_, "month.pdf"); }

  /// The list of a day of March 2014.
  QListWidget* List(int day) {
    return month_.Window.findChild<QListWidget*>(QStringLiteral("lstDay(%1)").arg(day + 6));
  }

  QStringList LinesInSight(int day) { return month_.Window.InSight().Days[day + 6]->Lines; }

  TempFolder folder_;
  ShownMonth month_;
};

// On either paper

class PaperTest : public MonthPageTest, public testing::WithParamInterface<QPageSize::PageSizeId> {
 protected:
  PaperTest() { ShowFullMonth(); }

  PrintedPage Print() { return MonthPageTest::Print(GetParam()); }
};

TEST_P(PaperTest, HasOnePage) {
  EXPECT_EQ("1", Print().Info("Pages").toStdString());
}

TEST_P(PaperTest, HasTheTitleOnce) {
  EXPECT_EQ(1, Print().Text().count("March 2014"));
}

TEST_P(PaperTest, HasTheFacilityOnce) {
  EXPECT_EQ(1, Print().Text().count("Office of Fire"));
}

TEST_P(PaperTest, HasEveryWeekdayOnce) {
  const QStringList words = Print().Words();
  for (const char* weekday :
       {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"}) {
    EXPECT_EQ(1, words.count(weekday)) << weekday;
  }
}

TEST_P(PaperTest, HasEveryDayNumberOnce) {
  const QStringList words = Print().Words();
  for (int day = 1; day <= 31; ++day) {
    EXPECT_EQ(1, words.count(QString::number(day))) << day;
  }
}

TEST_P(PaperTest, HasEveryLineInSightOnce) {
  const QString text = Print().Text();
  for (int day = 1; day <= 31; ++day) {
    ASSERT_LE(4, LinesInSight(day).size());
    for (const QString& line : LinesInSight(day)) {
      EXPECT_EQ(1, text.count(line.trimmed())) << line.toStdString();
    }
  }
}

TEST_P(PaperTest, HasNoLineThatIsOutOfSight) {
  EXPECT_EQ(0, Print().Text().count("05-12"));
}

TEST_P(PaperTest, HasNothingOfTheControls) {
  const QString text = Print().Text();
  for (const char* caption : {"Print", "Next", "Previous", "Delete", "Help", "Settings"}) {
    EXPECT_EQ(0, text.count(caption)) << caption;
  }
}

TEST_P(PaperTest, HasEveryFontInIt) {
  const QStringList fonts = Print().Fonts();
  ASSERT_LE(2, fonts.size());
  for (const QString& font : fonts) {
    EXPECT_TRUE(font.simplified().contains(" Identity-H yes ")) << font.toStdString();
  }
}

TEST_P(PaperTest, IsDrawnWithoutPictures) {
  EXPECT_TRUE(Print().Pictures().isEmpty());
}

TEST_P(PaperTest, IsASmallFile) {
  Print();
  EXPECT_GT(300 * 1024, QFileInfo(File()).size());
}

TEST_P(PaperTest, LiesOnItsSide) {
  const std::string size =
      GetParam() == QPageSize::A4 ? "842 x 595 pts (A4)" : "792 x 612 pts (letter)";
  EXPECT_EQ(size, Print().Info("Page size").toStdString());
}

TEST_P(PaperTest, IsFilledUpToItsMargins) {
  month_.SetColors({"16763904", "0", "0", "255", "16777215"});
  month_.Show();
  constexpr int kDots = 127;  // 5 to the millimetre
  const QImage picture = Print().Picture(kDots);
  const auto [left, right] = RunOf(picture, picture.height() / 2, qRgb(0, 204, 255));
  EXPECT_NEAR(50, left, 1);
  EXPECT_NEAR(picture.width() - 51, right, 1);
}

INSTANTIATE_TEST_SUITE_P(Papers, PaperTest, testing::Values(QPageSize::A4, QPageSize::Letter),
                         [](const auto& test) {
                           return test.param == QPageSize::A4 ? "A4" : "Letter";
                         });

// What is in sight

TEST_F(MonthPageTest, AWindowHigherThanWideIsPrintedUpright) {
  month_.Show(700, 1200);
  EXPECT_EQ("595 x 842 pts (A4)", Print().Info("Page size").toStdString());
}

TEST_F(MonthPageTest, TheLinesInSightAreTheFirstOnes) {
  ShowFullMonth();
  EXPECT_TRUE(LinesInSight(5).first().startsWith("12:30A- 1:00A 05-1"));
}

TEST_F(MonthPageTest, NoMoreLinesAreInSightThanTheListHasRoomFor) {
  ShowFullMonth();
  const double rows = static_cast<double>(List(5)->viewport()->height()) /
                      List(5)->visualItemRect(List(5)->item(0)).height();
  EXPECT_EQ(std::lround(rows), LinesInSight(5).size());
}

TEST_F(MonthPageTest, ACellWithMoreLinesIsMarked) {
  ShowFullMonth();
  EXPECT_TRUE(month_.Window.InSight().Days[11]->HasMore);
}

TEST_F(MonthPageTest, ACellThatShowsAllItsLinesIsNotMarked) {
  month_.Book(5, 2);
  month_.Show();
  EXPECT_FALSE(month_.Window.InSight().Days[11]->HasMore);
}

TEST_F(MonthPageTest, AScrolledListIsPrintedAsItStands) {
  ShowFullMonth();
  List(5)->verticalScrollBar()->setValue(List(5)->verticalScrollBar()->maximum());
  EXPECT_EQ(1, Print().Text().count("05-12"));
}

TEST_F(MonthPageTest, ALongLineIsPrintedAsFarAsItIsInSight) {
  month_.Book(5, 1, "a name that is longer by far than any cell of the window is wide");
  month_.Show();
  const QString line = LinesInSight(5).first();
  const QFontMetricsF metrics(List(5)->font());
  EXPECT_NEAR(List(5)->viewport()->width(), metrics.horizontalAdvance(line),
              metrics.horizontalAdvance('0'));
}

TEST_F(MonthPageTest, ALongLineThatIsScrolledIsPrintedFromItsPartInSight) {
  month_.Book(5, 1, "a name that is longer by far than any cell of the window is wide");
  month_.Show();
  List(5)->horizontalScrollBar()->setValue(List(5)->horizontalScrollBar()->maximum());
  EXPECT_TRUE(LinesInSight(5).first().endsWith("window is wide"));
}

TEST_F(MonthPageTest, OfANameThatRunsLeftwardsTheEndIsInSight) {
  month_.Book(5, 1, "אבגדהוזחטיכלמנסעפצקרשת");
  month_.Show();
  const QString line = LinesInSight(5).first();
  EXPECT_TRUE(line.endsWith(QStringLiteral("שת"))) << line.toStdString();
  EXPECT_FALSE(line.contains(QStringLiteral("א"))) << line.toStdString();
}

TEST_F(MonthPageTest, AShortLineIsPrintedWhole) {
  month_.Book(5, 1, "x");
  month_.Show();
  EXPECT_EQ("12:30A- 1:00A 05-1 x", LinesInSight(5).first().toStdString());
}

TEST_F(MonthPageTest, AVeryLongLineIsPrintedWholeFromAVeryWideWindow) {
  month_.Book(5, 1, "a name that is longer by far than any cell of a common window is wide");
  month_.Show(7000, 1000);
  EXPECT_EQ(1, Print().Text().count("05-1 a name that is longer by far than any cell of a common "
                                    "window is wide"));
}

TEST_F(MonthPageTest, LettersThatFontsJoinCanBeSearched) {
  month_.Book(5, 1, "fi");
  month_.Show();
  EXPECT_EQ(1, Print().Text().count("05-1 fi"));
}

TEST_F(MonthPageTest, NoDayOfAnotherMonthIsPrinted) {
  month_.Show();
  EXPECT_FALSE(Print().Words().contains("32"));
}

// Colours

TEST_F(MonthPageTest, TodaysListHasItsBackground) {
  month_.Show();
  EXPECT_TRUE(HasColor(Print().Picture(50), qRgb(255, 255, 204)));
}

TEST_F(MonthPageTest, TodaysCellIsFramedInTodaysColor) {
  month_.Show();
  EXPECT_TRUE(HasColor(Print().Picture(150), qRgb(255, 0, 0)));
}

TEST_F(MonthPageTest, TheTitleHasTheColorOfTheHeaders) {
  month_.Show();
  EXPECT_TRUE(HasColor(Print().Picture(150), qRgb(0, 0, 192)));
}

// Failures

TEST_F(MonthPageTest, AFolderThatIsMissingIsReported) {
  month_.Show();
  const QtMonthPage page = month_.Window.InSight();
  EXPECT_THROW(
      WriteMonthPdf(InFolder(folder_, "no/such.pdf"), LayoutFor(page, Paper(QPageSize::A4)), page),
      PrinterError);
}

/// While it lives no file can grow beyond so many bytes: a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &usual_);
    rlimit full = usual_;
    full.rlim_cur = bytes;
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &usual_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit usual_{};
  void (*handler_)(int) = nullptr;
};

TEST_F(MonthPageTest, AFullDiskIsReported) {
  ShowFullMonth();
  const FullDisk full(4096);
  EXPECT_THROW(Print(), PrinterError);
}

TEST_F(MonthPageTest, AFullDiskSparesTheFileThatWasThere) {
  ShowFullMonth();
  folder_.Write("month.pdf", "last month's");
  try {
    const FullDisk full(4096);
    Print();
  } catch (const PrinterError&) {
    EXPECT_EQ("last month's", folder_.Read("month.pdf"));
    return;
  }
  FAIL() << "the full disk went unnoticed";
}

}  // namespace
}  // namespace veyra
