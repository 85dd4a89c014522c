#include "tools/care/check_tables.h"

#include <array>
#include <set>

#include "data/color_settings.h"
#include "data/errors.h"
#include "data/names.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

struct DefaultColor {
  const char* Column;
  const char* Color;
};

/// What a calendar's first start gives them.
constexpr std::array<DefaultColor, 5> kDefaultColors = {{{"BkGrnd", "-2147483643"},
                                                         {"HeaderTxt", "12582912"},
                                                         {"DaysTxtColor", "0"},
                                                         {"TodayColor", "255"},
                                                         {"TodayBColor", "-2147483643"}}};

RowChange Marked(const Facility& facility, bool active) {
  return {.What = RowChange::Kind::Set,
          .Table = "Rooms",
          .Before = facility.Stored,
          .Fields = {{"Active", std::int64_t{active ? 1 : 0}}}};
}

/// The calendar itself takes the last of several.
Finding SeveralActive(const std::vector<Facility>& active) {
  Finding finding{.Kind = "several-active",
                  .What = Phrase::Tr("%1 facilities are marked as the active one.", active.size()),
                  .Advice = Phrase::Tr("--mend leaves the mark to %1, as the calendar would.",
                                       OneLine(active.back().Name)),
                  .Mended = Phrase::Tr("The mark was left to %1.", OneLine(active.back().Name))};
  for (std::size_t i = 0; i + 1 < active.size(); ++i) {
    finding.Mending.push_back(Marked(active[i], false));
  }
  return finding;
}

Finding NoneActive(const Facility& first) {
  return {.Kind = "none-active",
          .What = Phrase::Tr("No facility is marked as the active one."),
          .Advice = Phrase::Tr("--mend marks the first, %1; or pick one in the calendar.",
                               OneLine(first.Name)),
          .Mending = {Marked(first, true)},
          .Mended = Phrase::Tr("%1 was marked as the active facility.", OneLine(first.Name))};
}

std::string FreeName(const std::string& name, const std::set<std::string>& taken) {
  int number = 2;
  while (taken.contains(name + " (" + std::to_string(number) + ")")) {
    ++number;
  }
  return name + " (" + std::to_string(number) + ")";
}

Finding SameName(const Facility& facility, const std::string& new_name) {
  return {.Kind = "same-name",
          .What = Phrase::Tr("Two facilities are named %1.", OneLine(facility.Name)),
          .Advice = Phrase::Tr("Only one of them can be picked. --mend names the other %1.",
                               OneLine(new_name)),
          .Mending = {{.What = RowChange::Kind::Set,
                       .Table = "Rooms",
                       .Before = facility.Stored,
                       .Fields = {{"Name", new_name}}}},
          .Mended = Phrase::Tr("The later one was named %1.", OneLine(new_name))};
}

Finding NoSettingsRow(const std::vector<std::string>& columns) {
  Finding finding{
      .Kind = "no-settings",
      .What = Phrase::Tr("The table Settings has no row 1, so the calendar cannot start."),
      .Advice = Phrase::Tr("--mend adds the row with the colours of a new calendar."),
      .Mended = Phrase::Tr("The row was added with the colours of a new calendar.")};
  FieldValues fields = {{"ID", std::int64_t{1}}};
  for (const DefaultColor& color : kDefaultColors) {
    if (FindName(columns, color.Column)) {
      fields.emplace_back(color.Column, std::string(color.Color));
    }
  }
  finding.Mending = {
      {.What = RowChange::Kind::Add, .Table = "Settings", .Fields = std::move(fields)}};
  return finding;
}

bool IsColor(const std::string& text, const std::string& column) {
  try {
    ColorNumber(text, column);
    return true;
  } catch (const ValueError&) {
    // What is asked here is whether it throws.
    return false;
  }
}

Finding NoColor(const DefaultColor& color, const std::string& text, const Row& row) {
  return {.Kind = "bad-color",
          .What = Phrase::Tr("The colour %1 is not a number: \"%2\".", color.Column, OneLine(text)),
          .Advice = Phrase::Tr("--mend sets it to %1, as in a new calendar.", color.Color),
          .Mending = {{.What = RowChange::Kind::Set,
                       .Table = "Settings",
                       .Before = row,
                       .Fields = {{color.Column, std::string(color.Color)}}}},
          .Mended = Phrase::Tr("%1 was set to %2.", color.Column, color.Color)};
}

Findings CheckColors(const std::vector<std::string>& columns, const Row& row) {
  Findings findings;
  for (const DefaultColor& color : kDefaultColors) {
    const auto place = FindName(columns, color.Column);
    if (!place) {
      continue;
    }
    const std::string text = ToText(row.Values[*place]);
    if (!IsColor(text, color.Column)) {
      findings.push_back(NoColor(color, text, row));
    }
  }
  return findings;
}

}  // namespace

Findings CheckFacilities(const std::vector<Facility>& facilities) {
  Findings findings;
  std::vector<Facility> active;
  std::set<std::string> names;
  for (const Facility& facility : facilities) {
    names.insert(facility.Name);
  }
  std::set<std::string> met;
  for (const Facility& facility : facilities) {
    if (facility.Active) {
      active.push_back(facility);
    }
    if (!met.insert(facility.Name).second) {
      const std::string new_name = FreeName(facility.Name, names);
      names.insert(new_name);
      findings.push_back(SameName(facility, new_name));
    }
  }
  if (active.size() > 1) {
    findings.push_back(SeveralActive(active));
  }
  if (active.empty() && !facilities.empty()) {
    findings.push_back(NoneActive(facilities.front()));
  }
  return findings;
}

Findings CheckSettings(Store& store) {
  if (!FindName(store.TableNames(), "Settings")) {
    return {};
  }
  const std::vector<std::string> columns = store.ColumnNames("Settings");
  const auto rows = store.Select(ParseQuery("SELECT * FROM Settings WHERE ID = 1"));
  Row row;
  if (!rows->Next(row)) {
    return {NoSettingsRow(columns)};
  }
  return CheckColors(columns, row);
}

}  // namespace veyra
