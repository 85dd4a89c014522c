#include "data/sqlite/rollback_journal.h"

#include <cstddef>
#include <fstream>
#include <string_view>

namespace veyra::sqlite {

namespace {

constexpr std::string_view kMagic("\xD9\xD5\x05\xF9\x20\xA1\x63\xD7", 8);
constexpr std::size_t kHeadBytes = 28;
constexpr std::size_t kCountAt = 8;
constexpr std::size_t kSectorAt = 20;
constexpr std::size_t kPageSizeAt = 24;
constexpr std::size_t kCounterAt = 24;  ///< In the first page of a database.
constexpr std::uint32_t kCountIsInTheLength = 0xFFFFFFFF;
constexpr std::uint32_t kLargestPage = 65536;

std::uint32_t Number(std::string_view bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = at; i < at + 4; ++i) {
    number = number << 8U | static_cast<unsigned char>(bytes[i]);
  }
  return number;
}

std::string Read(std::istream& stream, std::uint64_t at, std::size_t count) {
  std::string bytes(count, '\0');
  stream.seekg(static_cast<std::streamoff>(at));
  stream.read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

}  // namespace

std::optional<RollbackJournal> ReadRollbackJournal(const std::string& journal) {
  std::ifstream stream(journal, std::ios::binary);
  const std::string head = Read(stream, 0, kHeadBytes);
  if (head.size() < kHeadBytes || !head.starts_with(kMagic)) {
    return std::nullopt;
  }
  const std::uint32_t count = Number(head, kCountAt);
  const std::uint32_t page_size = Number(head, kPageSizeAt);
  if (count == 0 || page_size == 0 || page_size > kLargestPage) {
    return std::nullopt;
  }
  RollbackJournal contents;
  std::uint64_t at = Number(head, kSectorAt);
  for (std::uint32_t i = 0; i < count || count == kCountIsInTheLength; ++i) {
    const std::string record = Read(stream, at, 4 + kCounterAt + 4);
    if (record.size() < 4 + kCounterAt + 4) {
      break;
    }
    if (Number(record, 0) == 1) {
      contents.ChangeCounter = Number(record, 4 + kCounterAt);
      break;
    }
    at += 4 + std::uint64_t{page_size} + 4;
  }
  return contents;
}

std::uint32_t ChangeCounter(Database& database) {
  return Number(database.FirstBytes(kCounterAt + 4), kCounterAt);
}

}  // namespace veyra::sqlite
