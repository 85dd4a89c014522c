#include "data/phrase.h"

#include <iterator>
#include <ostream>

namespace veyra {

Phrase::Phrase(std::string text) {
  if (!text.empty()) {
    parts_.push_back({std::move(text)});
  }
}

Phrase::Phrase(const char* text) : Phrase(std::string(text)) {}

std::string Phrase::English() const {
  return TranslatedBy([](const std::string& pattern) { return pattern; });
}

std::string Phrase::TranslatedBy(const Translator& translator) const {
  std::string text;
  for (const Part& part : parts_) {
    if (!part.IsPattern) {
      text += part.Text;
      continue;
    }
    std::vector<std::string> values;
    for (const Phrase& value : part.Values) {
      values.push_back(value.TranslatedBy(translator));
    }
    text += Filled(translator(part.Text), values);
  }
  return text;
}

Phrase& Phrase::operator+=(Phrase after) {
  parts_.insert(parts_.end(), std::make_move_iterator(after.parts_.begin()),
                std::make_move_iterator(after.parts_.end()));
  return *this;
}

/// In one pass, so that a value that looks like a place is left alone.
std::string Phrase::Filled(const std::string& pattern, const std::vector<std::string>& values) {
  std::string text;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    const std::size_t place = pattern[at] == '%' && at + 1 < pattern.size() && pattern[at + 1] > '0'
                                  ? static_cast<std::size_t>(pattern[at + 1] - '0')
                                  : 0;
    if (place >= 1 && place <= values.size()) {
      text += values[place - 1];
      ++at;
    } else {
      text += pattern[at];
    }
  }
  return text;
}

std::ostream& operator<<(std::ostream& out, const Phrase& phrase) {
  return out << phrase.English();
}

Phrase JoinedLines(const std::vector<Phrase>& lines, const char* line_break) {
  Phrase text;
  for (const Phrase& line : lines) {
    if (!line.IsEmpty()) {
      text += text.IsEmpty() ? line : line_break + line;
    }
  }
  return text;
}

}  // namespace veyra
