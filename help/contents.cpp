#include "help/contents.h"

#include <algorithm>

#include "help/html_reading.h"

namespace veyra {
namespace {

std::string ValueOf(const HtmlAttributes& attributes, std::string_view name) {
  const auto attribute = attributes.find(name);
  return attribute == attributes.end() ? std::string() : attribute->second;
}

/// Takes the entries from nested lists of <object>s with a <param> for each of their values.
class ContentsLists : public HtmlVisitor {
 public:
  void BeginTag(std::string_view name, const HtmlAttributes& attributes) override {
    if (name == "ul") {
      ++lists_;
    } else if (name == "object") {
      entry_ = {std::clamp(lists_ - 1, 0, kDeepestLevel), "", ""};
    } else if (name == "param") {
      TakeParameter(ValueOf(attributes, "name"), ValueOf(attributes, "value"));
    }
  }

  void EndTag(std::string_view name) override {
    if (name == "ul") {
      --lists_;
    } else if (name == "object" && !entry_.Title.empty()) {
      Entries.push_back(entry_);
    }
  }

  std::vector<ContentsEntry> Entries;

 private:
  void TakeParameter(const std::string& name, const std::string& value) {
    if (name == "Name" && entry_.Title.empty()) {
      entry_.Title = value;
    }
    if (name == "Local" && entry_.Page.empty()) {
      entry_.Page = value;
    }
  }

  int lists_ = 0;
  ContentsEntry entry_;
};

}  // namespace

std::vector<ContentsEntry> ParseContents(std::string_view hhc) {
  ContentsLists lists;
  ReadHtml(hhc, lists);
  return lists.Entries;
}

}  // namespace veyra
