#pragma once

#include <string>

#include "data/access/format/problem.h"
#include "data/errors.h"
#include "data/store_errors.h"

namespace veyra::access {

/// Throws the failure that a store reports for a problem with a table of that file.
[[noreturn]] void ReportAs(const StoreProblem& problem, const std::string& file,
                           const std::string& table);

/// Runs `work`; what goes wrong in it is reported with the names of the file and the table.
template <typename Work>
auto Reporting(const std::string& file, const std::string& table, const Work& work) {
  try {
    return work();
  } catch (const StoreProblem& problem) {
    ReportAs(problem, file, table);
  } catch (const FileBusy& problem) {
    if (problem.IsCancelled()) {
      throw WaitCancelledError({file, problem.cause(), problem.advice()});
    }
    throw DatabaseBusyError({file, problem.cause(), problem.advice()});
  } catch (const ValueRefused& problem) {
    throw ValueRefusedError({file, problem.cause(), problem.advice()});
  } catch (const OutcomeUnknown& problem) {
    throw veyra::OutcomeUnknown(file, problem.cause());
  } catch (const FileProblem& problem) {
    throw DatabaseError({file, problem.cause(), problem.advice()});
  }
}

}  // namespace veyra::access
