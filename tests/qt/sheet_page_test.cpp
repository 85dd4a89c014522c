#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QFileInfo>
#include <QPageLayout>
#include <QRegularExpression>
#include <csignal>

#include "forms/print/qt_sheet_pdf.h"
#include "forms/print/sheet_printer.h"
#include "tests/qt/printed_page.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

/// Of stored colours, red is in the lowest byte.
constexpr std::int32_t kWhite = 0xffffff;
constexpr std::int32_t kNavy = 0x500000;
constexpr std::int32_t kSky = 0xffcc00;
constexpr std::int32_t kBlue = 0xc00000;
constexpr std::int32_t kRed = 0x0000ff;
constexpr std::int32_t kPaleYellow = 0xccffff;

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

/// What is left of a text when readers have broken it and put marks of direction into it.
QString Letters(const QString& text) {
  static const QRegularExpression kNoise(
      QStringLiteral("[\\s\\x{200e}\\x{200f}\\x{202a}-\\x{202e}\\x{2066}-\\x{2069}]"));
  return text.normalized(QString::NormalizationForm_KC).remove(kNoise);
}

/// March 2014 with the 5th as today.
class SheetPageTest : public testing::Test {
 protected:
  SheetPageTest() {
    sheet_.Title = "March 2014";
    sheet_.Room = "Office of Fire";
    sheet_.Headers = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    sheet_.BackColor = kWhite;
    sheet_.HeaderColor = kBlue;
    sheet_.Again = "Print again";
    for (int number = 1; number <= 31; ++number) {
      SheetDay day;
      day.Place = number + 5;
      day.Number = std::to_string(number);
      day.Date = "the " + std::to_string(number) + ".";
      sheet_.Days.push_back(day);
    }
    Day(5).IsToday = true;
    Day(5).NumberColor = kRed;
    Day(5).ListColor = kPaleYellow;
  }

  SheetDay& Day(std::size_t number) { return sheet_.Days.at(number - 1); }

  void Book(std::size_t day, const std::string& name) {
    Day(day).Lines.push_back("12:00A-12:30A " + name);
  }

  /// So many bookings of each day, named by the day and their number.
  void BookAll(int bookings) {
    for (std::size_t day = 1; day <= sheet_.Days.size(); ++day) {
      for (int number = 1; number <= bookings; ++number) {
        Book(day, "Guest" + std::to_string(number) + " of " + std::to_string(day) + ".");
      }
    }
  }

  PrintedPage Print(PrintedBackground background = PrintedBackground::AsShown) {
    const QPageLayout paper(QPageSize(paper_), side_, {});
    WriteSheetPdf(File(), WithMargins(paper), sheet_, background);
    return PrintedPage(File());
  }

  QString File() const { return QString::fromStdString(folder_.File("month.pdf").string()); }

  void ExpectEveryLineWhole(const QString& printed) {
    const QString text = Letters(printed);
    for (const SheetDay& day : sheet_.Days) {
      for (const std::string& line : day.Lines) {
        EXPECT_EQ(1, text.count(Letters(QString::fromStdString(line)))) << line.substr(0, 99);
      }
    }
  }

  TempFolder folder_;
  Sheet sheet_;
  QPageSize::PageSizeId paper_ = QPageSize::A4;
  QPageLayout::Orientation side_ = QPageLayout::Landscape;
};

// On any paper

struct Paper {
  const char* Name;
  QPageSize::PageSizeId Size;
  QPageLayout::Orientation Side;
  const char* Described;
};

class PaperTest : public SheetPageTest, public testing::WithParamInterface<Paper> {
 protected:
  PaperTest() {
    paper_ = GetParam().Size;
    side_ = GetParam().Side;
  }
};

TEST_P(PaperTest, HasEveryPartOfAnEmptyMonthOnce) {
  const PrintedPage printed = Print();
  const QStringList words = printed.Words();
  EXPECT_EQ("1", printed.Info("Pages").toStdString());
  EXPECT_EQ(GetParam().Described, printed.Info("Page size").toStdString());
  EXPECT_EQ(1, printed.Text().count("March 2014"));
  EXPECT_EQ(1, printed.Text().count("Office of Fire"));
  for (const std::string& weekday : sheet_.Headers) {
    EXPECT_EQ(1, words.count(QString::fromStdString(weekday))) << weekday;
  }
  for (int day = 1; day <= 31; ++day) {
    EXPECT_EQ(1, words.count(QString::number(day))) << day;
  }
}

