#include "data/access/write/usage_map_writer.h"

#include <algorithm>
#include <span>

#include "data/access/format/data_page.h"

namespace veyra::access {

namespace {

constexpr std::size_t kInlineBits = 5;
constexpr std::size_t kMapPageBits = 4;
constexpr std::size_t kFreePagesTried = 1024;

enum MapKind : Byte { kInPlace = 0, kOnMapPages = 1 };

std::size_t PagesEach(const PageSource& pages) {
  return (pages.PageSize() - kMapPageBits) * 8;
}

ByteView MapRow(PageSource& pages, RowPointer map) {
  const PagePtr page = pages.ReadPage(map.Page, PageKind::Data);
  return DataPage(*page, pages.Header().Version).RowBytes(map.Row);
}

std::span<Byte> EditMapRow(PageChanges& pages, RowPointer map) {
  Bytes& page = pages.Edit(map.Page);
  const ByteView row = DataPage(page, pages.Header().Version).RowBytes(map.Row);
  return {page.data() + (row.data() - page.data()), row.size()};
}

void SetBit(std::span<Byte> bits, std::size_t bit, bool value) {
  const auto mask = static_cast<Byte>(1U << (bit % 8));
  Byte& byte = bits[bit / 8];
  byte = static_cast<Byte>(value ? byte | mask : byte & ~mask);
}

/// The window of a map that holds its bits in place.
struct Window {
  explicit Window(ByteView row) : First(row.U32(1)), Count((row.size() - kInlineBits) * 8) {}

  bool Reaches(PageNumber page) const { return page >= First && page - First < Count; }

  PageNumber First;
  std::size_t Count;
};

bool IsInPlace(ByteView row) {
  return row.U8(0) == kInPlace;
}

bool IsEmpty(ByteView row) {
  const ByteView bits = row.From(kInlineBits);
  return std::all_of(bits.data(), bits.data() + bits.size(), [](Byte byte) { return byte == 0; });
}

/// The number of the map page for `page`, 0 for none yet. Throws FileProblem past the last one.
PageNumber MapPageFor(const PageSource& pages, ByteView row, PageNumber page) {
  const std::size_t at = 1 + page / PagesEach(pages) * 4;
  if (at + 4 > row.size()) {
    throw FileProblem(Phrase::Tr("The database has grown to the largest size its format allows."),
                      Phrase::Tr("Convert it with veyra-data convert."));
  }
  return row.U32(at);
}

void SetOnMapPage(PageChanges& pages, RowPointer map, PageNumber page) {
  PageNumber map_page = MapPageFor(pages, MapRow(pages, map), page);
  if (map_page == 0) {
    // A page that is free by a map which is being made anew may be about to be entered in it.
    map_page = map == kFreePages ? pages.Grow() : TakePage(pages);
    Bytes& fresh = pages.Edit(map_page);
    fresh[0] = static_cast<Byte>(PageKind::UsageMap);
    fresh[1] = 1;
    Put<std::uint32_t>(EditMapRow(pages, map), 1 + page / PagesEach(pages) * 4, map_page);
  }
  SetBit(std::span(pages.Edit(map_page)).subspan(kMapPageBits), page % PagesEach(pages), true);
}

void MoveToMapPages(PageChanges& pages, RowPointer map) {
  const std::vector<PageNumber> kept = ReadUsageMap(pages, map);
  const std::span<Byte> row = EditMapRow(pages, map);
  std::fill(row.begin(), row.end(), Byte{0});
  row[0] = kOnMapPages;
  for (const PageNumber page : kept) {
    SetOnMapPage(pages, map, page);
  }
}

/// Sets a page's bit where the map reaches it as it is; returns whether it does.
bool SetInReach(PageChanges& pages, RowPointer map, PageNumber page, bool value) {
  const PagePtr bytes = pages.ReadPage(map.Page, PageKind::Data);
  const ByteView row = DataPage(*bytes, pages.Header().Version).RowBytes(map.Row);
  if (IsInPlace(row)) {
    const Window window(row);
    if (window.Reaches(page)) {
      SetBit(EditMapRow(pages, map).subspan(kInlineBits), page - window.First, value);
    }
    return window.Reaches(page);
  }
  const std::size_t at = 1 + page / PagesEach(pages) * 4;
  const PageNumber map_page = at + 4 <= row.size() ? row.U32(at) : 0;
  if (map_page == 0) {
    return false;
  }
  pages.ReadPage(map_page, PageKind::UsageMap);
  SetBit(std::span(pages.Edit(map_page)).subspan(kMapPageBits), page % PagesEach(pages), value);
  return true;
}

/// Programs may take a bit past the file's end as a page to use: those of the file's own pages are
/// cleared one by one as the file grows. A map that no longer reaches the end moves to map pages.
PageNumber GrowFile(PageChanges& pages) {
  const PageNumber page = pages.Grow();
  if (!SetInReach(pages, kFreePages, page, false) && IsInPlace(MapRow(pages, kFreePages))) {
    MoveToMapPages(pages, kFreePages);
  }
  return page;
}

}  // namespace

void AddToMap(PageChanges& pages, RowPointer map, PageNumber page) {
  if (SetInReach(pages, map, page, true)) {
    return;
  }
  const PagePtr kept = pages.ReadPage(map.Page, PageKind::Data);
  const ByteView row = MapRow(pages, map);
  if (IsInPlace(row) && IsEmpty(row) && map != kFreePages) {
    const std::span<Byte> edited = EditMapRow(pages, map);
    Put<std::uint32_t>(edited, 1, page);
    SetBit(edited.subspan(kInlineBits), 0, true);
    return;
  }
  if (IsInPlace(row)) {
    MoveToMapPages(pages, map);
  }
  SetOnMapPage(pages, map, page);
}

void RemoveFromMap(PageChanges& pages, RowPointer map, PageNumber page) {
  SetInReach(pages, map, page, false);
}

/// Pages that other programs call free keep what they held: only those of zeros are known to be.
PageNumber TakePage(PageChanges& pages, PageNumber above) {
  std::size_t tried = 0;
  for (const PageNumber page : ReadUsageMap(pages, kFreePages)) {
    if (page > above && ++tried <= kFreePagesTried && pages.ReadPage(page)->front() == 0 &&
        page != 0) {
      RemoveFromMap(pages, kFreePages, page);
      pages.Edit(page).assign(pages.PageSize(), 0);
      return page;
    }
  }
  return GrowFile(pages);
}

void FreePage(PageChanges& pages, PageNumber page) {
  pages.Edit(page).assign(pages.PageSize(), 0);
  AddToMap(pages, kFreePages, page);
}

}  // namespace veyra::access
