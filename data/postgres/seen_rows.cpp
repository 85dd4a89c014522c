#include "data/postgres/seen_rows.h"

namespace veyra::postgres {

void SeenRows::Note(const Row& row, const BookingColumns& columns) {
  const auto facility = ToInteger(row.Values.at(columns.Facility));
  const auto day = ToDate(row.Values.at(columns.Day));
  if (!facility || !day || row.Key == 0) {
    return;
  }
  Noted& noted = OnDay({*facility, *day});
  const auto [place, is_new] = noted.Rows.insert_or_assign(
      row.Key, Booking{.From = ToInteger(row.Values.at(columns.From)).value_or(0),
                       .To = ToInteger(row.Values.at(columns.To)).value_or(0)});
  rows_ += is_new ? 1 : 0;
  while (rows_ > kMostRows && days_.size() > 1) {
    ForgetOldest();
  }
}

SeenRows::Noted& SeenRows::OnDay(const FacilityDay& day) {
  const auto [found, is_new] = days_.try_emplace(day);
  if (is_new) {
    found->second.Place = order_.insert(order_.end(), day);
  } else {
    order_.splice(order_.end(), order_, found->second.Place);
  }
  return found->second;
}

void SeenRows::ForgetOldest() {
  const auto oldest = days_.find(order_.front());
  rows_ -= oldest->second.Rows.size();
  days_.erase(oldest);
  order_.pop_front();
}

std::string SeenRows::On(const std::set<FacilityDay>& days) const {
  std::string seen;
  for (const FacilityDay& day : days) {
    const auto found = days_.find(day);
    if (found == days_.end()) {
      continue;
    }
    for (const auto& [key, booking] : found->second.Rows) {
      seen += (seen.empty() ? "" : ",") + std::to_string(key) + ' ' + std::to_string(booking.From) +
              ' ' + std::to_string(booking.To);
    }
  }
  return seen;
}

}  // namespace veyra::postgres
