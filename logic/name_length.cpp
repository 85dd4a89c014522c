#include "logic/name_length.h"

#include "data/connection.h"
#include "data/text.h"

namespace veyra::modRes {
namespace {

Phrase TooLong(Connection& calendar, const char* table, const char* column,
               const std::string& name) {
  const std::size_t length = CharacterCount(name);
  const std::size_t fitting = calendar.FittingCharacters(table, column, name);
  if (fitting >= length) {
    return {};
  }
  return Phrase::Tr("This name is %1 characters long; the calendar holds %2.", length, fitting);
}

template <typename Question>
Phrase WhenItCanBeAsked(const Question& question) {
  try {
    return question();
  } catch (const DatabaseError&) {
    // Said by the action that needs the name; a box at each key would keep it from being typed.
    return {};
  }
}

}  // namespace

Phrase BookingNameTooLong(Session& session, const std::string& name) {
  return TooLong(*session.ResCon, "Reserv", "Event", name);
}

Phrase FacilityNameTooLong(Session& session, const std::string& name) {
  return TooLong(*session.ResCon, "Rooms", "Name", name);
}

Phrase BookingNameHint(Session& session, const std::string& name) {
  return WhenItCanBeAsked([&] { return BookingNameTooLong(session, name); });
}

Phrase FacilityNameHint(Session& session, const std::string& name) {
  return WhenItCanBeAsked([&] { return FacilityNameTooLong(session, name); });
}

void RequireBookingNameFits(Session& session, const std::string& name) {
  const Phrase too_long = BookingNameTooLong(session, name);
  if (!too_long.IsEmpty()) {
    throw NameTooLongError(
        {"", too_long, Phrase::Tr("Nothing was changed. Choose a shorter name.")});
  }
}

}  // namespace veyra::modRes
