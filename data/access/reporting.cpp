#include "data/access/reporting.h"

namespace veyra::access {

void ReportAs(const StoreProblem& problem, const std::string& file, const std::string& table) {
  switch (problem.What()) {
    case Refusal::NoTable:
      throw MissingTable(file, problem.Name());
    case Refusal::NoColumn:
      throw MissingColumn(file, table, problem.Name());
    case Refusal::TableExists:
      throw TableExists(file, problem.Name());
    case Refusal::ColumnExists:
      throw ColumnExists(file, table, problem.Name());
    case Refusal::RowChanged:
      throw RowChanged(file, table);
    case Refusal::RowRemoved:
      throw RowRemoved(file, table);
    case Refusal::ReadingOnly:
      break;
  }
  throw OpenedForReadingOnly(file);
}

}  // namespace veyra::access
