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

void Store::DeleteAll(const std::string& table, const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    Delete(table, row);
  }
}

std::vector<Row> Store::UpdateAll(const std::string& table, const std::vector<Row>& rows,
                                  const FieldValues& fields) {
  std::vector<Row> changed;
  for (const Row& row : rows) {
    changed.push_back(Update(table, row, fields));
  }
  return changed;
}

}  // namespace veyra
