#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "logic/listings.h"

namespace veyra {

/// What the day viewer shows around its list.
struct DayViewerPicture {
  std::string lblDay;   ///< Name of the weekday.
  std::string lblDate;  ///< Day of the month, without padding.
  std::int32_t BackColor = 0;
  std::int32_t DayColor = 0;              ///< Text of lblDay.
  std::int32_t DateColor = 0;             ///< Text of lblDate.
  std::optional<std::int32_t> ListColor;  ///< Background of lstDay; nothing leaves it as designed.
};

/// What the day viewer's logic tells its screen. The screen reports gestures to frmDayViewer.
class DayViewerView : public modRes::DayListScreen {
 public:
  virtual void ShowDay(const DayViewerPicture& picture) = 0;
};

}  // namespace veyra
