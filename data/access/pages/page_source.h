#pragma once

#include <map>

#include "data/access/format/file_header.h"
#include "data/access/format/page.h"

namespace veyra::access {

/// Whole pages by their number.
using PageImages = std::map<PageNumber, Bytes>;

/// Where pages are read from: a file, or a file with changes that are not written yet.
class PageSource {
 public:
  virtual ~PageSource() = default;

  virtual const FileHeader& Header() const = 0;

  /// How many whole pages there are.
  virtual PageNumber PageCount() const = 0;

  /// A page, decoded. Throws DamagedFile when the number is not below PageCount.
  virtual PagePtr ReadPage(PageNumber number) = 0;

  std::size_t PageSize() const { return Header().PageSize(); }

  /// A page of that kind. Throws DamagedFile when it is of another.
  PagePtr ReadPage(PageNumber number, PageKind kind) {
    PagePtr page = ReadPage(number);
    if (page->front() != static_cast<Byte>(kind)) {
      throw DamagedFile();
    }
    return page;
  }
};

}  // namespace veyra::access
