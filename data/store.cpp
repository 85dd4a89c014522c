#include "data/store.h"

#include "data/text.h"

namespace veyra {

TextFit Store::FitOf(const std::string& /*table*/, const std::string& /*column*/,
                     std::string_view text) {
  return {CharacterCount(text), std::nullopt};
}

std::vector<Row> Store::InsertAll(const std::string& table, const std::vector<FieldValues>& rows) {
  std::vector<Row> added;
  for (const FieldValues& fields : rows) {
    added.push_back(Insert(table, fields));
  }
  return added;
}

}  // namespace veyra
