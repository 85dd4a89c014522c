#include "data/postgres/change_runner.h"

#include <algorithm>

#include "data/errors.h"
#include "data/names.h"
#include "data/postgres/failure.h"
#include "data/postgres/server_errors.h"
#include "data/postgres/server_sql.h"
#include "data/postgres/sql_text.h"
#include "data/store_errors.h"

namespace veyra::postgres {

namespace {

constexpr int kMostAttempts = 10;

constexpr const char* kCommitted = "committed";
constexpr const char* kAborted = "aborted";
constexpr const char* kGivenUp = "given up";  ///< The operator has ended the wait.

Phrase LostText(const Failure& lost) {
  return Phrase::Tr("The connection to the calendar's server is lost: %1.", lost.Message());
}

/// A statement was prepared for other columns, or the catalogue tells of
/// others.
bool IsOfOldState(const Failure& failure) {
  return failure.State() == state::kStalePlan || failure.State() == state::kNoTable ||
         failure.State() == state::kNoColumn;
}

bool MayTryAgain(const Failure& failure, int attempt) {
  return failure.IsOf(state::kRetry) ? attempt < kMostAttempts
                                     : IsOfOldState(failure) && attempt == 1;
}

/// "{1,2}" for an array of the server's.
template <typename Items, typename Text>
std::string ArrayText(const Items& items, const Text& text) {
  std::string array = "{";
  for (const auto& item : items) {
    array += (array.size() > 1 ? "," : "") + text(item);
  }
  return array + "}";
}

/// Whoever changes a row enters it in the journal afterwards: the journal is
/// locked last.
std::vector<std::string> InLockOrder(std::vector<std::string> tables) {
  std::sort(tables.begin(), tables.end(), [](const auto& one, const auto& other) {
    const bool is_journal = SameName(one, kJournalTable);
    const bool is_other_journal = SameName(other, kJournalTable);
    return is_journal != is_other_journal ? is_other_journal : one < other;
  });
  tables.erase(std::unique(tables.begin(), tables.end()), tables.end());
  return tables;
}

}  // namespace

void ChangeRunner::Repeat(const std::string& table, const std::function<void()>& work) {
  for (int attempt = 1;; ++attempt) {
    try {
      work();
      return;
    } catch (const Failure& failure) {
      session_.Rollback();
      if (is_in_outer_ || !MayTryAgain(failure, attempt)) {
        ThrowExplained(failure, session_.file(), table);
      }
      if (IsOfOldState(failure)) {
        catalogue_.Forget();
        session_.ForgetStatements();
      }
    } catch (const MissingItemError&) {
      // Another desk may have made it since the catalogue was asked.
      if (is_in_outer_ || attempt > 1) {
        throw;
      }
      catalogue_.Forget();
    }
  }
}

/// Nothing was to be saved, so nothing is said of that.
void ChangeRunner::Read(const std::string& table, const std::function<void()>& read) {
  try {
    Repeat(table, read);
  } catch (DatabaseError& failure) {
    failure.SetEffect({});
    throw;
  }
}

void ChangeRunner::Change(const ChangeScope& scope, const ChangeWork& change) {
  if (is_in_outer_) {
    Repeat(scope.Table, [&] { change(); });
  } else {
    Repeat(scope.Table, [&] { Attempt(scope, change); });
  }
}

void ChangeRunner::Attempt(const ChangeScope& scope, const ChangeWork& change) {
  try {
    Begin(scope);
    Commit(change());
  } catch (...) {
    session_.Rollback();
    throw;
  }
}

void ChangeRunner::Begin(const ChangeScope& scope) {
  session_.RunLater("BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE");
  const bool has_number = action_.IsNamed() && action_.Number();
  session_.RunLater(
      "SELECT pg_catalog.set_config('veyra.seen', $1, true),"
      " pg_catalog.set_config('veyra.action', $2, true),"
      " pg_catalog.set_config('veyra.action_id', $3, true)",
      {seen_.On(scope.Days), action_.IsNamed() ? action_.Name() : std::string(),
       has_number ? std::to_string(*action_.Number()) : std::string()});
  LockInOrder(scope);
}

/// Tables first, then days, as the server's own guard does it: otherwise two
/// desks could wait for each other.
void ChangeRunner::LockInOrder(const ChangeScope& scope) {
  const Place place{.File = session_.file(), .Schema = session_.link().Schema};
  for (const std::string& table : InLockOrder(scope.Guarded)) {
    session_.RunLater("LOCK TABLE " + FullName(place, catalogue_.Find(table).Name) +
                      " IN SHARE ROW EXCLUSIVE MODE");
  }
  if (scope.Days.size() > 1) {
    session_.RunLater("LOCK TABLE " + FullName(place, catalogue_.Find("Reserv").Name) +
                      " IN ROW EXCLUSIVE MODE");
    session_.RunLater(
        LockDaysSql(place.Schema),
        {ArrayText(scope.Days, [](const auto& day) { return std::to_string(day.first); }),
         ArrayText(scope.Days, [](const auto& day) { return IsoText(day.second); })});
  }
}

void ChangeRunner::Commit(const Look& is_made) {
  const Result change = session_.Run(
      "SELECT pg_catalog.current_setting('veyra.action_id', true),"
      " pg_catalog.pg_current_xact_id_if_assigned()::text");
  try {
    session_.Run("COMMIT");
  } catch (const Failure& failure) {
    const bool may_stand = failure.IsOf(state::kConnection) && !change.IsNull(0, 1);
    if (!may_stand || !IsCommitted(change.Text(0, 1), failure)) {
      throw;
    }
    RequireMade(is_made, failure);
  }
  if (action_.IsNamed() && !change.Text(0, 0).empty()) {
    action_.SetNumber(change.Number(0, 0));
  }
}

/// A server that has crashed may have given the number of a transaction a
/// second time.
void ChangeRunner::RequireMade(const Look& is_made, const Failure& lost) {
  bool is_there = false;
  try {
    is_there = is_made();
  } catch (const std::exception&) {
    // As long as the server cannot be asked, nothing is known.
  }
  if (!is_there) {
    throw OutcomeUnknown(session_.file(), LostText(lost));
  }
}

/// Throws OutcomeUnknownError when the server does not tell.
bool ChangeRunner::IsCommitted(const std::string& transaction, const Failure& lost) {
  Wait wait(session_.policy());
  do {
    const auto status = StatusOf(transaction);
    if (status == kCommitted || status == kAborted) {
      return status == kCommitted;
    }
    if (status == kGivenUp) {
      break;
    }
  } while (wait.GoOn());
  throw OutcomeUnknown(session_.file(), LostText(lost));
}

/// Nothing when the server cannot be asked now, or knows nothing.
std::optional<std::string> ChangeRunner::StatusOf(const std::string& transaction) {
  try {
    const Result status = session_.Run("SELECT pg_catalog.pg_xact_status($1::xid8)", {transaction});
    return status.IsNull(0, 0) ? std::nullopt : std::optional(status.Text(0, 0));
  } catch (const Failure& failure) {
    // A server that has crashed knows no transaction that was not on its disk.
    return failure.IsOf(state::kBadData) ? std::optional<std::string>(kAborted) : std::nullopt;
  } catch (const WaitCancelledError&) {
    return kGivenUp;
  } catch (const DatabaseError&) {
    return std::nullopt;
  }
}

void ChangeRunner::BeginOuter() {
  Repeat({}, [&] { Begin({}); });
  is_in_outer_ = true;
}

void ChangeRunner::SaveOuter(const Look& is_made) {
  Repeat({}, [&] { Commit(is_made); });
  is_in_outer_ = false;
}

}  // namespace veyra::postgres
