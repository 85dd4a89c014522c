#include "data/access/salvage/salvage_pages.h"

#include <algorithm>
#include <array>

#include "data/access/format/rc4.h"

namespace veyra::access {

namespace {

constexpr std::size_t kJet3Page = 2048;
constexpr std::size_t kJet4Page = 4096;
constexpr std::uint64_t kLookedAt = 4096;
constexpr std::uint64_t kMostPages = 1U << 24U;

std::size_t ReadQuietly(const PosixFile& file, std::span<Byte> bytes, std::uint64_t offset) {
  try {
    return file.ReadAt(bytes, offset);
  } catch (const PosixFileError&) {
    return 0;
  }
}

}  // namespace

std::size_t CountLikelyPages(const PosixFile& file, std::size_t page_size) {
  const std::uint64_t count = std::min(file.Size() / page_size, kLookedAt);
  std::size_t likely = 0;
  for (std::uint64_t number = 1; number < count; ++number) {
    std::array<Byte, 2> start{};
    const bool is_read = ReadQuietly(file, start, number * page_size) == start.size();
    likely += is_read && start[0] >= 1 && start[0] <= 5 && start[1] == 1 ? 1 : 0;
  }
  return likely;
}

SalvagePages::SalvagePages(const std::filesystem::path& path) : file_(path, PosixFile::Use::Read) {
  ReadHeader();
  const std::uint64_t size = file_.Size();
  page_count_ = static_cast<PageNumber>(std::min(size / PageSize(), kMostPages));
  ends_within_page_ = size % PageSize() != 0;
}

/// In a file of short pages, those of even numbers alone look like half as many long ones.
void SalvagePages::ReadHeader() {
  Bytes start(kHeaderBytes);
  start.resize(ReadQuietly(file_, start, 0));
  const std::size_t as_short = CountLikelyPages(file_, kJet3Page);
  const std::size_t as_long = CountLikelyPages(file_, kJet4Page);
  const bool has_plain_pages =
      as_long * 4 * kJet4Page >= std::min<std::uint64_t>(file_.Size(), kLookedAt * kJet4Page);
  const Format found = as_short * 2 > as_long * 3 ? Format::Jet3 : Format::Jet4;
  const auto header =
      ReadDamagedHeader(start, has_plain_pages ? std::optional(found) : std::nullopt);
  has_header_ = header.has_value();
  header_ = header.value_or(FileHeader{.Version = found});
  if (has_plain_pages) {
    header_.DatabaseKey = 0;
  }
}

PagePtr SalvagePages::ReadPage(PageNumber number) {
  const auto covered = overlay_.find(number);
  if (covered != overlay_.end()) {
    return std::make_shared<const Bytes>(covered->second);
  }
  auto page = std::make_shared<Bytes>(PageSize());
  if (number >= page_count_ ||
      ReadQuietly(file_, *page, std::uint64_t{number} * PageSize()) < page->size()) {
    throw DamagedFile();
  }
  if (number != 0 && header_.IsEncoded()) {
    std::array<Byte, 4> key{};
    Put<std::uint32_t>(key, 0, header_.DatabaseKey ^ number);
    ApplyRc4(key, *page);
  }
  return page;
}

void SalvagePages::SetOverlay(PageImages overlay) {
  overlay_ = std::move(overlay);
  if (!overlay_.empty()) {
    page_count_ = std::max(page_count_, overlay_.rbegin()->first + 1);
  }
}

}  // namespace veyra::access
