#pragma once

#include <cstdint>
#include <string>

#include "data/connection.h"

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

/// Reads row 1 of Settings into both sets. Without that row both keep what they hold.
/// Throws DatabaseError when the table cannot be read.
void LoadColorSettings(Connection& res_con, ColorSettings& current, ColorSettings& stored);

/// Takes `chosen` into `current` and writes it to row 1 of Settings. Without that row nothing is
/// written and `current` is unchanged. Returns whether there was such a row.
bool SaveColorSettings(Connection& res_con, const ColorSettings& chosen, ColorSettings& current);

/// The number of a colour text. Throws ValueError, naming the column, when the text is empty, no
/// whole number, or outside -2147483648 to 2147483647.
std::int32_t ColorNumber(const std::string& text, const std::string& column);

}  // namespace veyra
