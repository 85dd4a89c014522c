#include "help/contents.h"

#include <algorithm>

#include "help/html_text.h"

namespace veyra {
namespace {

/// Takes a <param name="Name" value="..."> into the entry.
void TakeParameter(const HtmlPiece& param, ContentsEntry& entry) {
  const std::string name = Attribute(param, "name").value_or("");
  const std::string value = Attribute(param, "value").value_or("");
  if (name == "Name" && entry.Title.empty()) {
    entry.Title = value;
  }
  if (name == "Local" && entry.Page.empty()) {
    entry.Page = value;
  }
}

}  // namespace

std::vector<ContentsEntry> ParseContents(std::string_view hhc) {
  std::vector<ContentsEntry> entries;
  ContentsEntry entry;
  int lists = 0;
  for (const HtmlPiece& piece : HtmlPieces(hhc)) {
    if (piece.Tag == "ul") {
      ++lists;
    }
    if (piece.Tag == "/ul") {
      lists = std::max(lists - 1, 0);
    }
    if (piece.Tag == "object") {
      entry = {std::clamp(lists - 1, 0, kDeepestLevel), "", ""};
    }
    if (piece.Tag == "param") {
      TakeParameter(piece, entry);
    }
    if (piece.Tag == "/object" && !entry.Title.empty()) {
      entries.push_back(entry);
    }
    if (piece.Tag == "/object") {
      entry = {};
    }
  }
  return entries;
}

}  // namespace veyra
