#include "forms/widgets/qt_text.h"

#include <QCoreApplication>
#include <algorithm>

namespace veyra {
namespace {

constexpr qsizetype kLongestToolTip = 600;

bool BreaksTheLine(QChar character) {
  switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
      return true;
    default:
      return false;
  }
}

}  // namespace

QString ToQString(const Phrase& phrase) {
  return ToQString(phrase.TranslatedBy([](const std::string& pattern) {
    return ToUtf8(QCoreApplication::translate("Phrase", pattern.c_str()));
  }));
}

QString WithoutAltKey(QString caption) {
  return caption.remove(QLatin1Char('&'));
}

QString OneLine(QString line) {
  if (std::none_of(line.cbegin(), line.cend(), BreaksTheLine)) {
    return line;
  }
  line.replace(QLatin1String("\r\n"), QLatin1String(" "));
  std::replace_if(line.begin(), line.end(), BreaksTheLine, QChar(u' '));
  return line;
}

QString PlainToolTip(QString shown) {
  if (shown.size() > kLongestToolTip) {
    shown.truncate(kLongestToolTip);
    shown.append(QChar(0x2026));
  }
  return QLatin1String("<span style='white-space: pre-wrap'>") + shown.toHtmlEscaped() +
         QLatin1String("</span>");
}

}  // namespace veyra
