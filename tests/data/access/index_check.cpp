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
void Walk(access::PageSource& pages, access::PageNumber number, int depth,
          std::vector<access::Bytes>& keys, std::string& faults) {
  const access::IndexPage page = access::DecodeIndexPage(*pages.ReadPage(number));
  for (const access::IndexEntry& entry : page.Entries) {
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
  access::PageFile pages(file, false);
  access::Snapshot snapshot(pages);
  const auto image = snapshot.Table(table);
  std::string faults;
  for (const access::IndexLayout& index : image->Layout().Indexes) {
    if (!HasKnownKeys(index, image->Layout())) {
      continue;
    }
    std::vector<access::Bytes> expected;
    for (std::size_t i = 0; i < image->RowCount(); ++i) {
      const access::RawRow row = access::RawColumns(image->View(i), image->Layout());
      if (!(index.SkipsNulls() && access::IsNullKey(index, image->Layout(), row))) {
        expected.push_back(access::EntryKey(access::IndexKey(index, image->Layout(), row),
                                            access::HomeOf(image->Key(i))));
      }
    }
    std::sort(expected.begin(), expected.end());
    access::PageChanges changes(pages);
    std::vector<access::Bytes> walked;
    Walk(changes, index.Root, 0, walked, faults);
    if (walked != expected) {
      faults += index.Name + " has other entries than the rows; ";
    }
    if (access::IndexTree(changes, image->Layout().Page, index).Keys() != expected) {
      faults += index.Name + " has other entries on its leaves than the rows; ";
    }
  }
  return faults;
}

}  // namespace veyra
