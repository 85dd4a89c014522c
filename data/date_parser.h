#pragma once

#include <optional>
#include <string_view>

#include "data/date.h"

namespace veyra {

/// The date that an operator's text names, or nothing when it names none.
///
/// Understood, with blanks around and between allowed:
///   3/5/2014  3-5-2014  3.5.2014  3 5 2014   month first, any of the four separators
///   17/3/2014                                swapped, when the first number cannot be a month
///   3/5/14                                   00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999
///   3/5                                      of the year of `today`
///   March 5, 2014   5 Mar 2014   Mar 5       English names, whole or of three letters, any case
///   2014-03-05                               ISO 8601
/// The year is one of kFirstYear to kLastYear, and the day must exist. Every text made by DateText
/// is understood.
std::optional<Date> ParseDate(std::string_view text, Date today);

}  // namespace veyra
