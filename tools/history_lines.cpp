#include "tools/history_lines.h"

#include "tools/local_time.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

std::string LineOf(const modRes::JournalledChange& change, const modRes::JournalWords& words) {
  const std::string before = change.Before ? words.Of(change.Table, *change.Before).English() : "";
  const std::string after = change.After ? words.Of(change.Table, *change.After).English() : "";
  if (!change.Before) {
    return "+ " + after;
  }
  if (!change.After) {
    return "- " + before;
  }
  return before == after ? "~ " + before : "~ " + before + " -> " + after;
}

}  // namespace

std::string HeadLine(const modRes::JournalAction& action, std::size_t changes) {
  const auto time = LocalTimeOf(action.At);
  return std::to_string(action.Number) + "  " + (time ? DateTimeText(*time) : OneLine(action.At)) +
         "  " + (action.Name.empty() ? "By another program" : OneLine(action.Name)) + ": " +
         std::to_string(changes) + (changes == 1 ? " row" : " rows");
}

std::vector<std::string> ChangeLines(const std::vector<modRes::JournalledChange>& changes,
                                     const modRes::JournalWords& words, std::size_t most) {
  std::vector<std::string> lines;
  for (const modRes::JournalledChange& change : changes) {
    if (lines.size() == most) {
      lines.push_back("... and " + std::to_string(changes.size() - most) + " more");
      break;
    }
    lines.push_back(OneLine(LineOf(change, words)));
  }
  return lines;
}

}  // namespace veyra
