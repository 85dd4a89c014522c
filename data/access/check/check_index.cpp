#include "data/access/check/check_index.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "data/access/format/index_page.h"
#include "data/access/write/index_key.h"

namespace veyra::access {

namespace {

constexpr int kMostLevels = 12;

/// Goes through the pages of one index.
class IndexWalk {
 public:
  IndexWalk(PageSource& pages, const TableLayout& table, std::string name, Findings& findings)
      : pages_(pages), table_(table), name_(std::move(name)), findings_(findings) {}

  void Walk(PageNumber number, int level) {
    if (level > kMostLevels) {
      throw DamagedFile("its pages run in a circle");
    }
    findings_.Claim(number, name_);
    const IndexPage page = DecodeIndexPage(*pages_.ReadPage(number));
    if (page.Owner != table_.Page) {
      findings_.Add("Page " + std::to_string(number) + " of " + name_ +
                    " names another table as its own.");
    }
    if (page.IsLeaf) {
      TakeLeaf(number, page);
      return;
    }
    for (const IndexEntry& entry : page.Entries) {
      Walk(entry.Child, level + 1);
      if (!Keys.empty() && Keys.back() != entry.Key) {
        Fault("a page above its leaves does not name the last entry of page " +
              std::to_string(entry.Child));
      }
    }
    if (page.Tail != 0) {
      Walk(page.Tail, level + 1);
    }
  }

  /// To be called after the last leaf.
  void Finish() {
    if (next_ != 0) {
      Fault("its last leaf names another one after it");
    }
    if (!std::is_sorted(Keys.begin(), Keys.end())) {
      Fault("its entries are out of order");
    }
  }

  void Fault(const std::string& what) {
    findings_.Add("I" + name_.substr(1) + " is wrong: " + what + ".");
  }

  std::vector<Bytes> Keys;

 private:
  void TakeLeaf(PageNumber number, const IndexPage& page) {
    if (page.Previous != last_leaf_ || (last_leaf_ != 0 && next_ != number)) {
      Fault("its leaf pages are not linked to each other at page " + std::to_string(number));
    }
    last_leaf_ = number;
    next_ = page.Next;
    for (const IndexEntry& entry : page.Entries) {
      Keys.push_back(entry.Key);
    }
  }

  PageSource& pages_;
  const TableLayout& table_;
  std::string name_;
  Findings& findings_;
  PageNumber last_leaf_ = 0;
  PageNumber next_ = 0;
};

/// The entries that the rows ought to have; nothing where a key is not known.
std::optional<std::vector<Bytes>> ExpectedKeys(const TableImage& image, const IndexLayout& index) {
  std::vector<Bytes> keys;
  try {
    for (std::size_t i = 0; i < image.RowCount(); ++i) {
      const RawRow row = RawColumns(image.View(i), image.Layout());
      if (!(index.SkipsNulls() && IsNullKey(index, image.Layout(), row))) {
        keys.push_back(EntryKey(IndexKey(index, image.Layout(), row), HomeOf(image.Key(i))));
      }
    }
  } catch (const DamagedFile&) {
    throw;
  } catch (const FileProblem&) {
    return std::nullopt;
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

bool HasTextOrBytes(const IndexLayout& index, const TableLayout& table) {
  return std::any_of(index.Columns.begin(), index.Columns.end(), [&](const IndexColumn& column) {
    const ColumnLayout* layout = table.ColumnByNumber(column.Number);
    return layout != nullptr && !layout->IsFixed() && layout->Kind != ColumnKind::Text;
  });
}

void CompareWithRows(IndexWalk& walk, const TableImage& image, const IndexLayout& index) {
  const bool is_known =
      HasKnownKeys(index, image.Layout()) || !HasTextOrBytes(index, image.Layout());
  const auto expected = is_known ? ExpectedKeys(image, index) : std::nullopt;
  if (!expected) {
    if (!index.SkipsNulls() && walk.Keys.size() != image.RowCount()) {
      walk.Fault("it has " + std::to_string(walk.Keys.size()) + " entries for " +
                 std::to_string(image.RowCount()) + " rows");
    }
    return;
  }
  std::vector<Bytes> found = walk.Keys;
  std::sort(found.begin(), found.end());
  std::vector<Bytes> missing;
  std::vector<Bytes> extra;
  std::set_difference(expected->begin(), expected->end(), found.begin(), found.end(),
                      std::back_inserter(missing));
  std::set_difference(found.begin(), found.end(), expected->begin(), expected->end(),
                      std::back_inserter(extra));
  if (!missing.empty() || !extra.empty()) {
    walk.Fault(std::to_string(missing.size()) + " rows are missing in it, and " +
               std::to_string(extra.size()) + " entries are of no row");
  }
}

}  // namespace

void CheckIndex(PageSource& pages, const TableImage& image, const IndexLayout& index,
                const std::string& table, Findings& findings) {
  IndexWalk walk(pages, image.Layout(), "index " + index.Name + " of " + table, findings);
  try {
    walk.Walk(index.Root, 0);
    walk.Finish();
    CompareWithRows(walk, image, index);
  } catch (const DamagedFile& problem) {
    walk.Fault(problem.what());
  }
}

}  // namespace veyra::access
