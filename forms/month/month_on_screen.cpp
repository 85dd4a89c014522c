#include "forms/month/month_on_screen.h"

#include <utility>

namespace veyra {

void MonthOnScreen::ShowMonth(const modRes::MonthPicture& picture) {
  modRes::MonthPicture next = picture;
  if (!next.Title) {
    next.Title = picture_.Title;
  }
  for (std::size_t index = 1; index <= next.Cells.size(); ++index) {
    if (!next.Cells[index].ListColor) {
      next.Cells[index].ListColor = picture_.Cells[index].ListColor;
    }
  }
  picture_ = std::move(next);
}

void MonthOnScreen::ShowLines(int cell_index, const modRes::DayLines& lines) {
  picture_.Cells[cell_index].Lines = lines;
}

}  // namespace veyra
