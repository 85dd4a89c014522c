#include "tests/data/access/index_check.h"

#include <algorithm>

#include "data/access/pages/page_file.h"
#include "data/access/read/snapshot.h"
#include "data/access/read/table_image.h"
#include "data/access/write/index_key.h"
#include "data/access/write/index_tree.h"

namespace veyra {

namespace {

/// The keys of an index by way of its nodes, and whether every node's entry is its page's last.
void Walk(mdb::PageSource& pages, mdb::PageNumber number, int depth, std::vector<mdb::Bytes>& keys,
          std::string& faults) {
  const mdb::IndexPage page = mdb::ReadIndexPage(pages, number);
  for (const mdb::IndexEntry& entry : page.Entries) {
    if (page.IsLeaf) {
      keys.push_back(entry.Key);
      continue;
    }
    Walk(pages, entry.Child, depth + 1, keys, faults);
    if (keys.empty() || keys.back() != entry.Key) {
      faults += "a node's entry is not the last of its page; ";
    }
  }
  if (page.Tail != 0 && depth < 10) {
    Walk(pages, page.Tail, depth + 1, keys, faults);
  }
  if (page.IsLeaf && page.Entries.empty() && depth > 0) {
    faults += "an empty leaf; ";
  }
}

}  // namespace

std::string IndexFaults(const std::string& file, const std::string& table) {
  mdb::PageFile pages(file, false);
  mdb::Snapshot snapshot(pages);
  const auto image = snapshot.Table(table);
  std::string faults;
  for (const mdb::IndexLayout& index : image->Layout().Indexes) {
    if (!HasKnownKeys(index, image->Layout())) {
      continue;
    }
    std::vector<mdb::Bytes> expected;
    for (std::size_t i = 0; i < image->RowCount(); ++i) {
      const mdb::RawRow row = mdb::RawColumns(image->View(i), image->Layout());
      if (!(index.SkipsNulls() && mdb::IsNullKey(index, image->Layout(), row))) {
        expected.push_back(
            mdb::EntryKey(mdb::IndexKey(index, image->Layout(), row), mdb::HomeOf(image->Key(i))));
      }
    }
    std::sort(expected.begin(), expected.end());
    mdb::PageChanges changes(pages);
    std::vector<mdb::Bytes> walked;
    Walk(changes, index.Root, 0, walked, faults);
    if (walked != expected) {
      faults += index.Name + " has other entries than the rows; ";
    }
    if (mdb::IndexTree(changes, image->Layout().Page, index).Keys() != expected) {
      faults += index.Name + " has other entries on its leaves than the rows; ";
    }
  }
  return faults;
}

}  // namespace veyra
