#include "data/color_settings.h"

#include <limits>
#include <optional>
#include <utility>

#include "data/errors.h"
#include "data/journal.h"

namespace veyra {

namespace {

constexpr const char* kRowOne = "SELECT * FROM Settings Where ID = 1";

/// A word of a shell's command line, whatever is in it.
std::string ShellWord(const std::string& text) {
  std::string word = "'";
  for (const char c : text) {
    word += c == '\'' ? std::string("'\\''") : std::string(1, c);
  }
  return word + "'";
}

}  // namespace

void LoadColorSettings(Connection& res_con, ColorSettings& current, ColorSettings& stored) {
  const auto rows = res_con.Open(kRowOne, CursorType::ForwardOnlyReadOnly);
  if (rows->IsEmpty()) {
    return;
  }
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
  if (rows->IsEmpty()) {
    return false;
  }
  const JournalledAction journalled(res_con, "Colors saved");
  rows->SetField("BkGrnd", chosen.BkGrnd);
  rows->SetField("HeaderTxt", chosen.HeaderTxt);
  rows->SetField("DaysTxtColor", chosen.DaysTxtColor);
  rows->SetField("TodayColor", chosen.TodayColor);
  rows->SetField("TodayBColor", chosen.TodayBColor);
  rows->Update();
  current = chosen;
  return true;
}

ColorSettings DefaultColors() {
  return {.BkGrnd = "-2147483643",
          .HeaderTxt = "12582912",
          .DaysTxtColor = "0",
          .TodayColor = "255",
          .TodayBColor = "-2147483643"};
}

ColorError::ColorError(const std::string& text, std::string column)
    : ValueError(
          {{},
           Phrase::Tr("The colour \"%1\" in column %2 of row 1 of the table Settings is not a "
                      "colour number.",
                      text, column),
           Phrase::Tr(
               "Save new colours in the colour settings, or use a backup copy of the calendar.")}),
      column_(std::move(column)) {}

ValueError ExplainedColorError(Connection& res_con, const ColorError& error) {
  const bool has_row = !res_con.Open(kRowOne, CursorType::ForwardOnlyReadOnly)->IsEmpty();
  const Phrase cause =
      has_row
          ? error.report().Cause
          : Phrase::Tr("The table Settings has no row 1, which holds the colours of the calendar.");
  const std::string command = "veyra-data check " + ShellWord(res_con.FileName()) + " --mend";
  return ValueError(
      {res_con.FileName(), cause,
       Phrase::Tr("To go on with the usual colours, start again after this command; veyra-data "
                  "lies beside the calendar: %1",
                  command)});
}

std::int32_t ColorNumber(const std::string& text, const std::string& column) {
  const std::optional<std::int64_t> number = ToInteger(Value(text));
  using Limits = std::numeric_limits<std::int32_t>;
  if (!number || *number < Limits::min() || *number > Limits::max()) {
    throw ColorError(text, column);
  }
  return static_cast<std::int32_t>(*number);
}

}  // namespace veyra
