#include "data/sqlite/verify.h"

#include <string>

#include "data/errors.h"

namespace veyra::sqlite {

std::vector<Phrase> Verify(Reader& reader) {
  std::vector<Phrase> problems;
  try {
    const auto statement = reader.statements().Take("PRAGMA integrity_check");
    while (statement->Step()) {
      const std::string problem = statement->Text(0);
      if (problem != "ok") {
        problems.emplace_back(problem);
      }
    }
  } catch (const DatabaseBusyError&) {
    throw;
  } catch (const DatabaseError& error) {
    problems.push_back(error.report().Cause);
  }
  return problems;
}

}  // namespace veyra::sqlite