TEST_P(PaperTest, HasFiveLinesOfEachDayWhole) {
  BookAll(5);
  const PrintedPage printed = Print();
  EXPECT_EQ("1", printed.Info("Pages").toStdString());
  ExpectEveryLineWhole(printed.FlowingText());
}

TEST_P(PaperTest, HasSixtyLinesOfEachDayWhole) {
  BookAll(60);
  const PrintedPage printed = Print();
  ExpectEveryLineWhole(printed.FlowingText());
  EXPECT_EQ(31, printed.FlowingText().count(QRegularExpression("\\+\\d+ more, page \\d+")));
  EXPECT_GT(300 * 1024, QFileInfo(File()).size());
}

TEST_P(PaperTest, HasNamesOfTwoThousandLettersWhole) {
  std::string words;
  std::string letters;
  for (int number = 0; words.size() < 2000; ++number) {
    words += "name" + std::to_string(number) + " ";
    letters += "x" + std::to_string(number);
  }
  Book(4, words.substr(0, 1999) + ".");
  Book(9, letters + letters.substr(0, 2000 - letters.size()) + ".");
  const PrintedPage printed = Print();
  ExpectEveryLineWhole(printed.FlowingText());
  EXPECT_EQ(2, printed.FlowingText().count("+1 more, page 2"));
  EXPECT_EQ("2", printed.Info("Pages").toStdString());
}

TEST_P(PaperTest, HasNamesWrittenFromTheRightWhole) {
  Book(3, "\u2068משפחת כהן חתונה גדולה באולם המרכזי\u2069");
  Book(4, "\u2068عائلة محمد حفل زفاف كبير\u2069");
  ExpectEveryLineWhole(Print().ReadText());
}

TEST_P(PaperTest, HasNamesOfMixedScriptsWhole) {
  Book(5, "Γιώργος Παπαδόπουλος");
  Book(6, "Дмитрий Größe office fi");
  Book(7, "\u2068Cohen כהן wedding\u2069");
  ExpectEveryLineWhole(Print().ReadText());
}

TEST_P(PaperTest, HasEveryFontInItAndNoPicture) {
  BookAll(5);
  const PrintedPage printed = Print();
  const QStringList fonts = printed.Fonts();
  ASSERT_LE(2, fonts.size());
  for (const QString& font : fonts) {
    EXPECT_TRUE(font.simplified().contains(" Identity-H yes ")) << font.toStdString();
  }
  EXPECT_TRUE(printed.Pictures().isEmpty());
}

TEST_P(PaperTest, IsFilledUpToItsMargins) {
  sheet_.BackColor = kSky;
  constexpr int kDots = 127;  // 5 to the millimetre
  const QImage picture = Print().Picture(kDots);
  const auto [left, right] = RunOf(picture, picture.height() / 2, qRgb(0, 204, 255));
  EXPECT_NEAR(50, left, 1);
  EXPECT_NEAR(picture.width() - 51, right, 1);
}

constexpr auto kUpright = QPageLayout::Portrait;
constexpr auto kOnItsSide = QPageLayout::Landscape;

INSTANTIATE_TEST_SUITE_P(
    Papers, PaperTest,
    testing::Values(Paper{"A4", QPageSize::A4, kOnItsSide, "842 x 595 pts (A4)"},
                    Paper{"A4Upright", QPageSize::A4, kUpright, "595 x 842 pts (A4)"},
                    Paper{"Letter", QPageSize::Letter, kOnItsSide, "792 x 612 pts (letter)"},
                    Paper{"LetterUpright", QPageSize::Letter, kUpright, "612 x 792 pts (letter)"},
                    Paper{"A3", QPageSize::A3, kOnItsSide, "1191 x 842 pts (A3)"},
                    Paper{"A3Upright", QPageSize::A3, kUpright, "842 x 1191 pts (A3)"}),
    [](const auto& test) { return test.param.Name; });

// Text

TEST_F(SheetPageTest, LettersThatFontsJoinCanBeSearched) {
  Book(5, "fi");
  EXPECT_EQ(1, Print().Text().count("12:30A fi"));
}

