#include "data/postgres/prepared_statements.h"

namespace veyra::postgres {

PreparedStatements::Way PreparedStatements::Next(const std::string& sql) {
  const auto [known, is_new] = names_.try_emplace(sql);
  if (is_new) {
    return {};
  }
  const bool is_to_be_made = known->second.empty();
  if (is_to_be_made) {
    known->second = "veyra_" + std::to_string(++last_);
  }
  return {.Name = known->second, .IsToBeMade = is_to_be_made};
}

}  // namespace veyra::postgres
