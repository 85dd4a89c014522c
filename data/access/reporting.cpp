#include "data/access/reporting.h"

namespace veyra::access {

void ReportAs(const StoreProblem& problem, const std::string& file, const std::string& table) {
  switch (problem.What()) {
    case Wrong::NoTable:
      throw MissingTable(file, problem.Name());
    case Wrong::NoColumn:
      throw MissingColumn(file, table, problem.Name());
    case Wrong::TableExists:
      throw TableExists(file, problem.Name());
    case Wrong::ColumnExists:
      throw ColumnExists(file, table, problem.Name());
    case Wrong::RowChanged:
      throw RowChanged(file, table);
    case Wrong::RowRemoved:
      throw RowRemoved(file, table);
    case Wrong::ReadingOnly:
      break;
  }
  throw OpenedForReadingOnly(file);
}

}  // namespace veyra::access
