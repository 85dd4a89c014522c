#pragma once

#include <cstdint>
#include <string>

#include "data/connection.h"
#include "data/errors.h"

namespace veyra {

/// The five colours of the month window. Each is the decimal text of a signed 32-bit number: a
/// direct colour 0 to 16777215 with red in the lowest byte, then green, then blue; or, with the top
/// bit set, the index of a system colour.
struct ColorSettings {
  std::string BkGrnd;        ///< Background of the month window.
  std::string HeaderTxt;     ///< Text of the facility name, the month title, the weekday headers.
  std::string DaysTxtColor;  ///< Text of every day number but today's.
  std::string TodayColor;    ///< Text of today's day number.
  std::string TodayBColor;   ///< Background of today's list.

  bool operator==(const ColorSettings&) const = default;
};

/// The colours of a calendar in which nobody has chosen any.
ColorSettings DefaultColors();

/// Reads row 1 of Settings into both sets. Without that row both keep what they hold.
/// Throws DatabaseError when the table cannot be read.
void LoadColorSettings(Connection& res_con, ColorSettings& current, ColorSettings& stored);

/// Writes `chosen` to row 1 of Settings and takes it into `current`. Without that row nothing is
/// written. Returns whether there was such a row. Throws DatabaseError; `current` changes only when
/// the row is written.
bool SaveColorSettings(Connection& res_con, const ColorSettings& chosen, ColorSettings& current);

/// A text that was to be used as a colour is not a colour number.
class ColorError : public ValueError {
 public:
  /// `column` is the column of Settings that the text was read from.
  ColorError(const std::string& text, std::string column);

  const std::string& Column() const { return column_; }

 private:
  std::string column_;
};

/// The same failure with what the operator needs to mend it, when the calendar's own row 1 is the
/// cause: the file, the row, and the command that puts the usual colours there.
ValueError ExplainedColorError(Connection& res_con, const ColorError& error);

/// The number of a colour text. Throws ColorError when the text is empty, no whole number, or
/// outside -2147483648 to 2147483647.
std::int32_t ColorNumber(const std::string& text, const std::string& column);

}  // namespace veyra
