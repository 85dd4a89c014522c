#include "data/sqlite/content_digest.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

#include "data/sqlite/page_digest.h"

namespace veyra::sqlite {

namespace {

constexpr std::int64_t kMegabyte = 1'048'576;
constexpr std::size_t kPageSizeAt = 16;
constexpr std::int64_t kSmallestPage = 512;

/// In the file's head the largest size, which does not fit there, stands as 1.
std::int64_t PageSize(Database& database) {
  const std::string head = database.FirstBytes(kPageSizeAt + 2);
  const auto high = static_cast<unsigned char>(head[kPageSizeAt]);
  const auto low = static_cast<unsigned char>(head[kPageSizeAt + 1]);
  const std::int64_t size = high * 256 + low;
  return size == 1 ? 65536 : std::max(size, kSmallestPage);
}

std::span<const unsigned char> BytesOf(const std::string& page) {
  return {reinterpret_cast<const unsigned char*>(page.data()), page.size()};  // NOLINT: bytes
}

}  // namespace

std::uint64_t ContentDigest(Database& database, std::int64_t size, const WalContents& log) {
  const std::int64_t page_size = PageSize(database);
  std::uint64_t digest = 0;
  for (std::int64_t at = 0; at < size; at += page_size) {
    const bool is_in_the_middle = at >= kMegabyte && at + kMegabyte < size;
    const auto number = static_cast<std::uint32_t>(at / page_size + 1);
    if (!is_in_the_middle && !log.Pages.contains(number)) {
      AddToDigest(digest, number);
      const std::string page = database.ReadBytes(at, static_cast<std::size_t>(page_size));
      AddToDigest(digest, PageDigest(BytesOf(page)));
    }
  }
  return digest;
}

std::map<std::uint32_t, std::vector<std::uint64_t>> DigestsInFile(Database& database,
                                                                  std::int64_t size,
                                                                  const WalContents& log) {
  const std::int64_t page_size = PageSize(database);
  std::map<std::uint32_t, std::vector<std::uint64_t>> digests;
  for (const auto& [number, in_log] : log.Pages) {
    const std::int64_t at = (std::int64_t{number} - 1) * page_size;
    if (at < size) {
      const std::string page = database.ReadBytes(at, static_cast<std::size_t>(page_size));
      digests[number] = SectorDigests(BytesOf(page));
    }
  }
  return digests;
}

}  // namespace veyra::sqlite
