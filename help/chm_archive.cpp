#include "help/chm_archive.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <utility>

#include "data/text.h"
#include "help/code_page.h"
#include "help/html_text.h"

namespace veyra {
namespace {

/// The number of `size` bytes, lowest first, at `place` of a table; nothing behind its end.
std::optional<std::uint32_t> NumberAt(std::string_view table, std::size_t place, std::size_t size) {
  if (place > table.size() || table.size() - place < size) {
    return std::nullopt;
  }
  std::uint32_t number = 0;
  for (std::size_t i = size; i > 0; --i) {
    number = number << 8U | static_cast<unsigned char>(table[place + i - 1]);
  }
  return number;
}

/// The text at `place` of a table, up to the zero byte that ends it.
std::string TextAt(std::string_view table, std::size_t place) {
  if (place >= table.size()) {
    return {};
  }
  const std::string_view rest = table.substr(place);
  return std::string(rest.substr(0, rest.find('\0')));
}

/// The place in /#STRINGS that /#IVB gives for a context number: after its length in bytes the
/// table is pairs of number and place, four bytes each.
std::optional<std::uint32_t> PlaceOfTopic(std::string_view ivb, std::uint32_t number) {
  for (std::size_t pair = 4; NumberAt(ivb, pair + 4, 4); pair += 8) {
    if (NumberAt(ivb, pair, 4) == number) {
      return NumberAt(ivb, pair + 4, 4);
    }
  }
  return std::nullopt;
}

std::optional<int> HexDigit(char letter) {
  if (letter >= '0' && letter <= '9') {
    return letter - '0';
  }
  if (letter >= 'a' && letter <= 'f') {
    return letter - 'a' + 10;
  }
  if (letter >= 'A' && letter <= 'F') {
    return letter - 'A' + 10;
  }
  return std::nullopt;
}

std::string WithoutPercents(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_escape = text[i] == '%' && i + 2 < text.size();
    const auto high = is_escape ? HexDigit(text[i + 1]) : std::nullopt;
    const auto low = is_escape ? HexDigit(text[i + 2]) : std::nullopt;
    plain += high && low ? static_cast<char>(*high * 16 + *low) : text[i];
    if (high && low) {
      i += 2;
    }
  }
  return plain;
}

std::string WithForwardSlashes(std::string text) {
  std::replace(text.begin(), text.end(), '\\', '/');
  return text;
}

/// A path with ".", ".." and empty steps resolved.
std::string ResolvedPath(std::string_view path) {
  std::vector<std::string_view> steps;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find('/'), path.size());
    const std::string_view step = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (step == ".." && !steps.empty()) {
      steps.pop_back();
    }
    if (!step.empty() && step != "." && step != "..") {
      steps.push_back(step);
    }
  }
  std::string resolved;
  for (const std::string_view step : steps) {
    if (!resolved.empty()) {
      resolved += '/';
    }
    resolved += step;
  }
  return resolved;
}

std::string_view WithoutAnchor(std::string_view reference) {
  return reference.substr(0, reference.find('#'));
}

/// What objects are kept by.
std::string KeyOf(std::string_view name) {
  return UpperCase(ResolvedPath(WithForwardSlashes(std::string(name))));
}

bool HasEnding(const std::string& key, std::string_view ending) {
  return key.size() > ending.size() &&
         std::string_view(key).substr(key.size() - ending.size()) == ending;
}

bool IsPage(const std::string& key) {
  return HasEnding(key, ".HTM") || HasEnding(key, ".HTML");
}

}  // namespace

std::string PlainReference(std::string_view reference) {
  const std::size_t archive_end = reference.rfind("::");
  if (archive_end != std::string_view::npos) {
    reference.remove_prefix(archive_end + 2);
  }
  const std::string_view path = WithoutAnchor(reference);
  const std::string_view anchor = reference.substr(path.size());
  return ResolvedPath(WithForwardSlashes(WithoutPercents(path))) + std::string(anchor);
}

