#include "tools/exchange/whole_slots.h"

#include <algorithm>

#include "tools/clock_text.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

constexpr std::int64_t kSlot = 30;
constexpr std::int64_t kDay = std::int64_t{24} * 60;

}  // namespace

void AddSpan(const Span& span, const ExchangedBooking& pattern, Exchanged& exchanged) {
  const std::int64_t first = span.From / kSlot;
  const std::int64_t end = (span.To + kSlot - 1) / kSlot;
  if (first * kSlot != span.From || end * kSlot != span.To) {
    exchanged.Notes.push_back(Phrase::Tr("%1: %2 on %3 was rounded outwards to whole half hours.",
                                         pattern.Place, OneLine(pattern.Name), DateText(span.Day)));
  }
  if (end * kSlot > kDay) {
    exchanged.Notes.push_back(Phrase::Tr("%1: %2 on %3 runs over midnight and was split.",
                                         pattern.Place, OneLine(pattern.Name), DateText(span.Day)));
  }
  constexpr std::int64_t kSlots = kDay / kSlot;
  for (std::int64_t slot = first; slot < end; slot = (slot / kSlots + 1) * kSlots) {
    ExchangedBooking booking = pattern;
    booking.Day = AddDays(span.Day, slot / kSlots);
    const std::int64_t last = std::min(end, (slot / kSlots + 1) * kSlots) - 1;
    booking.Slots = {static_cast<int>(slot % kSlots) + 1, static_cast<int>(last % kSlots) + 1};
    exchanged.Bookings.push_back(std::move(booking));
  }
}

}  // namespace veyra
