#include "tools/companion/json_text.h"

namespace veyra {

void PrintJson(const Json& json, std::ostream& out) {
  out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace veyra
