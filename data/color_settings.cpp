#include "data/color_settings.h"

#include <limits>
#include <optional>

#include "data/errors.h"

namespace veyra {

namespace {

constexpr const char* kRowOne = "SELECT * FROM Settings Where ID = 1";

}  // namespace

void LoadColorSettings(Connection& res_con, ColorSettings& current, ColorSettings& stored) {
  const auto rows = res_con.Open(kRowOne, CursorType::ForwardOnlyReadOnly);
  if (rows->IsEmpty()) return;
  const ColorSettings read{
      .BkGrnd = ToText(rows->Field("BkGrnd")),
      .HeaderTxt = ToText(rows->Field("HeaderTxt")),
      .DaysTxtColor = ToText(rows->Field("DaysTxtColor")),
      .TodayColor = ToText(rows->Field("TodayColor")),
      .TodayBColor = ToText(rows->Field("TodayBColor")),
  };
  current = read;
  stored = read;
}

bool SaveColorSettings(Connection& res_con, const ColorSettings& chosen, ColorSettings& current) {
  const auto rows = res_con.Open(kRowOne, CursorType::StaticOptimistic);
  if (rows->IsEmpty()) return false;
  current = chosen;
  rows->SetField("BkGrnd", chosen.BkGrnd);
  rows->SetField("HeaderTxt", chosen.HeaderTxt);
  rows->SetField("DaysTxtColor", chosen.DaysTxtColor);
  rows->SetField("TodayColor", chosen.TodayColor);
  rows->SetField("TodayBColor", chosen.TodayBColor);
  rows->Update();
  return true;
}

std::int32_t ColorNumber(const std::string& text, const std::string& column) {
  const std::optional<std::int64_t> number = ToInteger(Value(text));
  using Limits = std::numeric_limits<std::int32_t>;
  if (!number || *number < Limits::min() || *number > Limits::max()) {
    throw ValueError({{},
                      "The colour \"" + text + "\" in column " + column +
                          " of the table Settings is no colour number.",
                      "Save new colours in the colour settings, or use a backup copy of the "
                      "calendar."});
  }
  return static_cast<std::int32_t>(*number);
}

}  // namespace veyra
