#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "data/posix_file.h"
#include "data/sqlite/salvage/tree_page.h"

namespace veyra::sqlite {

/// The pages of a damaged file, counted from 1, as its log has them where one lies beside it. How
/// long a page is shows in the pages themselves where the file's header is damaged. Nothing is
/// kept; a page that the disk cannot give counts as damaged.
class SalvagePages {
 public:
  /// Throws PosixFileError when the file cannot be opened.
  explicit SalvagePages(const std::string& file);

  std::uint32_t PageCount() const { return page_count_; }

  /// The bytes of a page that are used, without those that the file reserves at its end.
  std::size_t UsableSize() const { return page_size_ - reserved_; }
  TextEncoding Encoding() const { return encoding_; }

  /// Throws NotWhole when there is no such page, or it cannot be read.
  PageBytes Read(std::uint32_t number) const;

  bool HasHeader() const { return has_header_; }
  bool EndsWithinPage() const { return ends_within_page_; }

  /// How many pages the header says there are; 0 when it does not say.
  std::uint32_t PromisedCount() const { return promised_count_; }

  /// Whether a log lies beside the file that was not read, since the file was put there after it.
  bool HasOtherLog() const { return has_other_log_; }

  /// The pages that hold nothing: those that the list of free pages names. Where the header, which
  /// begins that list, is damaged: those that any page names which looks like a part of it.
  std::set<std::uint32_t> FreePages() const;

 private:
  void ReadLog(const std::string& file);
  void ReadHeader();
  bool AddFree(std::uint32_t trunk, std::set<std::uint32_t>& free, std::uint32_t& next) const;

  PosixFile file_;
  std::optional<PosixFile> log_;
  std::map<std::uint32_t, std::uint64_t> in_log_;
  std::size_t page_size_ = 4096;
  std::size_t reserved_ = 0;
  std::uint32_t page_count_ = 0;
  std::uint32_t promised_count_ = 0;
  std::uint32_t first_free_ = 0;
  TextEncoding encoding_ = TextEncoding::Utf8;
  bool has_header_ = false;
  bool ends_within_page_ = false;
  bool has_other_log_ = false;
};

/// How many pages of a file look like pages of trees, were they that long.
std::size_t CountTreePages(const PosixFile& file, std::size_t page_size);

}  // namespace veyra::sqlite
