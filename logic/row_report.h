#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <vector>

#include "logic/dialogs.h"
#include "logic/row_words.h"

namespace veyra::modRes {

/// How far an action on many rows has come.
struct RowCounts {
  std::size_t All = 0;
  std::size_t Done = 0;           ///< Done, and not taken back.
  std::size_t PassedOver = 0;     ///< Rows that were not to be touched.
  std::size_t Foreign = 0;        ///< Rows that another program changed, and that are left.
  std::vector<Phrase> Uncertain;  ///< The names of the rows of which it is not known.
};

/// Why an action has halted.
struct Halt {
  std::size_t Row = 0;              ///< The row that failed.
  Phrase Name = {};                 ///< Its name.
  std::exception_ptr Failure = {};  ///< Null: the operator stopped it.
  bool Passed = false;  ///< What was to be done to the row was done in spite of the failure.
};

/// The first of so many rows, and that there are others: "the booking on 4/6/2014 and 2 others".
Phrase Together(const Phrase& first, std::size_t count);

/// The question that a halted action leads to.
Message HaltQuestion(const RowActionWords& words, const RowCounts& counts, const Halt& halt);

/// Throws FileReplacedError, with how far the action came, when that is why it halted: such a file
/// takes nothing more and gives nothing back, and there is nothing to be asked.
void RequireSameFile(const RowActionWords& words, const RowCounts& counts, const Halt& halt);

/// What the number of rows done does not say: which rows were left, and of which it is not known.
/// Empty when there is none.
Phrase Remarks(const RowCounts& counts);

}  // namespace veyra::modRes
