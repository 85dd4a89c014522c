#include "tools/companion/day_arguments.h"

#include <CLI/CLI.hpp>

#include "data/errors.h"
#include "logic/date_parser.h"
#include "tools/companion/parser_words.h"
#include "tools/plain_text.h"

namespace veyra {

void AddDayRange(CLI::App& app, DayArguments& days) {
  app.add_option("--from", days.From,
                 Meaning(Phrase::Tr("the first day, such as 3/5/2026 or 2026-03-05")))
      ->type_name("DATE");
  app.add_option("--to", days.To, Meaning(Phrase::Tr("the last day")))->type_name("DATE");
}

Date TypedDate(const std::string& text, Date today) {
  const auto date = ParseDate(text, today);
  if (!date) {
    throw ValueError({{},
                      Phrase::Tr("\"%1\" is not a date.", OneLine(text)),
                      Phrase::Tr("Write it as month/day/year, 3/5/2026, or as 2026-03-05.")});
  }
  return *date;
}

DayRange TypedRange(const DayArguments& days, Date today) {
  DayRange range;
  if (!days.From.empty()) {
    range.From = TypedDate(days.From, today);
  }
  if (!days.To.empty()) {
    range.To = TypedDate(days.To, today);
  }
  if (range.From && range.To && *range.To < *range.From) {
    throw ValueError({{},
                      Phrase::Tr("The range ends before it begins."),
                      Phrase::Tr("Name the earlier day with --from.")});
  }
  return range;
}

}  // namespace veyra
