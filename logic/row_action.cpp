#include "logic/row_action.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <optional>
#include <vector>

#include "data/errors.h"
#include "logic/row_report.h"

namespace veyra::modRes {
namespace {

enum class RowState : std::uint8_t {
  Open,
  Done,
  PassedOver,
  Foreign,    ///< Another program has changed it: it is left alone.
  Uncertain,  ///< Open or Done, it is not known which.
};

/// One carrying out of an action, until nothing is left to be asked.
class Run {
 public:
  Run(RowAction& action, const RowActionWords& words, Dialogs& dialogs)
      : action_(action), words_(words), dialogs_(dialogs), states_(action.Count()) {}

  RowActionResult CarryOut();

 private:
  std::optional<Halt> Walk();
  std::optional<Halt> TryStep(std::size_t row);
  Halt HaltedAt(std::size_t row, RowState state);
  void Step(std::size_t row);
  void LookAtUncertain();
  bool IsOver(const Halt& halt) const;
  bool Ask(const Halt& halt);
  bool Holds(RowState state) const;
  std::size_t CountOf(RowState state) const;
  RowCounts Counts() const;
  RowActionResult Result() const;

  RowAction& action_;
  const RowActionWords& words_;
  Dialogs& dialogs_;
  std::vector<RowState> states_;
  bool undoing_ = false;
  bool halted_ = false;
};

RowActionResult Run::CarryOut() {
  while (std::optional<Halt> halt = Walk()) {
    halted_ = true;
    LookAtUncertain();
    halt->Passed = states_[halt->Row] == (undoing_ ? RowState::Open : RowState::Done);
    if (IsOver(*halt)) {
      return Result();
    }
    RequireSameFile(words_, Counts(), *halt);
    if (!Ask(*halt)) {
      return Result();
    }
  }
  return Result();
}

/// Whether nothing is left to be asked. Throws the failure when it is all that there is to be told.
bool Run::IsOver(const Halt& halt) const {
  if (Holds(RowState::Uncertain)) {
    return false;
  }
  if (!Holds(RowState::Done)) {
    if (!undoing_ && halt.Failure) {
      std::rethrow_exception(halt.Failure);
    }
    return true;
  }
  return !undoing_ && !Holds(RowState::Open) && !Holds(RowState::Foreign);
}

/// Returns whether to walk on, forward or back.
bool Run::Ask(const Halt& halt) {
  const Answer answer = dialogs_.MsgBox(HaltQuestion(words_, Counts(), halt));
  undoing_ = answer == Answer::Undo;
  return undoing_ || answer == Answer::Continue;
}

/// Nothing when it came to the end.
std::optional<Halt> Run::Walk() {
  const auto progress =
      dialogs_.StartProgress(undoing_ ? "Taking back ..." : words_.Progress, EarlyEnd::Stop);
  const RowState from = undoing_ ? RowState::Done : RowState::Open;
  for (std::size_t row = 0; row < states_.size(); ++row) {
    if (states_[row] != from && states_[row] != RowState::Uncertain) {
      continue;
    }
    if (!progress->Report(static_cast<std::int64_t>(row),
                          static_cast<std::int64_t>(states_.size()))) {
      return Halt{};
    }
    if (auto halt = TryStep(row)) {
      return halt;
    }
  }
  return std::nullopt;
}

std::optional<Halt> Run::TryStep(std::size_t row) {
  try {
    Step(row);
    return std::nullopt;
  } catch (const RowChangedError&) {
    return HaltedAt(row, RowState::Foreign);
  } catch (const OutcomeUnknownError&) {
    return HaltedAt(row, RowState::Uncertain);
  } catch (const std::exception&) {
    return HaltedAt(row, states_[row]);
  }
}

/// REQUIRES: the failure is being handled.
Halt Run::HaltedAt(std::size_t row, RowState state) {
  states_[row] = state;
  return {row, action_.NameOf(row), std::current_exception()};
}

void Run::Step(std::size_t row) {
  if (states_[row] == RowState::Uncertain) {
    states_[row] = action_.IsDone(row) ? RowState::Done : RowState::Open;
  }
  if (!undoing_ && states_[row] == RowState::Open) {
    states_[row] = action_.Do(row) ? RowState::Done : RowState::PassedOver;
  } else if (undoing_ && states_[row] == RowState::Done) {
    action_.Undo(row);
    states_[row] = RowState::Open;
  }
}

/// What cannot be looked at stays uncertain, and the operator is told so.
void Run::LookAtUncertain() {
  for (std::size_t row = 0; row < states_.size(); ++row) {
    if (states_[row] != RowState::Uncertain) {
      continue;
    }
    try {
      states_[row] = action_.IsDone(row) ? RowState::Done : RowState::Open;
    } catch (const DatabaseError&) {
      return;
    }
  }
}

bool Run::Holds(RowState state) const {
  return std::find(states_.begin(), states_.end(), state) != states_.end();
}

std::size_t Run::CountOf(RowState state) const {
  std::size_t count = 0;
  for (std::size_t row = 0; row < states_.size(); ++row) {
    count += states_[row] == state && action_.IsCounted(row) ? 1 : 0;
  }
  return count;
}

RowCounts Run::Counts() const {
  RowCounts counts;
  for (std::size_t row = 0; row < states_.size(); ++row) {
    counts.All += action_.IsCounted(row) ? 1 : 0;
    if (states_[row] == RowState::Uncertain) {
      counts.Uncertain.push_back(action_.NameOf(row));
    }
  }
  counts.Done = CountOf(RowState::Done);
  counts.PassedOver = CountOf(RowState::PassedOver);
  counts.Foreign = CountOf(RowState::Foreign);
  return counts;
}

RowActionResult Run::Result() const {
  return {CountOf(RowState::Done), undoing_, halted_, Remarks(Counts())};
}

}  // namespace

RowActionResult CarryOut(RowAction& action, const RowActionWords& words, Dialogs& dialogs) {
  return Run(action, words, dialogs).CarryOut();
}

std::string ResultText(const RowActionResult& result, const RowActionWords& words,
                       const std::string& text) {
  const std::string& outcome = result.TakenBack ? words.Undone : text;
  return result.Remark.empty() ? outcome : outcome + kLineBreak + result.Remark;
}

}  // namespace veyra::modRes
