#include "data/store.h"

namespace veyra {

std::vector<Row> Store::InsertAll(const std::string& table, const std::vector<FieldValues>& rows) {
  std::vector<Row> added;
  for (const FieldValues& fields : rows) {
    added.push_back(Insert(table, fields));
  }
  return added;
}

}  // namespace veyra
