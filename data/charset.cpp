#include "data/charset.h"

#include <iconv.h>
#include <utf8proc.h>

#include <array>
#include <cerrno>

namespace veyra {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
const iconv_t kNoConverter = reinterpret_cast<iconv_t>(-1);  // NOLINT: iconv's own error value

}  // namespace

std::optional<Charset> Charset::Named(const std::string& name) {
  const iconv_t converter = iconv_open("UTF-8", name.c_str());
  if (converter == kNoConverter) {
    return std::nullopt;
  }
  return Charset({converter, [](void* handle) { iconv_close(handle); }});
}

std::string Charset::ToUtf8(std::string_view text) const {
  std::string result;
  char* from = const_cast<char*>(text.data());  // NOLINT: iconv's type; it writes nothing there
  std::size_t left = text.size();
  std::array<char, 512> buffer{};
  iconv(converter_.get(), nullptr, nullptr, nullptr, nullptr);
  while (left > 0) {
    char* to = buffer.data();
    std::size_t room = buffer.size();
    const std::size_t done = iconv(converter_.get(), &from, &left, &to, &room);
    result.append(buffer.data(), buffer.size() - room);
    if (done == static_cast<std::size_t>(-1) && errno != E2BIG) {
      AppendUtf8(result, kReplacement);
      ++from;
      --left;
    }
  }
  return result;
}

void AppendUtf8(std::string& text, char32_t character) {
  const auto code = static_cast<utf8proc_int32_t>(character);
  std::array<utf8proc_uint8_t, 4> bytes{};
  const auto length = utf8proc_encode_char(
      utf8proc_codepoint_valid(code) ? code : static_cast<utf8proc_int32_t>(kReplacement),
      bytes.data());
  text.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(length));
}

}  // namespace veyra
