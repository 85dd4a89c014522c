#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "data/connection.h"
#include "logic/dialogs.h"
#include "logic/row_words.h"

namespace veyra::modRes {

/// Something that is done to many rows, one after another, each of them, or each group that is done
/// together, written before the next is begun. The rows are counted from 0.
class RowAction {
 public:
  virtual ~RowAction() = default;

  virtual std::size_t Count() const = 0;

  /// Whether the operator is told of the row in numbers: the facility beside its bookings is not.
  virtual bool IsCounted(std::size_t) const { return true; }

  /// The row as it reads within a sentence: "the booking on 4/6/2014".
  virtual Phrase NameOf(std::size_t row) const = 0;

  /// Does it. Returns false when the row is to be passed over, having changed nothing. Throws
  /// DatabaseError: OutcomeUnknownError when it may have been done, else having changed nothing.
  virtual bool Do(std::size_t row) = 0;

  /// How many rows are best done together, in one change of the file; 1: each by itself.
  virtual std::size_t AtOnce() const { return 1; }

  /// Whether the row can be done together with others; if not, it is done after those before it.
  virtual bool CanJoin(std::size_t) const { return true; }

  /// Whether Do would do it now, rather than pass it over. Asked, in place of Do, of rows that are
  /// then done together.
  virtual bool IsToDo(std::size_t) { return true; }

  /// Does these rows, all of them or none; throws as Do does. REQUIRES: no more of them than
  /// AtOnce, which is more than 1; CanJoin and IsToDo of each.
  virtual void DoTogether(const std::vector<std::size_t>& rows);

  /// Takes back what Do did. Throws as Do does.
  virtual void Undo(std::size_t row) = 0;

  /// Whether the file holds the row as Do leaves it. Asked where Do or Undo could not say.
  virtual bool IsDone(std::size_t row) = 0;
};

/// What has become of an action.
struct RowActionResult {
  std::size_t Done = 0;    ///< Rows that are done, and not taken back.
  bool TakenBack = false;  ///< The operator had it all taken back.
  bool Halted = false;     ///< It did not come to its end in one go.
  Phrase Remark;           ///< What else the operator must be told; mostly nothing.
};

/// Does it to every row, showing how far it has come. When it fails after something was done, or
/// the operator stops it, the operator is told how far it came and is asked for one of three ways:
/// to go on with the rows that are left, to take back what was done, or to keep it. Going on and
/// taking back may fail or be stopped in their turn; that leads to the same question.
///
/// The rows, which are those of `connection`, are flushed together, before the operator is told of
/// any; of those that could not be flushed he is told that it is not known.
/// Throws what the action threw when nothing was done by then, and FileReplacedError, with how far
/// it came, when the file was replaced under it.
RowActionResult CarryOut(Connection& connection, RowAction& action, const RowActionWords& words,
                         Dialogs& dialogs);

/// What to tell the operator in the end: `text`, or that it was taken back, and the remark.
Phrase ResultText(const RowActionResult& result, const RowActionWords& words, const Phrase& text);

}  // namespace veyra::modRes
