#include "forms/print/sheet_printer.h"

#include <algorithm>

#include "data/text.h"

namespace veyra {

std::optional<std::string> PrinterNamed(const std::vector<std::string>& names,
                                        const std::string& device_name) {
  if (std::find(names.begin(), names.end(), device_name) != names.end()) {
    return device_name;
  }
  const std::string wanted = UpperCase(device_name);
  const auto named = std::find_if(names.begin(), names.end(), [&wanted](const std::string& name) {
    return UpperCase(name) == wanted;
  });
  return named == names.end() ? std::nullopt : std::optional(*named);
}

}  // namespace veyra
