#include "forms/print/sheet.h"

namespace veyra {

std::string NameOf(const Sheet& sheet) {
  return sheet.Room.empty() ? sheet.Title : sheet.Title + " " + sheet.Room;
}

}  // namespace veyra
