#include "logic/row_action.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <optional>
#include <stdexcept>
#include <utility>
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
  Run(Connection& connection, RowAction& action, const RowActionWords& words, Dialogs& dialogs)
      : connection_(connection),
        action_(action),
        words_(words),
        dialogs_(dialogs),
        states_(action.Count()) {}

  RowActionResult CarryOut();

 private:
  std::optional<Halt> Walk();
  std::optional<Halt> WalkRows();
  std::optional<Halt> Flush();
  template <typename Work>
  std::optional<Halt> Try(const std::vector<std::size_t>& rows, const Work& work);
  std::optional<Halt> DoGathered();
  Halt HaltedAt(const std::vector<std::size_t>& rows, RowState state);
  std::optional<Halt> DoEach(const std::vector<std::size_t>& rows);
  void SetStates(const std::vector<std::size_t>& rows, RowState state);
  void SetWritten(std::size_t row, RowState state);
  void Step(std::size_t row);
  void Begin(std::size_t row);
  void DoOne(std::size_t row);
  void LookAtUncertain();
  bool IsOver(const Halt& halt) const;
  bool Ask(const Halt& halt);
  bool Holds(RowState state) const;
  std::size_t CountOf(RowState state) const;
  RowCounts Counts() const;
  RowActionResult Result() const;

  Connection& connection_;
  RowAction& action_;
  const RowActionWords& words_;
  Dialogs& dialogs_;
  std::vector<RowState> states_;
  std::vector<std::pair<std::size_t, RowState>> unflushed_;  ///< What became of rows since the last
                                                             ///< flush, in its order.
  std::vector<std::size_t> gathered_;  ///< To be done together, and not done yet.
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
  if (auto halt = Flush()) {
    return halt;
  }
  connection_.DelayFlushes();
  std::optional<Halt> halt;
  try {
    halt = WalkRows();
  } catch (...) {
    Flush();
    throw;
  }
  const std::optional<Halt> unflushed = Flush();
  return halt ? halt : unflushed;
}

/// What was done is known to be so, or else not known.
std::optional<Halt> Run::Flush() {
  try {
    connection_.Flush();
  } catch (const std::exception&) {
    for (const auto& [row, state] : unflushed_) {
      states_[row] = RowState::Uncertain;
    }
    const std::size_t row = unflushed_.empty() ? 0 : unflushed_.front().first;
    return Halt{row, Phrase::Tr("saving them on the disk"), std::current_exception()};
  }
  for (const auto& [row, state] : std::exchange(unflushed_, {})) {
    states_[row] = state;
  }
  return std::nullopt;
}

std::optional<Halt> Run::WalkRows() {
  const auto progress = dialogs_.StartProgress(
      undoing_ ? Phrase::Tr("Taking back ...") : words_.Progress, EarlyEnd::Stop);
  const RowState from = undoing_ ? RowState::Done : RowState::Open;
  gathered_.clear();
  for (std::size_t row = 0; row < states_.size(); ++row) {
    if (states_[row] != from && states_[row] != RowState::Uncertain) {
      continue;
    }
    if (!progress->Report(static_cast<std::int64_t>(row),
                          static_cast<std::int64_t>(states_.size()))) {
      return Halt{};
    }
    if (!action_.CanJoin(row)) {
      if (auto halt = DoGathered()) {
        return halt;
      }
    }
    if (auto halt = Try({row}, [&] { Step(row); })) {
      return halt;
    }
    if (gathered_.size() < action_.AtOnce()) {
      continue;
    }
    if (auto halt = DoGathered()) {
      return halt;
    }
  }
  return DoGathered();
}

std::optional<Halt> Run::DoGathered() {
  const std::vector<std::size_t> rows = std::exchange(gathered_, {});
  if (rows.empty()) {
    return std::nullopt;
  }
  bool is_one_foreign = false;
  auto halt = Try(rows, [&] {
    try {
      action_.DoTogether(rows);
    } catch (const RowChangedError&) {
      is_one_foreign = true;
      return;
    }
    for (const std::size_t row : rows) {
      SetWritten(row, RowState::Done);
    }
  });
  return is_one_foreign ? DoEach(rows) : halt;
}

/// One of them was changed by another program, and none was done.
std::optional<Halt> Run::DoEach(const std::vector<std::size_t>& rows) {
  for (const std::size_t row : rows) {
    if (auto halt = Try({row}, [&] { DoOne(row); })) {
      return halt;
    }
  }
  return std::nullopt;
}

/// Does `work` to rows that are all in one state.
template <typename Work>
std::optional<Halt> Run::Try(const std::vector<std::size_t>& rows, const Work& work) {
  try {
    work();
    return std::nullopt;
  } catch (const RowChangedError&) {
    return HaltedAt(rows, RowState::Foreign);
  } catch (const OutcomeUnknownError&) {
    return HaltedAt(rows, RowState::Uncertain);
  } catch (const std::exception&) {
    return HaltedAt(rows, states_[rows.front()]);
  }
}

/// REQUIRES: the failure is being handled.
Halt Run::HaltedAt(const std::vector<std::size_t>& rows, RowState state) {
  SetStates(rows, state);
  return {rows.front(), Together(action_.NameOf(rows.front()), rows.size()),
          std::current_exception()};
}

/// What was written counts when it is flushed.
void Run::SetWritten(std::size_t row, RowState state) {
  states_[row] = state;
  unflushed_.emplace_back(row, state);
}

void Run::SetStates(const std::vector<std::size_t>& rows, RowState state) {
  for (const std::size_t row : rows) {
    states_[row] = state;
  }
}

void Run::Step(std::size_t row) {
  if (states_[row] == RowState::Uncertain) {
    states_[row] = action_.IsDone(row) ? RowState::Done : RowState::Open;
  }
  if (!undoing_ && states_[row] == RowState::Open) {
    Begin(row);
  } else if (undoing_ && states_[row] == RowState::Done) {
    action_.Undo(row);
    SetWritten(row, RowState::Open);
  }
}

void Run::DoOne(std::size_t row) {
  if (action_.Do(row)) {
    SetWritten(row, RowState::Done);
  } else {
    states_[row] = RowState::PassedOver;
  }
}

/// Does the row, or puts it to those that are done together.
void Run::Begin(std::size_t row) {
  if (action_.AtOnce() == 1 || !action_.CanJoin(row)) {
    DoOne(row);
  } else if (action_.IsToDo(row)) {
    gathered_.push_back(row);
  } else {
    states_[row] = RowState::PassedOver;
  }
}

/// What cannot be looked at, or is not flushed, stays uncertain, and the operator is told so.
void Run::LookAtUncertain() {
  if (!unflushed_.empty()) {
    return;
  }
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

void RowAction::DoTogether(const std::vector<std::size_t>&) {
  throw std::logic_error("these rows are done one by one");
}

RowActionResult CarryOut(Connection& connection, RowAction& action, const RowActionWords& words,
                         Dialogs& dialogs) {
  return Run(connection, action, words, dialogs).CarryOut();
}

Phrase ResultText(const RowActionResult& result, const RowActionWords& words, const Phrase& text) {
  return JoinedLines({result.TakenBack ? words.Undone : text, result.Remark}, kLineBreak);
}

}  // namespace veyra::modRes
