#include "data/sqlite/verify.h"

#include "data/errors.h"

namespace veyra::sqlite {

std::vector<std::string> Verify(Reader& reader) {
  std::vector<std::string> problems;
  try {
    const auto statement = reader.statements().Take("PRAGMA integrity_check");
    while (statement->Step()) {
      const std::string problem = statement->Text(0);
      if (problem != "ok") {
        problems.push_back(problem);
      }
    }
  } catch (const DatabaseBusyError&) {
    throw;
  } catch (const DatabaseError& error) {
    problems.push_back(error.report().Cause.English());
  }
  return problems;
}

}  // namespace veyra::sqlite
