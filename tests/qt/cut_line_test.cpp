#include <gtest/gtest.h>

#include <QApplication>

#include "forms/widgets/qt_cut_line.h"

namespace veyra {
namespace {

class CutLineTest : public testing::Test {
 protected:
  int Width(const QString& text) const { return metrics_.horizontalAdvance(text); }

  QFontMetrics metrics_{QApplication::font()};
};

TEST_F(CutLineTest, ALineThatFitsIsWhole) {
  const QString line = QStringLiteral(" 9:00A-10:30A Smith");
  EXPECT_EQ(line, CutLine(line, metrics_, Width(line)));
}

TEST_F(CutLineTest, ALongerOneHasAnEllipsisAtItsEnd) {
  const QString line = QStringLiteral(" 9:00A-10:30A Smith");
  const int room = Width(line) - 1;
  const QString cut = CutLine(line, metrics_, room);
  EXPECT_TRUE(cut.endsWith(QChar(0x2026))) << cut.toStdString();
  EXPECT_TRUE(line.startsWith(cut.chopped(1))) << cut.toStdString();
  EXPECT_LE(Width(cut), room);
  EXPECT_GT(cut.size(), line.size() - 5);
}

TEST_F(CutLineTest, TheEllipsisOfANameFromTheRightBelongsToTheName) {
  const QString line = QString::fromUtf8(" 9:00A-10:30A קבוצת הבוקר");
  const QString cut = CutLine(line, metrics_, Width(line) - 8);
  EXPECT_EQ(QChar(0x200F), cut.back());
  EXPECT_TRUE(line.startsWith(cut.chopped(2))) << cut.toStdString();
  const QString times = CutLine(line, metrics_, Width(QStringLiteral(" 9:00A-")));
  EXPECT_EQ(QChar(0x2026), times.back());
}

}  // namespace
}  // namespace veyra
