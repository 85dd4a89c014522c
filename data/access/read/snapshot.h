#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/access/pages/page_file.h"
#include "data/access/read/catalogue.h"
#include "data/access/read/table_image.h"

namespace veyra::access {

/// How often a table is read again that another program is changing, and how long the first wait
/// is; each further one is twice as long.
struct RetryPolicy {
  int Attempts = 5;
  std::chrono::milliseconds FirstWait{10};
};

/// Reads a file that other programs may be writing to. What was read is kept and given again as
/// long as the file has not changed. Throws FileProblem.
class Snapshot {
 public:
  explicit Snapshot(PageFile& file, RetryPolicy policy = {}) : file_(file), policy_(policy) {}

  /// While one lives, what was read counts as it stands: nobody else can write to the file.
  class Held {
   public:
    explicit Held(Snapshot& snapshot) : snapshot_(snapshot) { snapshot_.is_held_ = true; }
    ~Held() { snapshot_.is_held_ = false; }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

   private:
    Snapshot& snapshot_;
  };

  /// The tables of the file.
  const std::vector<CatalogueEntry>& Tables();

  /// All rows of a table as they are now. Throws FileProblem when there is no such table, or when
  /// the file kept changing while it was read.
  std::shared_ptr<TableImage> Table(std::string_view name);

  /// Stands for all that can be read of a table now: another one is given once the file has
  /// changed, or may have. Throws as Table does.
  std::shared_ptr<const void> MarkOf(std::string_view name);

  /// The page of a table's definition. Throws FileProblem when there is no such table.
  PageNumber DefinitionOf(std::string_view name);

  /// Forgets what was read, and the pages that the file keeps.
  void Forget();

  /// The rows that were read of each table, by the page of its definition.
  using Images = std::map<PageNumber, std::shared_ptr<TableImage>>;

  /// Gives out what was read and forgets it. To be called before the file is changed through its
  /// PageFile, which keeps its pages right.
  Images TakeImages();

  /// Takes back what was read before these pages, and no others, were changed, and puts it right.
  /// What cannot be is read anew when it is asked for. REQUIRES: the file was locked for writing
  /// between TakeImages and this call, and still is.
  void MendImages(Images&& images, const PageImages& changed);

 private:
  void ForgetTables();
  void ForgetIfChanged();
  bool IsMended(TableImage& image, const PageImages& changed);
  template <typename Load>
  auto ReadSteadily(const Load& load);

  PageFile& file_;
  RetryPolicy policy_;
  bool is_held_ = false;
  std::vector<CatalogueEntry> catalogue_;
  Images images_;
  std::shared_ptr<const void> mark_;  ///< Of what was read; null when none was asked for.
};

}  // namespace veyra::access
