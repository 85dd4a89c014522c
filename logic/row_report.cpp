#include "logic/row_report.h"

#include "data/errors.h"

namespace veyra::modRes {
namespace {

/// The cause and what to do about it. What it means for the one row, and to look what became of it,
/// is left out: it says nothing of the rows before it, and somebody has looked.
Phrase CauseOf(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const OutcomeUnknownError& error) {
    return JoinedLines({error.report().File, error.report().Cause}, kLineBreak);
  } catch (const Error& error) {
    const Report& report = error.report();
    return JoinedLines({report.File, report.Cause, report.Advice}, kLineBreak);
  } catch (const std::exception& fault) {
    return fault.what();
  }
}

/// So many are named one by one.
constexpr std::size_t kMostNamed = 3;

Phrase UncertainText(const std::vector<Phrase>& rows) {
  if (rows.size() > kMostNamed) {
    return Phrase::Tr("It is not known what became of %1. Look at them in the calendar.",
                      Together(rows.front(), rows.size()));
  }
  std::vector<Phrase> lines;
  for (const Phrase& row : rows) {
    lines.push_back(
        Phrase::Tr("It is not known what became of %1. Look at it in the calendar.", row));
  }
  return JoinedLines(lines, kLineBreak);
}

Phrase HowFar(const RowActionWords& words, const RowCounts& counts) {
  return Phrase::Tr("%1 of %2 %3", counts.Done, counts.All, words.Done);
}

Phrase PassedOver(const RowActionWords& words, const RowCounts& counts) {
  return counts.PassedOver > 0 ? words.PassedOver + std::to_string(counts.PassedOver) + "."
                               : Phrase();
}

Phrase WhyHalted(const Halt& halt) {
  if (!halt.Failure) {
    return Phrase::Tr("You stopped it there.");
  }
  return halt.Passed ? Phrase::Tr("Then %1 failed, but was saved all the same:", halt.Name)
                     : Phrase::Tr("Then %1 failed:", halt.Name);
}

}  // namespace

Phrase Together(const Phrase& first, std::size_t count) {
  if (count < 2) {
    return first;
  }
  return count == 2 ? Phrase::Tr("%1 and 1 other", first)
                    : Phrase::Tr("%1 and %2 others", first, count - 1);
}

Message HaltQuestion(const RowActionWords& words, const RowCounts& counts, const Halt& halt) {
  const Phrase cause = halt.Failure ? CauseOf(halt.Failure) : Phrase();
  return {.Text = JoinedLines({HowFar(words, counts), PassedOver(words, counts), Remarks(counts),
                               WhyHalted(halt), cause},
                              kLineBreak),
          .Choice = Buttons::ContinueUndoKeep,
          .Sign = halt.Failure ? Icon::Critical : Icon::Question,
          .Details = JoinedLines(
              {words.Continue, words.Undo, Phrase::Tr("Keep leaves everything as it is now.")},
              kLineBreak),
          .Default = Answer::Keep};
}

void RequireSameFile(const RowActionWords& words, const RowCounts& counts, const Halt& halt) {
  if (!halt.Failure) {
    return;
  }
  try {
    std::rethrow_exception(halt.Failure);
  } catch (const FileReplacedError& error) {
    Report report = error.report();
    report.Effect =
        JoinedLines({Phrase::Tr("In the file that was open until now %1", HowFar(words, counts)),
                     Remarks(counts)},
                    kLineBreak);
    throw FileReplacedError(report);
  } catch (const std::exception&) {
    return;  // Of this the operator is asked.
  }
}

Phrase Remarks(const RowCounts& counts) {
  const Phrase foreign =
      counts.Foreign > 0
          ? Phrase::Tr("Left alone because another program has changed them: %1.", counts.Foreign)
          : Phrase();
  return JoinedLines({foreign, UncertainText(counts.Uncertain)}, kLineBreak);
}

}  // namespace veyra::modRes
