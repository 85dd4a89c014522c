#pragma once

#include <nlohmann/json.hpp>
#include <ostream>

namespace veyra {

using Json = nlohmann::ordered_json;

/// Writes it as UTF-8, what is none replaced, two blanks for each step inwards.
void PrintJson(const Json& json, std::ostream& out);

}  // namespace veyra
