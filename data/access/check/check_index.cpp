#include "data/access/check/check_index.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "data/access/format/index_page.h"
#include "data/access/write/index_key.h"

namespace veyra::access {

namespace {

constexpr int kMostLevels = 12;

/// The pages of an index lead back to each other.
struct Circle {};

/// Goes through the pages of one index.
class IndexWalk {
 public:
  IndexWalk(PageSource& pages, const TableLayout& layout, std::string index, std::string table,
            Findings& findings)
      : pages_(pages),
        layout_(layout),
        index_(std::move(index)),
        table_(std::move(table)),
        name_(Phrase::Tr("index %1 of the table %2", index_, table_)),
        findings_(findings) {}

  /// Throws Circle.
  void Walk(PageNumber number, int level) {
    if (level > kMostLevels) {
      throw Circle();
    }
    findings_.Claim(number, name_);
    const IndexPage page = DecodeIndexPage(*pages_.ReadPage(number));
    if (page.Owner != layout_.Page) {
      findings_.Add(Phrase::Tr("Page %1 of %2 names another table as its own.", number, name_));
    }
    if (page.IsLeaf) {
      TakeLeaf(number, page);
      return;
    }
    for (const IndexEntry& entry : page.Entries) {
      Walk(entry.Child, level + 1);
      if (!Keys.empty() && Keys.back() != entry.Key) {
        Fault(Phrase::Tr("a page above its leaves does not name the last entry of page %1",
                         entry.Child));
      }
    }
    if (page.Tail != 0) {
      Walk(page.Tail, level + 1);
    }
  }

  /// To be called after the last leaf.
  void Finish() {
    if (next_ != 0) {
      Fault(Phrase::Tr("its last leaf names another one after it"));
    }
    if (!std::is_sorted(Keys.begin(), Keys.end())) {
      Fault(Phrase::Tr("its entries are out of order"));
    }
  }

  /// Says what of the index is wrong: "its entries are out of order".
  void Fault(const Phrase& what) {
    findings_.Add(Phrase::Tr("Index %1 of the table %2 is wrong: %3.", index_, table_, what));
  }

  /// Says why the walk has ended before its end: a sentence.
  void BreakOff(const Phrase& cause) {
    findings_.Add(Phrase::Tr("Index %1 of the table %2 is wrong: %3", index_, table_, cause));
  }

  std::vector<Bytes> Keys;

 private:
  void TakeLeaf(PageNumber number, const IndexPage& page) {
    if (page.Previous != last_leaf_ || (last_leaf_ != 0 && next_ != number)) {
      Fault(Phrase::Tr("its leaf pages are not linked to each other at page %1", number));
    }
    last_leaf_ = number;
    next_ = page.Next;
    for (const IndexEntry& entry : page.Entries) {
      Keys.push_back(entry.Key);
    }
  }

  PageSource& pages_;
  const TableLayout& layout_;
  std::string index_;
  std::string table_;
  Phrase name_;
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
      walk.Fault(Phrase::Tr("it has %1 entries for %2 rows", walk.Keys.size(), image.RowCount()));
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
    walk.Fault(Phrase::Tr("%1 rows are missing in it, and %2 entries are of no row", missing.size(),
                          extra.size()));
  }
}

}  // namespace

void CheckIndex(PageSource& pages, const TableImage& image, const IndexLayout& index,
                const std::string& table, Findings& findings) {
  IndexWalk walk(pages, image.Layout(), index.Name, table, findings);
  try {
    walk.Walk(index.Root, 0);
    walk.Finish();
    CompareWithRows(walk, image, index);
  } catch (const Circle&) {
    walk.Fault(Phrase::Tr("its pages run in a circle"));
  } catch (const DamagedFile& problem) {
    walk.BreakOff(problem.cause());
  }
}

}  // namespace veyra::access
