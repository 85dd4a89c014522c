#pragma once

#include <string>
#include <vector>

#include "data/access/read/table_layout.h"
#include "data/file_store.h"

namespace veyra::access {

/// What is about to be written, in words that name the row: "a new row in Reserv (RmID 3, Event
/// Chess, DateOfRes 2014-03-15)". Long texts are cut, columns that are null left out.
std::string WordsForInsert(const std::string& table, const FieldValues& fields);
std::string WordsForInsertAll(const std::string& table, const std::vector<FieldValues>& rows);
std::string WordsForChangeAll(const std::vector<RowChange>& changes);
std::string WordsForUpdate(const std::string& table, const TableLayout& layout, const Row& before);
std::string WordsForUpdateAll(const std::string& table, const TableLayout& layout,
                              const std::vector<Row>& rows);
std::string WordsForDelete(const std::string& table, const TableLayout& layout, const Row& before);
std::string WordsForDeleteAll(const std::string& table, const TableLayout& layout,
                              const std::vector<Row>& rows);

}  // namespace veyra::access
