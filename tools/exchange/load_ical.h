#pragma once

#include <string>

#include "tools/exchange/ical_codec.h"

namespace veyra {

/// The codec of the module in the program's folder. Throws FileError when it cannot be loaded.
const IcalCodec& LoadIcal(const std::string& app_folder);

}  // namespace veyra
