#include "data/access/write/index_tree.h"

#include <algorithm>
#include <utility>

#include "data/access/write/usage_map_writer.h"

namespace veyra::access {

namespace {

constexpr std::size_t kMostLevels = 12;

/// A page that is built anew is left with room for some more entries.
constexpr std::size_t kFilledTo = kIndexRoom * 9 / 10;

std::size_t PlaceOf(const IndexPage& page, const Bytes& key) {
  const auto found = std::lower_bound(
      page.Entries.begin(), page.Entries.end(), key,
      [](const IndexEntry& entry, const Bytes& sought) { return entry.Key < sought; });
  return static_cast<std::size_t>(found - page.Entries.begin());
}

PageNumber& ChildAt(IndexPage& page, std::size_t place) {
  return place < page.Entries.size() ? page.Entries[place].Child : page.Tail;
}

/// The second half of a page's entries, taken out of it.
std::vector<IndexEntry> TakeHalf(IndexPage& page) {
  const auto middle = page.Entries.begin() + static_cast<std::ptrdiff_t>(page.Entries.size() / 2);
  std::vector<IndexEntry> half(middle, page.Entries.end());
  page.Entries.erase(middle, page.Entries.end());
  return half;
}

bool BeginsWith(const Bytes& entry_key, const Bytes& key) {
  return entry_key.size() == key.size() + 4 &&
         std::equal(key.begin(), key.end(), entry_key.begin());
}

/// The entries on as many pages as they need.
std::vector<IndexPage> Spread(std::vector<IndexEntry> entries, bool is_leaf) {
  std::vector<IndexPage> level(1);
  std::size_t filled = 0;
  for (IndexEntry& entry : entries) {
    const std::size_t size = entry.Key.size() + (is_leaf ? 0 : 4);
    if (filled + size > kFilledTo) {
      level.emplace_back();
      filled = 0;
    }
    level.back().IsLeaf = is_leaf;
    level.back().Entries.push_back(std::move(entry));
    filled += size;
  }
  if (level.size() > 1 && level.back().Entries.size() == 1) {
    std::vector<IndexEntry>& before = level[level.size() - 2].Entries;
    level.back().Entries.insert(level.back().Entries.begin(), before.back());
    before.pop_back();
  }
  return level;
}

/// The pages that hold an index now, but for its root.
std::vector<PageNumber> SparePages(PageSource& pages, const IndexLayout& index, PageNumber table) {
  std::vector<PageNumber> spare;
  for (const PageNumber number : ReadUsageMap(pages, index.Pages)) {
    const ByteView page(*pages.ReadPage(number));
    const auto kind = static_cast<PageKind>(page.U8(0));
    const bool is_index = kind == PageKind::IndexLeaf || kind == PageKind::IndexNode;
    if (number != index.Root && is_index && page.U32(4) == table) {
      spare.insert(spare.begin(), number);
    }
  }
  return spare;
}

}  // namespace

IndexTree::Path IndexTree::Descend(const Bytes& entry_key) {
  Path path;
  PageNumber number = index_.Root;
  while (path.size() < kMostLevels) {
    IndexPage page = DecodeIndexPage(*pages_.ReadPage(number));
    const std::size_t place = PlaceOf(page, entry_key);
    const bool is_leaf = page.IsLeaf;
    path.push_back({number, std::move(page), place});
    if (is_leaf) {
      return path;
    }
    number = ChildAt(path.back().Page, place);
    if (number == 0) {
      throw DamagedFile();
    }
  }
  throw DamagedFile();
}

std::vector<Bytes> IndexTree::Keys() {
  std::vector<Bytes> keys;
  PageNumber number = Descend({}).back().Number;
  for (PageNumber seen = 0; number != 0; ++seen) {
    const IndexPage page = DecodeIndexPage(*pages_.ReadPage(number));
    if (!page.IsLeaf || seen > pages_.PageCount()) {
      throw DamagedFile();
    }
    for (const IndexEntry& entry : page.Entries) {
      keys.push_back(entry.Key);
    }
    number = page.Next;
  }
  return keys;
}

bool IndexTree::HasKey(const Bytes& key, RowPointer row) {
  const Bytes own = EntryKey(key, row);
  const Path path = Descend(EntryKey(key, {0, 0}));
  IndexPage page = path.back().Page;
  std::size_t place = path.back().Place;
  for (PageNumber seen = 0; seen <= pages_.PageCount(); ++seen) {
    for (; place < page.Entries.size(); ++place) {
      if (!BeginsWith(page.Entries[place].Key, key)) {
        return false;
      }
      if (page.Entries[place].Key != own) {
        return true;
      }
    }
    if (page.Next == 0) {
      return false;
    }
    page = DecodeIndexPage(*pages_.ReadPage(page.Next));
    place = 0;
  }
  throw DamagedFile();
}

void IndexTree::Insert(const Bytes& key, RowPointer row) {
  const Bytes entry_key = EntryKey(key, row);
  Path path = Descend(entry_key);
  Step& leaf = path.back();
  if (leaf.Place < leaf.Page.Entries.size() && leaf.Page.Entries[leaf.Place].Key == entry_key) {
    throw DamagedFile();
  }
  leaf.Page.Entries.insert(leaf.Page.Entries.begin() + static_cast<std::ptrdiff_t>(leaf.Place),
                           IndexEntry{entry_key, 0});
  Store(path, path.size() - 1);
}

bool IndexTree::Remove(const Bytes& key, RowPointer row) {
  const Bytes entry_key = EntryKey(key, row);
  Path path = Descend(entry_key);
  Step& leaf = path.back();
  if (leaf.Place == leaf.Page.Entries.size() || leaf.Page.Entries[leaf.Place].Key != entry_key) {
    return false;
  }
  const bool was_last = leaf.Place + 1 == leaf.Page.Entries.size();
  leaf.Page.Entries.erase(leaf.Page.Entries.begin() + static_cast<std::ptrdiff_t>(leaf.Place));
  if (leaf.Page.Entries.empty() && path.size() > 1) {
    RemoveEmptyLeaf(path);
    return true;
  }
  Write(leaf.Number, leaf.Page);
  if (was_last) {
    MendSeparators(path, path.size() - 1);
  }
  return true;
}

/// Writes the page of that level, split where it has become too long.
void IndexTree::Store(Path& path, std::size_t level) {
  if (FitsOnPage(path[level].Page)) {
    Write(path[level].Number, path[level].Page);
  } else if (level == 0) {
    SplitRoot(path);
  } else {
    Split(path, level);
  }
}

/// The page keeps the first half of its entries; the second goes to a new page after it, which the
/// parent finds where it found the whole.
void IndexTree::Split(Path& path, std::size_t level) {
  Step& step = path[level];
  const PageNumber second = TakeIndexPage();
  IndexPage half = step.Page;
  half.Entries = TakeHalf(step.Page);
  half.Previous = step.Number;
  step.Page.Next = second;
  step.Page.Tail = 0;
  if (half.Next != 0) {
    IndexPage next = DecodeIndexPage(*pages_.ReadPage(half.Next));
    next.Previous = second;
    Write(half.Next, next);
  }
  Write(second, half);
  Write(step.Number, step.Page);
  Step& parent = path[level - 1];
  ChildAt(parent.Page, parent.Place) = second;
  parent.Page.Entries.insert(
      parent.Page.Entries.begin() + static_cast<std::ptrdiff_t>(parent.Place),
      IndexEntry{step.Page.Entries.back().Key, step.Number});
  Store(path, level - 1);
}

/// The root stays where it is, over two new pages that share its entries.
void IndexTree::SplitRoot(Path& path) {
  Step& root = path.front();
  const PageNumber first = TakeIndexPage();
  const PageNumber second = TakeIndexPage();
  IndexPage half = root.Page;
  half.Entries = TakeHalf(root.Page);
  half.Previous = first;
  IndexPage begin = root.Page;
  begin.Next = second;
  begin.Tail = 0;
  IndexPage top;
  top.IsLeaf = false;
  top.Owner = root.Page.Owner;
  top.Tail = second;
  top.Entries.push_back({begin.Entries.back().Key, first});
  Write(first, begin);
  Write(second, half);
  Write(root.Number, top);
}

/// The last entry of a page stands in its parent as well, and so on upwards where it is last again.
void IndexTree::MendSeparators(Path& path, std::size_t level) {
  const Bytes last =
      path[level].Page.Entries.empty() ? Bytes() : path[level].Page.Entries.back().Key;
  for (; level > 0 && !last.empty(); --level) {
    Step& parent = path[level - 1];
    if (parent.Place >= parent.Page.Entries.size()) {
      return;
    }
    parent.Page.Entries[parent.Place].Key = last;
    if (!FitsOnPage(parent.Page)) {
      return;
    }
    Write(parent.Number, parent.Page);
    if (parent.Place + 1 < parent.Page.Entries.size() || parent.Page.Tail != 0) {
      return;
    }
  }
}

/// Rare: the tree is made anew of what is left.
void IndexTree::RemoveEmptyLeaf(Path& path) {
  const Step& leaf = path.back();
  Write(leaf.Number, leaf.Page);
  Rebuild(Keys());
}

PageNumber IndexTree::TakeIndexPage() {
  const PageNumber page = TakePage(pages_);
  AddToMap(pages_, index_.Pages, page);
  return page;
}

void IndexTree::Write(PageNumber number, const IndexPage& page) {
  pages_.Edit(number) = EncodeIndexPage(page);
}

/// Writes entries as pages side by side; returns an entry for each of them, its last key with its
/// page. Pages come from `spare` as long as there are some.
std::vector<IndexEntry> IndexTree::WriteLevel(std::vector<IndexEntry> entries, bool is_leaf,
                                              std::vector<PageNumber>& spare) {
  std::vector<IndexPage> level = Spread(std::move(entries), is_leaf);
  std::vector<PageNumber> numbers;
  for (std::size_t i = 0; i < level.size(); ++i) {
    if (spare.empty()) {
      numbers.push_back(TakeIndexPage());
    } else {
      numbers.push_back(spare.back());
      spare.pop_back();
    }
  }
  std::vector<IndexEntry> parents;
  for (std::size_t i = 0; i < level.size(); ++i) {
    level[i].Owner = table_;
    level[i].Previous = i == 0 ? 0 : numbers[i - 1];
    level[i].Next = i + 1 == level.size() ? 0 : numbers[i + 1];
    const Bytes last = level[i].Entries.back().Key;
    if (!is_leaf && i + 1 == level.size()) {
      level[i].Tail = level[i].Entries.back().Child;
      level[i].Entries.pop_back();
    }
    Write(numbers[i], level[i]);
    parents.push_back({last, numbers[i]});
  }
  return parents;
}

void IndexTree::Rebuild(std::vector<Bytes> keys) {
  std::vector<PageNumber> spare = SparePages(pages_, index_, table_);
  bool is_leaf = true;
  IndexPage top;
  top.Entries.reserve(keys.size());
  for (Bytes& key : keys) {
    top.Entries.push_back({std::move(key), 0});
  }
  while (BytesOfEntries(top) > kFilledTo) {
    top.Entries = WriteLevel(std::move(top.Entries), is_leaf, spare);
    is_leaf = false;
    top.IsLeaf = false;
  }
  top.Owner = table_;
  if (!is_leaf) {
    top.Tail = top.Entries.back().Child;
    top.Entries.pop_back();
  }
  Write(index_.Root, top);
  for (const PageNumber page : spare) {
    RemoveFromMap(pages_, index_.Pages, page);
    FreePage(pages_, page);
  }
}

}  // namespace veyra::access
