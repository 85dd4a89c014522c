#pragma once

#include <optional>
#include <string_view>

#include "data/date.h"

namespace veyra {

/// The date that an operator's text names, or nothing when it names none.
///
/// Understood, with blanks around and between allowed:
///   3/5/2014  3-5-2014  3.5.2014  3 5 2014   month first, any of the four separators, even mixed
///   17/3/2014                                swapped, when the first number cannot be a month
///   3/5/14                                   00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999
///   3/5                                      of the year of `today`
///   March 5, 2014   5 Mar. 2014   Sept 5     English names, whole or shortened, in any case
///   2014-03-05   2014/3/5   2014-Mar-05      four digits first: year, month, day, never swapped
/// A year of one or two digits is a short year; one of three or four digits is that year itself,
/// and must be one of kFirstYear to kLastYear. The day must exist. A text without a day ("March
/// 2014") is not a date, nor is one with anything else in it, such as a weekday or a time. Every
/// text that DateText makes of those years is understood.
std::optional<Date> ParseDate(std::string_view text, Date today);

}  // namespace veyra