ChmArchive::ChmArchive(std::vector<HelpObject> objects) {
  for (HelpObject& object : objects) {
    std::string key = KeyOf(object.Name);
    objects_.emplace(std::move(key), std::move(object));
  }
  for (const auto& [key, object] : objects_) {
    if (IsPage(key)) {
      pages_.push_back(PlainReference(object.Name));
    }
  }
  TakeSystemTable();
  if (const std::string* hhc = Object(ContentsFile())) {
    contents_ = ParseContents(HtmlAsUtf8(*hhc, code_page_));
  }
  if (contents_.empty()) {
    contents_ = AllPages();
  }
}

const std::string* ChmArchive::Object(std::string_view reference) const {
  auto object = objects_.find(KeyOf(reference));
  if (object == objects_.end()) {
    object = objects_.find(KeyOf(PlainReference(WithoutAnchor(reference))));
  }
  return object == objects_.end() ? nullptr : &object->second.Bytes;
}

std::optional<std::string> ChmArchive::Page(std::string_view reference) const {
  const std::string* html = Object(reference);
  if (html == nullptr) {
    return std::nullopt;
  }
  return HtmlAsUtf8(*html, code_page_);
}

std::optional<std::string> ChmArchive::Topic(int number) const {
  const std::string* ivb = Object("/#IVB");
  const std::string* strings = Object("/#STRINGS");
  if (ivb == nullptr || strings == nullptr) {
    return std::nullopt;
  }
  const auto place = PlaceOfTopic(*ivb, static_cast<std::uint32_t>(number));
  std::string name = place ? PlainReference(TextAt(*strings, *place)) : std::string();
  while (!name.empty() && Object(name) == nullptr) {
    const std::size_t folder_end = WithoutAnchor(name).find('/');
    name = folder_end == std::string::npos ? std::string() : name.substr(folder_end + 1);
  }
  if (name.empty()) {
    return std::nullopt;
  }
  return name;
}

std::string ChmArchive::FirstPage() const {
  if (Object(first_page_) != nullptr) {
    return PlainReference(first_page_);
  }
  const auto entry = std::find_if(
      contents_.begin(), contents_.end(),
      [&](const ContentsEntry& candidate) { return Object(candidate.Page) != nullptr; });
  if (entry != contents_.end()) {
    return PlainReference(entry->Page);
  }
  return pages_.empty() ? std::string() : pages_.front();
}

/// Takes what concerns us from /#SYSTEM: after a version of four bytes the table is entries of a
/// code and a length, two bytes each, and so many bytes.
void ChmArchive::TakeSystemTable() {
  const std::string* table = Object("/#SYSTEM");
  if (table == nullptr) {
    return;
  }
  std::size_t place = 4;
  while (const auto length = NumberAt(*table, place + 2, 2)) {
    const auto code = NumberAt(*table, place, 2);
    const std::string value = table->substr(std::min(place + 4, table->size()), *length);
    if (code == 0U) {
      contents_file_ = TextAt(value, 0);
    }
    if (code == 2U) {
      first_page_ = TextAt(value, 0);
    }
    if (code == 3U) {
      title_ = TextAt(value, 0);
    }
    if (code == 4U) {
      code_page_ = CodePageOfLanguage(NumberAt(value, 0, 4).value_or(0));
    }
    place += 4 + *length;
  }
  title_ = PlainText(HtmlAsUtf8(title_, code_page_));
}

std::string ChmArchive::ContentsFile() const {
  if (Object(contents_file_) != nullptr) {
    return contents_file_;
  }
  const auto file = std::find_if(objects_.begin(), objects_.end(),
                                 [](const auto& entry) { return HasEnding(entry.first, ".HHC"); });
  return file == objects_.end() ? std::string() : file->second.Name;
}

std::vector<ContentsEntry> ChmArchive::AllPages() const {
  std::vector<ContentsEntry> entries;
  for (const std::string& page : pages_) {
    const std::string title = PageTitle(Page(page).value_or(""));
    entries.push_back({0, title.empty() ? page : title, page});
  }
  return entries;
}

}  // namespace veyra
