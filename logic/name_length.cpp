#include "logic/name_length.h"

#include "data/connection.h"
#include "data/text.h"

namespace veyra::modRes {
namespace {

std::string TooLong(Connection& calendar, const char* table, const char* column,
                    const std::string& name) {
  const std::size_t length = CharacterCount(name);
  const std::size_t fitting = calendar.FittingCharacters(table, column, name);
  if (fitting >= length) {
    return {};
  }
  return "This name is " + std::to_string(length) + " characters long; the calendar holds " +
         std::to_string(fitting) + ".";
}

template <typename Question>
std::string WhenItCanBeAsked(const Question& question) {
  try {
    return question();
  } catch (const DatabaseError&) {
    // Said by the action that needs the name; a box at each key would keep it from being typed.
    return {};
  }
}

}  // namespace

std::string BookingNameTooLong(Session& session, const std::string& name) {
  return TooLong(*session.ResCon, "Reserv", "Event", name);
}

std::string FacilityNameTooLong(Session& session, const std::string& name) {
  return TooLong(*session.ResCon, "Rooms", "Name", name);
}

std::string BookingNameHint(Session& session, const std::string& name) {
  return WhenItCanBeAsked([&] { return BookingNameTooLong(session, name); });
}

std::string FacilityNameHint(Session& session, const std::string& name) {
  return WhenItCanBeAsked([&] { return FacilityNameTooLong(session, name); });
}

void RequireBookingNameFits(Session& session, const std::string& name) {
  const std::string too_long = BookingNameTooLong(session, name);
  if (!too_long.empty()) {
    throw NameTooLongError({"", too_long, "Nothing was changed. Choose a shorter name."});
  }
}

}  // namespace veyra::modRes
