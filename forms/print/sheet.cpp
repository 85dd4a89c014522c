#include "forms/print/sheet.h"

namespace veyra {

Phrase NameOf(const Sheet& sheet) {
  return sheet.Room.empty() ? sheet.Title : sheet.Title + (" " + sheet.Room);
}

}  // namespace veyra
