#include "tools/plain_text.h"

#include "data/text.h"

namespace veyra {
namespace {

bool IsAsciiControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

/// U+0080 to U+009F, which some terminals obey.
bool IsLateControl(std::string_view rest) {
  return rest.size() >= 2 && rest[0] == '\xC2' && static_cast<unsigned char>(rest[1]) < 0xA0;
}

/// U+2028 to U+202E and U+2066 to U+2069: line ends, and marks of direction.
bool IsLineEndOrTurn(std::string_view rest) {
  if (rest.size() < 3 || rest[0] != '\xE2') {
    return false;
  }
  const auto middle = static_cast<unsigned char>(rest[1]);
  const auto last = static_cast<unsigned char>(rest[2]);
  return (middle == 0x80 && last >= 0xA8 && last <= 0xAE) ||
         (middle == 0x81 && last >= 0xA6 && last <= 0xA9);
}

}  // namespace

std::string OneLine(std::string_view text) {
  const std::string valid = ValidUtf8(text);
  std::string line;
  for (std::size_t i = 0; i < valid.size(); ++i) {
    const std::string_view rest = std::string_view(valid).substr(i);
    if (IsAsciiControl(valid[i])) {
      line += ' ';
    } else if (IsLateControl(rest)) {
      line += ' ';
      i += 1;
    } else if (IsLineEndOrTurn(rest)) {
      i += 2;
    } else {
      line += valid[i];
    }
  }
  return line;
}

std::string PlainLines(std::string_view text) {
  const std::size_t end = text.find('\n');
  return end == std::string_view::npos
             ? OneLine(text)
             : OneLine(text.substr(0, end)) + "\n" + PlainLines(text.substr(end + 1));
}

}  // namespace veyra
