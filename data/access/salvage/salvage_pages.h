#pragma once

#include <cstdint>
#include <filesystem>

#include "data/access/pages/page_source.h"
#include "data/posix_file.h"

namespace veyra::access {

/// The pages of a damaged file. How long a page is shows in the pages themselves, so that the
/// header need not be whole. Nothing is kept: each page is read from the disk whenever it is asked
/// for, and one that the disk cannot give counts as damaged.
class SalvagePages : public PageSource {
 public:
  /// Throws PosixFileError when the file cannot be opened; FileProblem when it has a password or is
  /// of a newer version.
  explicit SalvagePages(const std::filesystem::path& path);

  const FileHeader& Header() const override { return header_; }
  PageNumber PageCount() const override { return page_count_; }
  PagePtr ReadPage(PageNumber number) override;
  using PageSource::ReadPage;

  bool HasHeader() const { return has_header_; }

  /// Whether the file ends within a page.
  bool EndsWithinPage() const { return ends_within_page_; }

  /// From now on these pages are read instead of the file's own.
  void SetOverlay(PageImages overlay);

 private:
  void ReadHeader();

  PosixFile file_;
  FileHeader header_;
  PageNumber page_count_ = 0;
  bool has_header_ = false;
  bool ends_within_page_ = false;
  PageImages overlay_;
};

/// How many of the first pages of a file begin as pages do, were they that long.
std::size_t CountLikelyPages(const PosixFile& file, std::size_t page_size);

}  // namespace veyra::access
