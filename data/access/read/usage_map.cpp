#include "data/access/read/usage_map.h"

#include <algorithm>

#include "data/access/format/data_page.h"

namespace veyra::access {

namespace {

constexpr std::size_t kMapPageBits = 4;

void AddBits(ByteView bits, std::uint64_t first_page, PageNumber page_count,
             std::vector<PageNumber>& pages) {
  for (std::size_t i = 0; i < bits.size(); ++i) {
    const Byte byte = bits.U8(i);
    for (unsigned bit = 0; byte != 0 && bit < 8; ++bit) {
      const std::uint64_t page = first_page + i * 8 + bit;
      if (((byte >> bit) & 1U) != 0 && page < page_count) {
        pages.push_back(static_cast<PageNumber>(page));
      }
    }
  }
}

void AddMapPages(PageSource& file, ByteView numbers, std::vector<PageNumber>& pages) {
  const std::uint64_t pages_each = (file.PageSize() - kMapPageBits) * 8;
  for (std::size_t i = 0; (i + 1) * 4 <= numbers.size(); ++i) {
    const std::uint64_t first_page = i * pages_each;
    if (first_page >= file.PageCount()) {
      return;
    }
    const PageNumber map_page = numbers.U32(i * 4);
    if (map_page != 0) {
      const PagePtr page = file.ReadPage(map_page, PageKind::UsageMap);
      AddBits(ByteView(*page).From(kMapPageBits), first_page, file.PageCount(), pages);
    }
  }
}

}  // namespace

std::vector<PageNumber> MapPages(PageSource& file, RowPointer map) {
  const PagePtr page = file.ReadPage(map.Page, PageKind::Data);
  const ByteView row = DataPage(*page, file.Header().Version).RowBytes(map.Row);
  std::vector<PageNumber> pages;
  for (std::size_t at = 1; row.U8(0) == 1 && at + 4 <= row.size(); at += 4) {
    if (row.U32(at) != 0) {
      pages.push_back(row.U32(at));
    }
  }
  return pages;
}

std::vector<PageNumber> ReadUsageMap(PageSource& file, RowPointer map) {
  const PagePtr page = file.ReadPage(map.Page, PageKind::Data);
  const ByteView row = DataPage(*page, file.Header().Version).RowBytes(map.Row);
  std::vector<PageNumber> pages;
  switch (row.U8(0)) {
    case 0:
      AddBits(row.From(5), row.U32(1), file.PageCount(), pages);
      break;
    case 1:
      AddMapPages(file, row.From(1), pages);
      break;
    default:
      throw DamagedFile();
  }
  return pages;
}

}  // namespace veyra::access
