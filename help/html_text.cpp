#include "help/html_text.h"

#include <algorithm>
#include <array>

#include "help/html_reading.h"

namespace veyra {
namespace {

constexpr std::string_view kNoBreakSpace = "\u00A0";

/// A text in which any blanks are a single one, with none at its ends.
class SingleBlanks {
 public:
  void Append(std::string_view text) {
    while (!text.empty()) {
      const std::size_t blank = LengthOfBlank(text);
      if (blank > 0) {
        AppendBlank();
      } else {
        text_ += text[0];
      }
      text.remove_prefix(std::max<std::size_t>(blank, 1));
    }
  }

  void AppendBlank() {
    if (!text_.empty() && text_.back() != ' ') {
      text_ += ' ';
    }
  }

  std::string Text() const { return text_.substr(0, text_.find_last_not_of(' ') + 1); }

 private:
  /// How many bytes the blank takes that the text begins with; 0 when it begins with none.
  static std::size_t LengthOfBlank(std::string_view text) {
    if (text.starts_with(kNoBreakSpace)) {
      return kNoBreakSpace.size();
    }
    return std::string_view(" \t\r\n\f").find(text[0]) != std::string_view::npos ? 1 : 0;
  }

  std::string text_;
};

/// Tags that do not part the words on their two sides.
bool IsInline(std::string_view tag) {
  static constexpr std::array<std::string_view, 12> names{
      "a", "b", "i", "u", "em", "strong", "font", "span", "code", "tt", "sub", "sup"};
  return std::find(names.begin(), names.end(), tag) != names.end();
}

class PageText : public HtmlVisitor {
 public:
  void BeginTag(std::string_view name, const HtmlAttributes&) override {
    in_title_ = name == "title";
    PartWords(name);
  }
  void EndTag(std::string_view name) override {
    in_title_ = false;
    PartWords(name);
  }
  void TakeText(std::string_view text) override { (in_title_ ? Title : Body).Append(text); }

  SingleBlanks Title;
  SingleBlanks Body;

 private:
  void PartWords(std::string_view tag) {
    if (!IsInline(tag)) {
      Body.AppendBlank();
    }
  }

  bool in_title_ = false;
};

}  // namespace

std::string PlainText(std::string_view html) {
  PageText page;
  ReadHtml(html, page);
  return page.Body.Text();
}

std::string PageTitle(std::string_view html) {
  PageText page;
  ReadHtml(html, page);
  return page.Title.Text();
}

}  // namespace veyra
