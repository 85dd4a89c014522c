#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QImage>
#include <QListWidget>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionViewItem>

#include "forms/month/qt_plain_lines.h"

namespace veyra {
namespace {

constexpr qreal kSmallest = 6;
constexpr qreal kLargest = 24;
constexpr qreal kStep = 0.5;

QFont FixedPitch(qreal size) {
  QFont font(QStringLiteral("Courier New"));
  font.setStyleHint(QFont::Monospace);
  font.setPointSizeF(size);
  return font;
}

QStringList PlainTexts() {
  QString all;
  for (char16_t sign = u' '; sign <= u'~'; ++sign) {
    all += QChar(sign);
  }
  return {QStringLiteral("12:00A- 1:00A Smith"),  QString(), QStringLiteral(" "),
          QStringLiteral("office fi ffl -> != "), all,       QStringLiteral(" 9:00A-10:3\u2026")};
}

/// A list with the font of a day's, and how the style itself deals with its lines.
class PlainLinesTest : public testing::Test {
 protected:
  void SetSize(qreal size) {
    list_.setFont(FixedPitch(size));
    line_.initFrom(&list_);
    line_.font = list_.font();
    line_.fontMetrics = QFontMetrics(line_.font);
    line_.features = QStyleOptionViewItem::HasDisplay;
    line_.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    line_.textElideMode = Qt::ElideNone;
  }

  QSize StyledSize(const QString& text) {
    line_.text = text;
    line_.rect = QRect();
    return list_.style()->sizeFromContents(QStyle::CT_ItemViewItem, &line_, {}, &list_);
  }

  QImage Drawn(const QString& text, qreal ratio, bool by_style) {
    line_.text = text;
    line_.rect = QRect(QPoint(3, 5), StyledSize(text));
    QImage image((line_.rect.size() + QSize(9, 9)) * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    if (by_style) {
      list_.style()->drawControl(QStyle::CE_ItemViewItem, &line_, &painter, &list_);
    } else {
      QtPlainLines(list_).Draw(painter, line_, text);
    }
    return image;
  }

  QListWidget list_;
  QStyleOptionViewItem line_;
};

TEST_F(PlainLinesTest, AFixedPitchFontIsCovered) {
  SetSize(9);
  const QtPlainLines lines(list_);
  for (const QString& text : PlainTexts()) {
    EXPECT_TRUE(lines.Covers(text)) << text.toStdString();
  }
}

TEST_F(PlainLinesTest, OtherSignsAreLeftToTheStyle) {
  SetSize(9);
  const QtPlainLines lines(list_);
  for (const char16_t* text :
       {u"M\u00FCller", u"a\tb", u"\u05D0\u05D1", u"\u4E2D", u"e\u0301", u"\u200F", u"a\nb"}) {
    EXPECT_FALSE(lines.Covers(QString::fromUtf16(text))) << QString::fromUtf16(text).toStdString();
  }
}

TEST_F(PlainLinesTest, AFontWithSignsOfSeveralWidthsIsLeftToTheStyle) {
  list_.setFont(QFont(QStringLiteral("Sans Serif"), 9));
  EXPECT_FALSE(QtPlainLines(list_).Covers(QStringLiteral("Smith")));
}

TEST_F(PlainLinesTest, ALineTakesTheRoomThatTheStyleGivesIt) {
  for (qreal size = kSmallest; size <= kLargest; size += kStep) {
    SetSize(size);
    const QtPlainLines lines(list_);
    for (const QString& text : PlainTexts()) {
      EXPECT_EQ(StyledSize(text), lines.SizeOf(text)) << size << " " << text.toStdString();
    }
  }
}

TEST_F(PlainLinesTest, ALineIsDrawnPixelForPixelAsByTheStyle) {
  for (const qreal ratio : {1.0, 1.5, 2.0}) {
    for (qreal size = kSmallest; size <= kLargest; size += kStep) {
      SetSize(size);
      for (const QString& text : PlainTexts()) {
        EXPECT_EQ(Drawn(text, ratio, true), Drawn(text, ratio, false))
            << ratio << " " << size << " " << text.toStdString();
      }
    }
  }
}

TEST_F(PlainLinesTest, ACutLineFillsTheWidth) {
  const QString text = QStringLiteral("12:00A- 1:00A Guest number 17");
  for (qreal size = kSmallest; size <= kLargest; size += kStep) {
    SetSize(size);
    const QtPlainLines lines(list_);
    const QFontMetricsF metrics(list_.font());
    for (int width = 0; width < list_.fontMetrics().horizontalAdvance(text); ++width) {
      const QString cut = lines.Cut(text, width);
      EXPECT_LE(metrics.horizontalAdvance(cut), width) << size;
      EXPECT_GT(metrics.horizontalAdvance(cut + u' '), width) << size;
      EXPECT_TRUE(cut.isEmpty() || cut.endsWith(QChar(0x2026))) << size << " " << width;
      EXPECT_TRUE(text.startsWith(cut.chopped(cut.isEmpty() ? 0 : 1))) << size << " " << width;
    }
  }
}

TEST_F(PlainLinesTest, ALineThatFitsIsNotCut) {
  const QString text = QStringLiteral("12:00A- 1:00A Guest number 17");
  for (qreal size = kSmallest; size <= kLargest; size += kStep) {
    SetSize(size);
    EXPECT_EQ(text, QtPlainLines(list_).Cut(text, list_.fontMetrics().horizontalAdvance(text)));
  }
}

}  // namespace
}  // namespace veyra
