#include "tools/care/rolling_backups.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <system_error>

#include "data/errors.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr std::size_t kDays = 7;
constexpr std::size_t kWeeks = 4;
constexpr std::size_t kMonths = 12;
constexpr const char* kStart = "Calendar-";
constexpr const char* kEnd = ".mdb";
constexpr std::size_t kDateLength = 10;

std::optional<Date> DayOfBackup(const std::string& name) {
  const std::string start = kStart;
  const std::string end = kEnd;
  if (name.size() != start.size() + kDateLength + end.size()) {
    return std::nullopt;
  }
  if (!name.starts_with(start) || !name.ends_with(end)) {
    return std::nullopt;
  }
  return DateFromIsoText(std::string_view(name).substr(start.size(), kDateLength));
}

/// Keeps the newest day of each of the newest `count` periods, which `first_day` tells apart.
template <typename FirstDay>
void KeepNewestOf(const std::set<Date>& days, std::size_t count, const FirstDay& first_day,
                  std::set<Date>& kept) {
  std::set<Date> periods;
  for (auto day = days.rbegin(); day != days.rend(); ++day) {
    if (periods.contains(first_day(*day))) {
      continue;
    }
    if (periods.size() == count) {
      return;
    }
    periods.insert(first_day(*day));
    kept.insert(*day);
  }
}

}  // namespace

fs::path BackupOf(const fs::path& folder, Date day) {
  return folder / (kStart + IsoText(day) + kEnd);
}

std::set<Date> BackupDays(const fs::path& folder) {
  std::set<Date> days;
  std::error_code failure;
  for (const auto& entry : fs::directory_iterator(folder, failure)) {
    if (const auto day = DayOfBackup(entry.path().filename().string())) {
      days.insert(*day);
    }
  }
  if (failure) {
    throw FileError(
        {folder.string(), Phrase::Tr("The folder cannot be read: %1.", failure.message()),
         Phrase::Tr("Check that the disk is connected and that you may use the folder.")});
  }
  return days;
}

std::optional<Date> NewestBackup(const fs::path& folder) {
  const std::set<Date> days = BackupDays(folder);
  return days.empty() ? std::nullopt : std::optional(*days.rbegin());
}

std::vector<Date> BackupsToDrop(const std::set<Date>& days) {
  std::set<Date> kept;
  KeepNewestOf(
      days, kDays, [](Date day) { return day; }, kept);
  KeepNewestOf(
      days, kWeeks, [](Date day) { return AddDays(day, 1 - WeekdayNumber(day)); }, kept);
  KeepNewestOf(
      days, kMonths, [](Date day) { return MakeDate(YearOf(day), MonthOf(day), 1).value(); }, kept);
  std::vector<Date> dropped;
  std::set_difference(days.begin(), days.end(), kept.begin(), kept.end(),
                      std::back_inserter(dropped));
  return dropped;
}

}  // namespace veyra
