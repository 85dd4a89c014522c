#include "data/sqlite/salvage/salvage_pages.h"

#include <sys/stat.h>

#include <algorithm>
#include <bit>
#include <string_view>

#include "data/sqlite/wal_file.h"

namespace veyra::sqlite {

namespace {

constexpr std::string_view kStart("SQLite format 3\0", 16);
constexpr std::size_t kHeaderBytes = 100;
constexpr std::size_t kSmallestPage = 512;
constexpr std::size_t kLargestPage = 65536;
constexpr std::uint64_t kLookedAt = std::uint64_t{8} << 20U;

std::size_t ReadQuietly(const PosixFile& file, std::span<unsigned char> bytes, std::uint64_t at) {
  try {
    return file.ReadAt(bytes, at);
  } catch (const PosixFileError&) {
    return 0;
  }
}

/// Whether the first file was touched after the second.
bool IsYounger(const std::string& file, const std::string& other) {
  struct stat one {};
  struct stat two {};
  if (stat(file.c_str(), &one) != 0 || stat(other.c_str(), &two) != 0) {
    return false;
  }
  return one.st_ctim.tv_sec != two.st_ctim.tv_sec ? one.st_ctim.tv_sec > two.st_ctim.tv_sec
                                                  : one.st_ctim.tv_nsec > two.st_ctim.tv_nsec;
}

bool IsPageSize(std::size_t size) {
  return size >= kSmallestPage && size <= kLargestPage && std::has_single_bit(size);
}

}  // namespace

std::size_t CountTreePages(const PosixFile& file, std::size_t page_size) {
  const std::uint64_t end = std::min<std::uint64_t>(file.Size(), kLookedAt);
  std::size_t count = 0;
  PageBytes page(page_size);
  for (std::uint64_t at = 0; at + page_size <= end; at += page_size) {
    count +=
        ReadQuietly(file, page, at) == page_size && LooksLikeTree(page, at == 0 ? kHeaderBytes : 0)
            ? 1
            : 0;
  }
  return count;
}

SalvagePages::SalvagePages(const std::string& file) : file_(file, PosixFile::Use::Read) {
  ReadLog(file);
  ReadHeader();
  const std::uint64_t size = file_.Size();
  page_count_ = static_cast<std::uint32_t>(size / page_size_);
  ends_within_page_ = size % page_size_ != 0;
  if (!in_log_.empty()) {
    page_count_ = std::max(page_count_, in_log_.rbegin()->first);
  }
}

void SalvagePages::ReadLog(const std::string& file) {
  const std::string name = file + "-wal";
  const WalContents log = ReadWal(name);
  if (log.Latest.empty()) {
    return;
  }
  has_other_log_ = IsYounger(file, name);
  if (!has_other_log_) {
    log_.emplace(name, PosixFile::Use::Read);
    in_log_ = log.Latest;
    page_size_ = log.PageSize;
  }
}

/// Where the header does not tell the size of a page, it is the one of which most pages are there.
void SalvagePages::ReadHeader() {
  PageBytes head(kHeaderBytes);
  const auto first = in_log_.find(1);
  const bool is_read = first == in_log_.end()
                           ? ReadQuietly(file_, head, 0) == head.size()
                           : ReadQuietly(*log_, head, first->second) == head.size();
  const std::size_t told = BigEndian16(head, 16) == 1 ? kLargestPage : BigEndian16(head, 16);
  has_header_ = is_read && IsPageSize(told) && head[20] <= 32 &&
                std::equal(kStart.begin(), kStart.end(), head.begin());
  std::size_t most = 0;
  for (std::size_t size = kSmallestPage; !log_ && size <= kLargestPage; size *= 2) {
    const std::size_t likely = CountTreePages(file_, size) + (has_header_ && size == told ? 1 : 0);
    if (likely > most) {
      most = likely;
      page_size_ = size;
    }
  }
  if (!has_header_) {
    return;
  }
  reserved_ = head[20];
  promised_count_ = BigEndian32(head, 28);
  first_free_ = BigEndian32(head, 32);
  const std::uint32_t encoding = BigEndian32(head, 56);
  encoding_ =
      encoding == 2 || encoding == 3 ? static_cast<TextEncoding>(encoding) : TextEncoding::Utf8;
}

PageBytes SalvagePages::Read(std::uint32_t number) const {
  PageBytes page(page_size_);
  const auto logged = in_log_.find(number);
  const bool is_read =
      logged != in_log_.end()
          ? ReadQuietly(*log_, page, logged->second) == page_size_
          : number >= 1 && number <= page_count_ &&
                ReadQuietly(file_, page, (std::uint64_t{number} - 1) * page_size_) == page_size_;
  if (!is_read) {
    throw NotWhole();
  }
  page.resize(UsableSize());
  return page;
}

/// A part of the list: the next part, how many pages it names, and their numbers.
bool SalvagePages::AddFree(std::uint32_t trunk, std::set<std::uint32_t>& free,
                           std::uint32_t& next) const {
  const PageBytes page = Read(trunk);
  next = BigEndian32(page, 0);
  const std::uint32_t count = BigEndian32(page, 4);
  if (count > page.size() / 4 - 2 || next > page_count_) {
    return false;
  }
  std::set<std::uint32_t> named{trunk};
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint32_t number = BigEndian32(page, 8 + std::size_t{i} * 4);
    if (number < 2 || number > page_count_ || !named.insert(number).second) {
      return false;
    }
  }
  free.insert(named.begin(), named.end());
  return true;
}

std::set<std::uint32_t> SalvagePages::FreePages() const {
  std::set<std::uint32_t> free;
  std::uint32_t next = first_free_;
  try {
    while (has_header_ && next != 0 && !free.contains(next) && AddFree(next, free, next)) {
    }
  } catch (const NotWhole&) {
    next = 1;
  }
  if (has_header_ && next == 0) {
    return free;
  }
  for (std::uint32_t number = 2; number <= page_count_; ++number) {
    try {
      const PageBytes page = Read(number);
      if (BigEndian32(page, 4) != 0) {
        AddFree(number, free, next);
      }
    } catch (const NotWhole&) {
      continue;
    }
  }
  return free;
}

}  // namespace veyra::sqlite
