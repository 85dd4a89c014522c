#include "tools/calendar_rows.h"

#include <algorithm>
#include <iterator>

#include "data/errors.h"
#include "data/text.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

template <typename Fits>
std::vector<Facility> Filtered(const std::vector<Facility>& facilities, const Fits& fits) {
  std::vector<Facility> found;
  std::copy_if(facilities.begin(), facilities.end(), std::back_inserter(found), fits);
  return found;
}

Phrase NamesOf(const std::vector<Facility>& facilities) {
  std::string names;
  for (const Facility& facility : facilities) {
    names += (names.empty() ? "" : ", ") + OneLine(facility.Name);
  }
  return names.empty() ? Phrase::Tr("The calendar has no facilities yet.")
                       : Phrase::Tr("The facilities are: %1.", names);
}

}  // namespace

std::vector<Facility> FacilitiesNamed(const std::vector<Facility>& facilities,
                                      const std::string& name) {
  auto found = Filtered(facilities, [&](const Facility& each) { return each.Name == name; });
  if (found.empty()) {
    const std::string upper = UpperCase(name);
    found =
        Filtered(facilities, [&](const Facility& each) { return UpperCase(each.Name) == upper; });
  }
  if (found.empty()) {
    throw ValueError(
        {{}, Phrase::Tr("There is no facility \"%1\".", OneLine(name)), NamesOf(facilities)});
  }
  return found;
}

}  // namespace veyra