TEST_F(SheetPageTest, OfANameOfHebrewEveryWordCanBeSearched) {
  const QStringList words = {"משפחת", "כהן", "חתונה", "גדולה", "באולם", "המרכזי"};
  Book(3, "\u2068" + words.join(' ').toStdString() + "\u2069");
  const QString text = Print().ReadText();
  for (const QString& word : words) {
    EXPECT_TRUE(text.contains(word)) << word.toStdString();
  }
}

/// Readers put the parts of such a name in the order in which they stand on the page.
TEST_F(SheetPageTest, OfANameFromTheRightWithLatinInItEveryWordCanBeSearched) {
  const QStringList words = {"חתונה", "Cohen", "ושות"};
  Book(8, "\u2068" + words.join(' ').toStdString() + "\u2069");
  const QString text = Print().ReadText();
  for (const QString& word : words) {
    EXPECT_TRUE(text.contains(word)) << word.toStdString();
  }
}

TEST_F(SheetPageTest, ItsNameIsTheTitleAndTheFacility) {
  EXPECT_EQ("March 2014 Office of Fire", Print().Info("Title").toStdString());
}

// Colours

TEST_F(SheetPageTest, TodayHasItsBackgroundAndItsFrame) {
  const QImage picture = Print().Picture(150);
  EXPECT_TRUE(HasColor(picture, qRgb(255, 255, 204)));
  EXPECT_TRUE(HasColor(picture, qRgb(255, 0, 0)));
}

TEST_F(SheetPageTest, TheTitleHasTheColorOfTheHeaders) {
  EXPECT_TRUE(HasColor(Print().Picture(150), qRgb(0, 0, 192)));
}

TEST_F(SheetPageTest, ADarkBackgroundIsKnownToBeDark) {
  EXPECT_FALSE(HasDarkBackground(sheet_));
  sheet_.BackColor = kNavy;
  EXPECT_TRUE(HasDarkBackground(sheet_));
}

TEST_F(SheetPageTest, ADarkListIsKnownToBeDark) {
  Day(5).ListColor = kNavy;
  EXPECT_TRUE(HasDarkBackground(sheet_));
}

TEST_F(SheetPageTest, ADarkBackgroundIsPrintedWhereItIsWanted) {
  sheet_.BackColor = kNavy;
  sheet_.HeaderColor = kWhite;
  EXPECT_TRUE(HasColor(Print().Picture(50), qRgb(0, 0, 80)));
}

TEST_F(SheetPageTest, WithoutItsBackgroundTheSheetIsWhite) {
  sheet_.BackColor = kNavy;
  const QImage picture = Print(PrintedBackground::White).Picture(150);
  EXPECT_FALSE(HasColor(picture, qRgb(0, 0, 80)));
  EXPECT_FALSE(HasColor(picture, qRgb(255, 255, 204)));
  EXPECT_EQ(qRgb(255, 255, 255), picture.pixel(picture.width() / 2, picture.height() - 70));
}

TEST_F(SheetPageTest, WithoutItsBackgroundPaleTextsAreBlack) {
  sheet_.BackColor = kNavy;
  sheet_.HeaderColor = kWhite;
  sheet_.Headers.clear();
  sheet_.Days.resize(1);
  sheet_.Days[0].Number = {};
  EXPECT_TRUE(HasColor(Print(PrintedBackground::White).Picture(150), qRgb(0, 0, 0)));
}

TEST_F(SheetPageTest, WithoutItsBackgroundTextsThatCanBeReadKeepTheirColors) {
  sheet_.BackColor = kNavy;
  const QImage picture = Print(PrintedBackground::White).Picture(150);
  EXPECT_TRUE(HasColor(picture, qRgb(0, 0, 192)));
  EXPECT_TRUE(HasColor(picture, qRgb(255, 0, 0)));
}

// Failures

TEST_F(SheetPageTest, AFolderThatIsMissingIsReported) {
  const QString file = QString::fromStdString(folder_.File("no/such.pdf").string());
  EXPECT_THROW(WriteSheetPdf(file, WithMargins({}), sheet_, PrintedBackground::White),
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

TEST_F(SheetPageTest, AFullDiskIsReported) {
  BookAll(5);
  const FullDisk full(4096);
  EXPECT_THROW(Print(), PrinterError);
}

TEST_F(SheetPageTest, AFullDiskSparesTheFileThatWasThere) {
  BookAll(5);
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
