#include "data/store.h"

namespace veyra {

std::vector<std::unique_ptr<RowSource>> Store::SelectAll(const std::vector<Query>& queries) {
  std::vector<std::unique_ptr<RowSource>> sources;
  for (const Query& query : queries) {
    sources.push_back(Select(query));
  }
  return sources;
}

std::vector<Row> Store::InsertAll(const std::string& table, const std::vector<FieldValues>& rows) {
  std::vector<Row> added;
  for (const FieldValues& fields : rows) {
    added.push_back(Insert(table, fields));
  }
  return added;
}

}  // namespace veyra
