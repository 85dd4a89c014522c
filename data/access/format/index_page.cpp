#include "data/access/format/index_page.h"

#include <algorithm>

namespace veyra::access {

namespace {

constexpr std::size_t kMaskAt = 27;
constexpr std::size_t kEntriesAt = 480;
constexpr std::size_t kRowBytes = 4;
constexpr std::size_t kChildBytes = 4;

void AppendBigEndian(Bytes& bytes, std::uint32_t number, unsigned size) {
  for (unsigned i = size; i > 0; --i) {
    bytes.push_back(static_cast<Byte>(number >> ((i - 1) * 8)));
  }
}

PageNumber BigEndian(ByteView bytes) {
  PageNumber number = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    number = (number << 8U) | bytes.U8(i);
  }
  return number;
}

/// Where the entries end, counted from the first one's beginning.
std::vector<std::size_t> EntryEnds(ByteView page) {
  std::vector<std::size_t> ends;
  for (std::size_t i = kMaskAt; i < kEntriesAt; ++i) {
    const Byte byte = page.U8(i);
    for (unsigned bit = 0; byte != 0 && bit < 8; ++bit) {
      if (((byte >> bit) & 1U) != 0) {
        ends.push_back((i - kMaskAt) * 8 + bit);
      }
    }
  }
  return ends;
}

IndexEntry EntryFrom(Bytes bytes, bool is_leaf) {
  IndexEntry entry;
  if (!is_leaf) {
    if (bytes.size() < kChildBytes + kRowBytes) {
      throw DamagedFile();
    }
    entry.Child = BigEndian(ByteView(bytes).From(bytes.size() - kChildBytes));
    bytes.resize(bytes.size() - kChildBytes);
  }
  if (bytes.size() < kRowBytes) {
    throw DamagedFile();
  }
  entry.Key = std::move(bytes);
  return entry;
}

void ReadEntries(ByteView page, IndexPage& result) {
  const std::size_t prefix_length = page.U16(24);
  Bytes prefix;
  std::size_t begin = 0;
  for (const std::size_t end : EntryEnds(page)) {
    Bytes bytes = prefix;
    const ByteView own = page.Slice(kEntriesAt + begin, end - begin);
    bytes.insert(bytes.end(), own.data(), own.data() + own.size());
    if (result.Entries.empty()) {
      prefix.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(
                                                       std::min(prefix_length, bytes.size())));
    }
    result.Entries.push_back(EntryFrom(std::move(bytes), result.IsLeaf));
    begin = end;
  }
}

/// How many bytes all keys begin with alike, the row at their end left alone. The entries are in
/// order, so what the first and the last have in common all have.
std::size_t CommonPrefix(const IndexPage& page) {
  std::size_t shortest = page.Entries.empty() ? kRowBytes : page.Entries.front().Key.size();
  for (const IndexEntry& entry : page.Entries) {
    shortest = std::min(shortest, entry.Key.size());
  }
  std::size_t prefix = 0;
  while (prefix + kRowBytes < shortest &&
         page.Entries.front().Key[prefix] == page.Entries.back().Key[prefix]) {
    ++prefix;
  }
  return prefix;
}

std::size_t SavedBytes(const IndexPage& page) {
  return page.Entries.empty() ? 0 : CommonPrefix(page) * (page.Entries.size() - 1);
}

}  // namespace

IndexPage DecodeIndexPage(ByteView bytes) {
  const auto kind = static_cast<PageKind>(bytes.U8(0));
  if (kind != PageKind::IndexLeaf && kind != PageKind::IndexNode) {
    throw DamagedFile();
  }
  IndexPage page;
  page.IsLeaf = kind == PageKind::IndexLeaf;
  page.Owner = bytes.U32(4);
  page.Previous = bytes.U32(12);
  page.Next = bytes.U32(16);
  page.Tail = bytes.U32(20);
  ReadEntries(bytes, page);
  return page;
}

std::size_t BytesOfEntries(const IndexPage& page) {
  std::size_t size = 0;
  for (const IndexEntry& entry : page.Entries) {
    size += entry.Key.size() + (page.IsLeaf ? 0 : kChildBytes);
  }
  return size;
}

bool FitsOnPage(const IndexPage& page) {
  const std::size_t size = BytesOfEntries(page);
  return size <= kIndexRoom || size - SavedBytes(page) <= kIndexRoom;
}

Bytes EncodeIndexPage(const IndexPage& page) {
  if (!FitsOnPage(page)) {
    throw DamagedFile();
  }
  const std::size_t prefix = BytesOfEntries(page) > kIndexRoom ? CommonPrefix(page) : 0;
  Bytes entries;
  Bytes bytes(kEntriesAt);
  for (const IndexEntry& entry : page.Entries) {
    const std::size_t left_out = entries.empty() ? 0 : prefix;
    entries.insert(entries.end(), entry.Key.begin() + static_cast<std::ptrdiff_t>(left_out),
                   entry.Key.end());
    if (!page.IsLeaf) {
      AppendBigEndian(entries, entry.Child, kChildBytes);
    }
    Byte& mask = bytes.at(kMaskAt + entries.size() / 8);
    mask = static_cast<Byte>(mask | (1U << (entries.size() % 8)));
  }
  bytes[0] = static_cast<Byte>(page.IsLeaf ? PageKind::IndexLeaf : PageKind::IndexNode);
  bytes[1] = 1;
  Put(bytes, 2, static_cast<std::uint16_t>(kIndexRoom - entries.size()));
  Put(bytes, 4, page.Owner);
  Put(bytes, 12, page.Previous);
  Put(bytes, 16, page.Next);
  Put(bytes, 20, page.Tail);
  Put(bytes, 24, static_cast<std::uint16_t>(prefix));
  bytes.insert(bytes.end(), entries.begin(), entries.end());
  bytes.resize(kEntriesAt + kIndexRoom);
  return bytes;
}

Bytes EntryKey(Bytes key, RowPointer row) {
  AppendBigEndian(key, row.Page, 3);
  key.push_back(static_cast<Byte>(row.Row));
  return key;
}

}  // namespace veyra::access
