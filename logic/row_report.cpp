#include "logic/row_report.h"

#include "data/errors.h"

namespace veyra::modRes {
namespace {

void AddLine(std::string& text, const std::string& line) {
  if (!line.empty()) {
    text += (text.empty() ? "" : kLineBreak) + line;
  }
}

/// The cause and what to do about it. What it means for the one row, and to look what became of it,
/// is left out: it says nothing of the rows before it, and somebody has looked.
std::string CauseOf(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const Error& error) {
    const Report& report = error.report();
    std::string text;
    AddLine(text, report.File);
    AddLine(text, report.Cause);
    if (dynamic_cast<const OutcomeUnknownError*>(&error) == nullptr) {
      AddLine(text, report.Advice);
    }
    return text;
  } catch (const std::exception& fault) {
    return fault.what();
  }
}

/// So many are named one by one.
constexpr std::size_t kMostNamed = 3;

std::string UncertainText(const std::vector<std::string>& rows) {
  std::string text;
  if (rows.size() > kMostNamed) {
    return "It is not known what became of " + Together(rows.front(), rows.size()) +
           ". Look at them in the calendar.";
  }
  for (const std::string& row : rows) {
    AddLine(text, "It is not known what became of " + row + ". Look at it in the calendar.");
  }
  return text;
}

std::string HowFar(const RowActionWords& words, const RowCounts& counts) {
  return std::to_string(counts.Done) + " of " + std::to_string(counts.All) + " " + words.Done;
}

}  // namespace

std::string Together(const std::string& first, std::size_t count) {
  if (count < 2) {
    return first;
  }
  return first + " and " + std::to_string(count - 1) + (count == 2 ? " other" : " others");
}

Message HaltQuestion(const RowActionWords& words, const RowCounts& counts, const Halt& halt) {
  std::string text = HowFar(words, counts);
  if (counts.PassedOver > 0) {
    AddLine(text, words.PassedOver + std::to_string(counts.PassedOver) + ".");
  }
  AddLine(text, Remarks(counts));
  if (halt.Failure) {
    AddLine(text, "Then " + halt.Name + " failed" +
                      (halt.Passed ? ", but was saved all the same:" : ":"));
    AddLine(text, CauseOf(halt.Failure));
  } else {
    AddLine(text, "You stopped it there.");
  }
  return {.Text = text,
          .Choice = Buttons::ContinueUndoKeep,
          .Sign = halt.Failure ? Icon::Critical : Icon::Question,
          .Details = words.Continue + kLineBreak + words.Undo + kLineBreak +
                     "Keep leaves everything as it is now.",
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
    report.Effect = "In the file that was open until now " + HowFar(words, counts);
    AddLine(report.Effect, Remarks(counts));
    throw FileReplacedError(report);
  } catch (const std::exception&) {
    return;  // Of this the operator is asked.
  }
}

std::string Remarks(const RowCounts& counts) {
  std::string text;
  if (counts.Foreign > 0) {
    AddLine(text, "Left alone because another program has changed them: " +
                      std::to_string(counts.Foreign) + ".");
  }
  AddLine(text, UncertainText(counts.Uncertain));
  return text;
}

}  // namespace veyra::modRes
