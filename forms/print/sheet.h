#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/phrase.h"
#include "logic/listings.h"

namespace veyra {

/// A day on a sheet of paper.
struct SheetDay {
  int Place = 0;       ///< Its cell among those of the sheet, from 0, in reading order.
  Phrase Number = {};  ///< What stands over its lines: "5"; may be empty.
  Phrase Date = {};    ///< Over those of its lines that go to another page: "Wednesday, March 5".
  std::int32_t NumberColor = 0;
  std::optional<std::int32_t> ListColor = {};  ///< Behind its lines; nothing is the color of lists.
  bool IsToday = false;
  modRes::DayLines Lines = {};
};

/// What is to be printed: days in a grid, under a title and the name of their facility. Colours are
/// those of the screen, lengths are in points of a sheet of A4.
struct Sheet {
  Phrase Title;
  std::string Room;                  ///< May be empty.
  std::vector<std::string> Headers;  ///< Over the columns; none, or as many as there are columns.
  int Columns = 7;
  int UprightColumns = 7;  ///< On paper that is higher than wide.
  bool IsUpright = false;  ///< Whether such paper suits the sheet better.
  double LargestLine = 9;  ///< The size of the lines where there is room enough.
  std::int32_t BackColor = 0;
  std::int32_t HeaderColor = 0;  ///< Of the title, the facility's name and the headers.
  std::vector<SheetDay> Days;    ///< At least one; in the order of their places.
  bool IsEnglish = false;        ///< In every language, with what is added where room is short.
  Phrase Again;  ///< How to print once more, for the beginning of an advice: "Print again".
};

/// What the sheet is called where it has to have a name: title and facility.
Phrase NameOf(const Sheet& sheet);

}  // namespace veyra
