#pragma once

#include <QString>
#include <string>

#include "data/phrase.h"

namespace veyra {

/// The program's texts are UTF-8, the toolkit's UTF-16. A byte that belongs to no valid sequence is
/// shown as U+FFFD.
inline QString ToQString(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string ToUtf8(const QString& text) {
  return text.toStdString();
}

/// The phrase in the operator's language, which is that of the translators installed.
QString ToQString(const Phrase& phrase);

/// The words of a caption in which "&" marks its Alt key.
QString WithoutAltKey(QString caption);

/// The text as it is shown where there is room for one line only: a blank in place of each line
/// break, tab and other control character.
QString OneLine(QString text);
inline QString OneLine(const std::string& text) {
  return OneLine(ToQString(text));
}

/// The text as a tooltip that shows it as it stands, blanks included, in lines of a readable
/// length; a very long text is cut.
QString PlainToolTip(QString text);
inline QString PlainToolTip(const std::string& text) {
  return PlainToolTip(ToQString(text));
}

}  // namespace veyra
