#include "data/sqlite/salvage/tree_page.h"

#include <bit>
#include <string>

#include "data/charset.h"

namespace veyra::sqlite {

namespace {

constexpr std::size_t kLeafHead = 8;
constexpr std::size_t kInnerHead = 12;
constexpr int kLongestVarint = 9;

void Need(ByteSpan bytes, std::size_t at, std::size_t length) {
  if (at > bytes.size() || length > bytes.size() - at) {
    throw NotWhole();
  }
}

/// A signed number of 1 to 8 bytes.
std::int64_t Integer(ByteSpan bytes) {
  std::uint64_t number = (bytes.front() & 0x80U) != 0 ? ~std::uint64_t{0} : 0;
  for (const unsigned char byte : bytes) {
    number = number << 8U | byte;
  }
  return static_cast<std::int64_t>(number);
}

std::string TextOf(ByteSpan bytes, TextEncoding encoding) {
  std::string text(bytes.begin(), bytes.end());
  if (encoding == TextEncoding::Utf8) {
    return text;
  }
  const auto charset =
      Charset::Named(encoding == TextEncoding::Utf16Little ? "UTF-16LE" : "UTF-16BE");
  return charset ? charset->ToUtf8(text) : text;
}

/// The bytes that a value of that type takes.
std::size_t LengthOf(std::int64_t type) {
  constexpr std::size_t kLengths[] = {0, 1, 2, 3, 4, 6, 8, 8, 0, 0};
  if (type < 0 || type == 10 || type == 11) {
    throw NotWhole();
  }
  return type < 10 ? kLengths[type] : static_cast<std::size_t>((type - 12) / 2);
}

Value ReadValue(std::int64_t type, ByteSpan bytes, TextEncoding encoding) {
  switch (type) {
    case 0:
      return Null{};
    case 7:
      return std::bit_cast<double>(Integer(bytes));
    case 8:
    case 9:
      return type - 8;
    default:
      break;
  }
  if (type < 8) {
    return Integer(bytes);
  }
  return TextOf(bytes, type % 2 == 0 ? TextEncoding::Utf8 : encoding);
}

}  // namespace

std::uint32_t BigEndian16(ByteSpan bytes, std::size_t at) {
  Need(bytes, at, 2);
  return std::uint32_t{bytes[at]} << 8U | bytes[at + 1];
}

std::uint32_t BigEndian32(ByteSpan bytes, std::size_t at) {
  return BigEndian16(bytes, at) << 16U | BigEndian16(bytes, at + 2);
}

std::int64_t TakeVarint(ByteSpan bytes, std::size_t& at) {
  std::uint64_t number = 0;
  for (int i = 1; i <= kLongestVarint; ++i) {
    Need(bytes, at, 1);
    const unsigned char byte = bytes[at++];
    if (i == kLongestVarint) {
      return static_cast<std::int64_t>(number << 8U | byte);
    }
    number = number << 7U | (byte & 0x7FU);
    if ((byte & 0x80U) == 0) {
      break;
    }
  }
  return static_cast<std::int64_t>(number);
}

TreePage::TreePage(ByteSpan page, std::size_t start) : page_(page), start_(start) {
  Need(page, start, kInnerHead);
  kind_ = static_cast<TreeKind>(page[start]);
  cells_ = BigEndian16(page, start + 3);
  const bool is_known = IsInner() || kind_ == TreeKind::IndexLeaf || kind_ == TreeKind::TableLeaf;
  if (!is_known) {
    throw NotWhole();
  }
  Need(page, start + (IsInner() ? kInnerHead : kLeafHead), cells_ * 2);
}

std::size_t TreePage::Cell(std::size_t index) const {
  const std::size_t pointers = start_ + (IsInner() ? kInnerHead : kLeafHead);
  const std::size_t cell = BigEndian16(page_, pointers + index * 2);
  if (cell < pointers + cells_ * 2 || cell >= page_.size()) {
    throw NotWhole();
  }
  return cell;
}

std::vector<std::uint32_t> TreePage::Children() const {
  std::vector<std::uint32_t> children;
  for (std::size_t i = 0; i < cells_; ++i) {
    children.push_back(BigEndian32(page_, Cell(i)));
  }
  children.push_back(BigEndian32(page_, start_ + kLeafHead));
  return children;
}

bool LooksLikeTree(ByteSpan page, std::size_t start) {
  try {
    const TreePage tree(page, start);
    for (std::size_t i = 0; i < tree.CellCount(); ++i) {
      tree.Cell(i);
    }
    return tree.CellCount() > 0;
  } catch (const NotWhole&) {
    return false;
  }
}

std::vector<Value> ReadRecord(ByteSpan record, TextEncoding encoding) {
  std::size_t at = 0;
  const std::int64_t head = TakeVarint(record, at);
  if (head < static_cast<std::int64_t>(at) || static_cast<std::size_t>(head) > record.size()) {
    throw NotWhole();
  }
  auto body = static_cast<std::size_t>(head);
  const ByteSpan types = record.first(body);
  std::vector<Value> values;
  while (at < types.size()) {
    const std::int64_t type = TakeVarint(types, at);
    const std::size_t length = LengthOf(type);
    Need(record, body, length);
    values.push_back(ReadValue(type, record.subspan(body, length), encoding));
    body += length;
  }
  if (body != record.size() || values.empty()) {
    throw NotWhole();
  }
  return values;
}

}  // namespace veyra::sqlite
