#pragma once

#include <map>
#include <memory>

#include "data/access/pages/page_source.h"

namespace veyra::access {

/// A file's pages with changes on top that are not written yet. Nothing reaches the file from
/// here: whoever is content with the changes writes Images().
class PageChanges : public PageSource {
 public:
  explicit PageChanges(PageSource& base) : base_(base), count_(base.PageCount()) {}

  const FileHeader& Header() const override { return base_.Header(); }
  PageNumber PageCount() const override { return count_; }
  PagePtr ReadPage(PageNumber number) override;
  using PageSource::ReadPage;

  /// The page, to be changed. Pages that were read before the first Edit of their number keep what
  /// they held; those read later change along. Throws DamagedFile when there is no such page.
  Bytes& Edit(PageNumber number);

  /// Adds a page of zeros after the last one. Throws FileProblem when the file is as large as its
  /// format allows.
  PageNumber Grow();

  /// All pages that were changed or added, as they are now.
  PageImages Images() const;

 private:
  PageSource& base_;
  PageNumber count_;
  std::map<PageNumber, std::shared_ptr<Bytes>> changed_;
};

}  // namespace veyra::access
