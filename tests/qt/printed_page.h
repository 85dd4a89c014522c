#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace veyra {

/// What a PDF reader other than ours makes of a printed page. Needs poppler-utils.
class PrintedPage {
 public:
  explicit PrintedPage(const QString& file_name) : file_name_(file_name) {}

  /// All text, in the places it has on the page.
  QString Text() const { return Ask("pdftotext", {"-layout", file_name_, "-"}); }

  /// All text, in the order in which it is read.
  QString ReadText() const { return Ask("pdftotext", {file_name_, "-"}); }

  /// All text, in the order in which it is drawn.
  QString FlowingText() const { return Ask("pdftotext", {"-raw", file_name_, "-"}); }

  /// The words between blanks.
  QStringList Words() const { return Text().simplified().split(' '); }

  /// The rows of the list of fonts, without its head.
  QStringList Fonts() const { return RowsOf(Ask("pdffonts", {file_name_})); }

  /// The rows of the list of pictures, without its head.
  QStringList Pictures() const { return RowsOf(Ask("pdfimages", {"-list", file_name_})); }

  /// A line of what pdfinfo says: "842 x 595 pts (A4)" for "Page size".
  QString Info(const QString& subject) const {
    for (const QString& line : Ask("pdfinfo", {file_name_}).split('\n')) {
      if (line.startsWith(subject + ":")) {
        return line.mid(subject.size() + 1).trimmed();
      }
    }
    return {};
  }

  /// The page as it looks, at `dots` to the inch.
  QImage Picture(int dots) const {
    const QString name = file_name_ + ".picture";
    Ask("pdftoppm", {"-r", QString::number(dots), "-singlefile", "-png", file_name_, name});
    return QImage(name + ".png").convertToFormat(QImage::Format_RGB32);
  }

 private:
  static QString Ask(const QString& program, const QStringList& words) {
    QProcess process;
    process.start(program, words);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString() << " (poppler-utils) is needed";
    EXPECT_EQ(0, process.exitCode()) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
  }

  static QStringList RowsOf(const QString& table) {
    return table.split('\n', Qt::SkipEmptyParts).mid(2);
  }

  QString file_name_;
};

}  // namespace veyra
