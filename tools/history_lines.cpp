#include "tools/history_lines.h"

#include "tools/local_time.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

Phrase LineOf(const modRes::JournalledChange& change, const modRes::JournalWords& words) {
  const Phrase before = change.Before ? words.Of(change.Table, *change.Before) : Phrase();
  const Phrase after = change.After ? words.Of(change.Table, *change.After) : Phrase();
  if (!change.Before) {
    return "+ " + after;
  }
  if (!change.After) {
    return "- " + before;
  }
  return before == after ? "~ " + before : "~ " + before + " -> " + after;
}

}  // namespace

Phrase HeadLine(const modRes::JournalAction& action, std::size_t changes) {
  const auto time = LocalTimeOf(action.At);
  return std::to_string(action.Number) + "  " + (time ? DateTimeText(*time) : OneLine(action.At)) +
         "  " +
         (action.Name.empty() ? Phrase::Tr("By another program")
                              : modRes::ActionWords(OneLine(action.Name))) +
         ": " + (changes == 1 ? Phrase::Tr("1 row") : Phrase::Tr("%1 rows", changes));
}

std::vector<Phrase> ChangeLines(const std::vector<modRes::JournalledChange>& changes,
                                const modRes::JournalWords& words, std::size_t most) {
  std::vector<Phrase> lines;
  for (const modRes::JournalledChange& change : changes) {
    if (lines.size() == most) {
      lines.push_back(Phrase::Tr("... and %1 more", changes.size() - most));
      break;
    }
    lines.push_back(LineOf(change, words));
  }
  return lines;
}

}  // namespace veyra
