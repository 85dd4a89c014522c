#include "data/sqlite/salvage/tree_walk.h"

#include <algorithm>

#include "data/zero_sectors.h"

namespace veyra::sqlite {

namespace {

/// Gathers a record that may go on over other pages.
class RecordReader {
 public:
  RecordReader(const SalvagePages& pages, LeafYield& yield) : pages_(pages), yield_(yield) {}

  LeafRow Read(ByteSpan page, std::uint32_t number, std::size_t at) {
    const std::int64_t length = TakeVarint(page, at);
    LeafRow row{.Page = number, .Number = TakeVarint(page, at), .Record = {}};
    const auto most = static_cast<std::int64_t>(std::uint64_t{pages_.PageCount()} * page.size());
    if (length <= 0 || length > most) {
      throw NotWhole();
    }
    const std::size_t end = at + LocalBytes(static_cast<std::size_t>(length), page.size());
    if (ReachIntoZeros(page, at, end)) {
      throw NotWhole();
    }
    row.Record = ReadRecord(Gather(page, at, static_cast<std::size_t>(length)), pages_.Encoding());
    return row;
  }

 private:
  /// How many bytes of a record lie in the leaf itself.
  static std::size_t LocalBytes(std::size_t length, std::size_t usable) {
    const std::size_t most = usable - 35;
    if (length <= most) {
      return length;
    }
    const std::size_t least = (usable - 12) * 32 / 255 - 23;
    const std::size_t wanted = least + (length - least) % (usable - 4);
    return wanted <= most ? wanted : least;
  }

  static void Append(PageBytes& bytes, ByteSpan from, std::size_t at, std::size_t length) {
    if (at > from.size() || length > from.size() - at) {
      throw NotWhole();
    }
    const ByteSpan part = from.subspan(at, length);
    bytes.insert(bytes.end(), part.begin(), part.end());
  }

  PageBytes Gather(ByteSpan page, std::size_t at, std::size_t length) {
    PageBytes record;
    const std::size_t local = LocalBytes(length, page.size());
    Append(record, page, at, local);
    std::uint32_t next = local < length ? BigEndian32(page, at + local) : 0;
    std::set<std::uint32_t> chain;
    while (record.size() < length) {
      if (!chain.insert(next).second) {
        throw NotWhole();
      }
      const PageBytes more = pages_.Read(next);
      Append(record, more, 4, std::min(length - record.size(), more.size() - 4));
      next = BigEndian32(more, 0);
    }
    yield_.Overflow.insert(chain.begin(), chain.end());
    return record;
  }

  const SalvagePages& pages_;
  LeafYield& yield_;
};

/// Keeps the most rows whose numbers rise; of what does not follow, nobody knows which is right.
void KeepRising(LeafYield& yield) {
  const std::vector<LeafRow>& rows = yield.Rows;
  std::vector<std::size_t> length(rows.size(), 1);
  std::vector<std::size_t> before(rows.size(), rows.size());
  std::size_t last = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (rows[j].Number < rows[i].Number && length[j] + 1 > length[i]) {
        length[i] = length[j] + 1;
        before[i] = j;
      }
    }
    last = length[i] > length[last] ? i : last;
  }
  if (rows.empty() || length[last] == rows.size()) {
    return;
  }
  std::vector<LeafRow> kept;
  for (std::size_t i = last; i < rows.size(); i = before[i]) {
    kept.push_back(rows[i]);
  }
  std::reverse(kept.begin(), kept.end());
  yield.LostRows += static_cast<int>(rows.size() - kept.size());
  yield.Rows = std::move(kept);
}

}  // namespace

LeafYield ReadLeaf(const SalvagePages& pages, std::uint32_t number) {
  const PageBytes page = pages.Read(number);
  const TreePage leaf(page, HeadOf(number));
  if (leaf.Kind() != TreeKind::TableLeaf) {
    throw NotWhole();
  }
  LeafYield yield;
  RecordReader reader(pages, yield);
  for (std::size_t i = 0; i < leaf.CellCount(); ++i) {
    try {
      yield.Rows.push_back(reader.Read(page, number, leaf.Cell(i)));
    } catch (const NotWhole&) {
      ++yield.LostRows;
    }
  }
  KeepRising(yield);
  return yield;
}

namespace {

class Walker {
 public:
  Walker(const SalvagePages& pages, bool is_table, const std::set<std::uint32_t>& taken)
      : pages_(pages), is_table_(is_table), taken_(taken) {}

  TreeYield Walk(std::uint32_t root) {
    waiting_.push_back({.Page = root});
    while (!waiting_.empty()) {
      const TreePart part = waiting_.back();
      waiting_.pop_back();
      try {
        Visit(part);
      } catch (const NotWhole&) {
        yield_.Lost.push_back(part);
      }
    }
    return std::move(yield_);
  }

 private:
  void Visit(const TreePart& part) {
    if (taken_.contains(part.Page) || yield_.Reached.contains(part.Page)) {
      throw NotWhole();
    }
    const PageBytes page = pages_.Read(part.Page);
    const TreePage tree(page, HeadOf(part.Page));
    const bool is_table = tree.Kind() == TreeKind::InnerTable || tree.Kind() == TreeKind::TableLeaf;
    if (is_table != is_table_) {
      throw NotWhole();
    }
    if (tree.IsInner()) {
      AddChildren(part, page, tree);
    } else {
      yield_.Leaves.push_back(part);
    }
    yield_.Reached.insert(part.Page);
  }

  /// A child holds the numbers after those of the child before it. One wrong child makes the page a
  /// damaged one: nobody knows what else on it is.
  void AddChildren(const TreePart& part, ByteSpan page, const TreePage& tree) {
    const std::vector<std::uint32_t> children = tree.Children();
    std::vector<TreePart> parts;
    std::optional<std::int64_t> after = part.After;
    for (std::size_t i = 0; i < children.size(); ++i) {
      TreePart child{.Page = children[i], .After = after, .UpTo = part.UpTo};
      if (is_table_ && i < tree.CellCount()) {
        std::size_t at = tree.Cell(i) + 4;
        child.UpTo = TakeVarint(page, at);
        if (after && *child.UpTo <= *after) {
          throw NotWhole();
        }
        after = child.UpTo;
      }
      if (child.Page == 0) {
        throw NotWhole();
      }
      parts.push_back(child);
    }
    waiting_.insert(waiting_.end(), parts.rbegin(), parts.rend());
  }

  const SalvagePages& pages_;
  bool is_table_;
  const std::set<std::uint32_t>& taken_;
  std::vector<TreePart> waiting_;
  TreeYield yield_;
};

}  // namespace

TreeYield WalkTree(const SalvagePages& pages, std::uint32_t root, bool is_table,
                   const std::set<std::uint32_t>& taken) {
  return Walker(pages, is_table, taken).Walk(root);
}

}  // namespace veyra::sqlite
