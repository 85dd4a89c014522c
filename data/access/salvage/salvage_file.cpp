#include "data/access/salvage/salvage_file.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "data/access/pages/journal.h"
#include "data/access/read/catalogue.h"
#include "data/access/read/describe.h"
#include "data/access/salvage/known_layouts.h"
#include "data/access/salvage/page_survey.h"
#include "data/access/salvage/salvage_rows.h"
#include "data/access/write/journal_writer.h"
#include "data/names.h"

namespace veyra::access {

namespace {

constexpr std::int64_t kTypeTable = 1;
constexpr std::uint32_t kNotTheUsers = 0x80000002;  // the system's own, or hidden
constexpr std::uint32_t kPageOfId = 0xFFFFFF;
constexpr std::uint32_t kLongTexts = 0x4C41564C;  // "LVAL", where a page has no one table

/// Of rows that are read by a definition that is not the file's own, the part that must be right.
constexpr std::size_t kMostWrong = 10;

Phrase RowsNotRead(int count) {
  return count == 1 ? Phrase::Tr("1 row cannot be read.")
                    : Phrase::Tr("%1 rows cannot be read.", count);
}

class FileSalvager {
 public:
  FileSalvager(SalvagePages& pages, const SalvageModels& models)
      : pages_(pages),
        is_plausible_(models.IsPlausible),
        models_(ReadModels(models.AccessFile)),
        survey_(pages) {}

  Salvage Run() {
    NoteHeader();
    const bool is_whole = ReadNames();
    for (const auto& [page, name] : names_) {
      // Whoever makes the new file says whether it keeps a journal.
      if (name != kJournalSwitch) {
        AddTable(page, name);
      }
    }
    if (!is_whole) {
      AddNamelessTables();
    }
    NoteBrokenPages();
    return std::move(salvage_);
  }

 private:
  void Lose(const std::string& table, std::optional<std::int64_t> page, const Phrase& what) {
    salvage_.Losses.push_back({table, page, what});
  }

  void NoteHeader() {
    salvage_.Kind = FileKind::Access;
    if (!pages_.HasHeader()) {
      Lose({}, 0, Phrase::Tr("The header of the file is damaged; no row is lost by that."));
    }
    if (pages_.EndsWithinPage()) {
      Lose({}, pages_.PageCount(), Phrase::Tr("The file ends within this page."));
    }
    if (!survey_.HasFreeMap()) {
      Lose({}, 1, Phrase::Tr("The map of free pages is damaged; no row is lost by that."));
    }
  }

  /// Reads the names of the users' tables; returns whether they are all of them.
  bool ReadNames() {
    const auto layout = LayoutOf(kCatalogueName, kCataloguePage);
    if (!layout) {
      Lose(kCatalogueName, kCataloguePage, Phrase::Tr("The list of the file's tables is damaged."));
      return false;
    }
    const std::size_t losses = salvage_.Losses.size();
    const SalvagedTable catalogue = ReadTable(kCatalogueName, *layout);
    const std::size_t id = layout->FindColumn("Id");
    const std::size_t name = layout->FindColumn("Name");
    const std::size_t type = layout->FindColumn("Type");
    const std::size_t flags = layout->FindColumn("Flags");
    if (std::max({id, name, type, flags}) >= layout->Columns.size()) {
      return false;
    }
    for (const SalvagedRow& row : catalogue.Rows) {
      const auto marks =
          static_cast<std::uint32_t>(ToInteger(row.Values[flags]).value_or(0) & 0xFFFFFFFF);
      const auto page =
          static_cast<std::uint32_t>(ToInteger(row.Values[id]).value_or(0)) & kPageOfId;
      if (ToInteger(row.Values[type]) != kTypeTable) {
        continue;
      }
      all_names_.emplace_back(page, ToText(row.Values[name]));
      if ((marks & kNotTheUsers) == 0) {
        names_.push_back(all_names_.back());
      }
    }
    return losses == salvage_.Losses.size();
  }

  std::optional<TableLayout> OwnLayout(PageNumber definition) {
    try {
      TableLayout layout = ReadTableLayout(pages_, definition);
      return IsSoundLayout(layout) ? std::optional(std::move(layout)) : std::nullopt;
    } catch (const DamagedFile&) {
      return std::nullopt;
    }
  }

  /// The definition of a table, or where that is damaged the known one that all its rows follow.
  std::optional<TableLayout> LayoutOf(const std::string& name, PageNumber definition) {
    const TableLayout* const model = Find(models_, name);
    auto own = OwnLayout(definition);
    if (own && (model == nullptr || name != kCatalogueName || HasAllColumns(*own, *model))) {
      return own;
    }
    return model == nullptr ? std::nullopt : AsModel(name, *model, definition);
  }

  /// The model for the table of that page, if its rows are rows of it.
  std::optional<TableLayout> AsModel(const std::string& name, TableLayout model,
                                     PageNumber definition) {
    model.Page = definition;
    model.Owned = {};
    model.Indexes.clear();
    model.LongColumns.clear();
    model.RowCount = 0;
    RowSalvager rows(pages_, model, RowSalvager::Fit::Exact);
    std::size_t right = 0;
    std::size_t wrong = 0;
    for (const PageNumber page : survey_.PagesOf(definition)) {
      try {
        const PageYield yield = rows.Read(page);
        wrong += static_cast<std::size_t>(yield.LostRows);
        for (const SalvagedRow& row : yield.Rows) {
          ++(is_plausible_(name, NamesOf(model), row.Values) ? right : wrong);
        }
      } catch (const DamagedFile&) {
        continue;
      }
    }
    return right == 0 || wrong * kMostWrong > right ? std::nullopt : std::optional(model);
  }

  void AddTable(PageNumber definition, const std::string& name) {
    handled_.insert(definition);
    const auto layout = LayoutOf(name, definition);
    if (layout) {
      salvage_.Tables.push_back(ReadTable(name, *layout));
    }
    if (!OwnLayout(definition)) {
      Lose(name, definition,
           layout
               ? Phrase::Tr(
                     "The definition of the table is damaged; its rows were read as this program "
                     "makes them.")
               : Phrase::Tr(
                     "The definition of the table is damaged; none of its rows can be read."));
      reported_.insert(definition);
    }
    for (const PageNumber page : layout ? std::vector<PageNumber>() : survey_.PagesOf(definition)) {
      Lose(name, page, Phrase::Tr("The page holds rows, but the table's definition is damaged."));
    }
  }

  /// Tables whose names are lost: known again by their columns.
  void AddNamelessTables() {
    for (const PageNumber owner : survey_.Owners()) {
      if (owner <= kCataloguePage || handled_.contains(owner) || IsOthers(owner)) {
        continue;
      }
      const auto own = survey_.IsDefinition(owner) ? OwnLayout(owner) : std::nullopt;
      if (own && !own->IsSystem && !survey_.IsFree(owner)) {
        const std::string name = NameFor(*own, owner);
        Lose(name, owner,
             Phrase::Tr("The name of the table is lost; it was named by its columns."));
        AddTable(owner, name);
      } else if (!own) {
        AddNamelessRows(owner);
      }
    }
  }

  bool IsOthers(PageNumber owner) const {
    return std::any_of(all_names_.begin(), all_names_.end(),
                       [owner](const auto& each) { return each.first == owner; });
  }

  void AddNamelessRows(PageNumber owner) {
    for (const auto& [name, model] : models_) {
      if (name != kCatalogueName && IsFreeName(name) && AsModel(name, model, owner)) {
        AddTable(owner, name);
        return;
      }
    }
  }

  bool IsFreeName(const std::string& name) const {
    return std::none_of(names_.begin(), names_.end(),
                        [&](const auto& each) { return SameName(each.second, name); }) &&
           std::none_of(salvage_.Tables.begin(), salvage_.Tables.end(),
                        [&](const auto& each) { return SameName(each.Table.Name, name); });
  }

  std::string NameFor(const TableLayout& layout, PageNumber owner) const {
    const std::pair<std::string, TableLayout>* best = nullptr;
    for (const auto& each : models_) {
      if (IsFreeName(each.first) && HasAllColumns(layout, each.second) &&
          (best == nullptr || each.second.Columns.size() > best->second.Columns.size())) {
        best = &each;
      }
    }
    return best == nullptr ? "Table" + std::to_string(owner) : best->first;
  }

  SalvagedTable ReadTable(const std::string& name, const TableLayout& layout) {
    SalvagedTable table{.Table = DescribeTable(name, layout, pages_.Header().Version)};
    const bool is_own = layout.Owned.Page != 0;
    RowSalvager rows(pages_, layout, is_own ? RowSalvager::Fit::Loose : RowSalvager::Fit::Exact);
    const std::size_t losses = salvage_.Losses.size();
    for (const PageNumber page : PagesOf(name, layout)) {
      ReadPage(page, name, rows, table);
    }
    if (is_own) {
      table.Expected = layout.RowCount;
      NoteCount(table, layout.Page, losses == salvage_.Losses.size());
    }
    return table;
  }

  void NoteCount(const SalvagedTable& table, PageNumber definition, bool nothing_lost) {
    const auto found = static_cast<std::int64_t>(table.Rows.size());
    if (found > *table.Expected || (found < *table.Expected && nothing_lost)) {
      Lose(table.Table.Name, definition,
           Phrase::Tr("The table should have %1 rows; %2 were found.", *table.Expected, found));
    }
  }

  void ReadPage(PageNumber page, const std::string& name, RowSalvager& rows, SalvagedTable& table) {
    try {
      PageYield yield = rows.Read(page);
      for (SalvagedRow& row : yield.Rows) {
        table.Rows.push_back(std::move(row));
      }
      if (yield.LostRows > 0) {
        Lose(name, page, RowsNotRead(yield.LostRows));
      }
      for (const std::string& column : yield.LostTexts) {
        Lose(name, page,
             Phrase::Tr("A text of the column %1 cannot be read; it is left empty.", column));
      }
    } catch (const DamagedFile&) {
      reported_.insert(page);
      Lose(name, page,
           page < pages_.PageCount() ? Phrase::Tr("The page is damaged; its rows are lost.")
                                     : Phrase::Tr("The page is missing: the file ends before it."));
    }
  }

  /// The pages that may hold rows: those of the table's map, and all others that say so and are
  /// not free.
  std::set<PageNumber> PagesOf(const std::string& name, const TableLayout& layout) {
    std::set<PageNumber> pages;
    try {
      if (layout.Owned.Page != 0) {
        for (const PageNumber page : ReadWholeMap(pages_, layout.Owned)) {
          if (MayHoldRows(page, layout)) {
            pages.insert(page);
          }
        }
      }
    } catch (const DamagedFile&) {
      Lose(
          name, layout.Owned.Page,
          Phrase::Tr(
              "The list of the table's pages is damaged; they were looked for in the whole file."));
      reported_.insert(layout.Owned.Page);
    }
    for (const PageNumber page : survey_.PagesOf(layout.Page)) {
      if (!survey_.IsFree(page)) {
        pages.insert(page);
      }
    }
    return pages;
  }

  /// Whether a page of the table's map is one of rows, or was before it was damaged.
  bool MayHoldRows(PageNumber page, const TableLayout& layout) {
    if (page >= pages_.PageCount() || survey_.Broken().contains(page)) {
      return !IsIndexPage(page, layout);
    }
    const PagePtr bytes = pages_.ReadPage(page);
    switch (static_cast<PageKind>(bytes->front())) {
      case PageKind::Data: {
        const std::uint32_t owner = ByteView(*bytes).U32(4);
        return owner == layout.Page || (owner != kLongTexts && !survey_.IsDefinition(owner));
      }
      case PageKind::TableDefinition:
        return false;
      default:
        return !IsIndexPage(page, layout);
    }
  }

  std::set<PageNumber> IndexPages(const TableLayout& layout) {
    std::set<PageNumber> pages;
    for (const IndexLayout& index : layout.Indexes) {
      const std::vector<PageNumber> of_index = PagesOfMap(index.Pages);
      pages.insert(of_index.begin(), of_index.end());
      pages.insert(index.Root);
    }
    return pages;
  }

  bool IsIndexPage(PageNumber page, const TableLayout& layout) {
    return IndexPages(layout).contains(page);
  }

  /// A page that no table has holds nothing, whatever is on it.
  void NoteBrokenPages() {
    std::set<PageNumber> open;
    for (const PageNumber page : survey_.Broken()) {
      if (!reported_.contains(page) && !survey_.IsFree(page)) {
        open.insert(page);
      }
    }
    for (const auto& [definition, name] : all_names_) {
      if (!open.empty()) {
        NoteBrokenPages(definition, name, open);
      }
    }
  }

  void NoteBrokenPages(PageNumber definition, const std::string& name, std::set<PageNumber>& open) {
    if (open.erase(definition) > 0) {
      Lose(name, definition, Phrase::Tr("The page with the definition of the table is damaged."));
    }
    const auto layout = OwnLayout(definition);
    if (!layout) {
      return;
    }
    for (const PageNumber page : IndexPages(*layout)) {
      if (open.erase(page) > 0) {
        Lose(name, page,
             Phrase::Tr("The page is damaged; it belongs to an index, so no row is lost by that."));
      }
    }
    for (const PageNumber page : PagesOfMap(layout->Owned)) {
      if (open.erase(page) > 0) {
        Lose(name, page, Phrase::Tr("The page is damaged; its rows are lost."));
      }
    }
    for (const LongColumnMaps& column : layout->LongColumns) {
      for (const PageNumber page : PagesOfMap(column.Owned)) {
        if (open.erase(page) > 0) {
          Lose(name, page, Phrase::Tr("The page is damaged; the long texts on it are lost."));
        }
      }
    }
  }

  /// The pages of a map; none where it is damaged.
  std::vector<PageNumber> PagesOfMap(RowPointer map) {
    try {
      return ReadWholeMap(pages_, map);
    } catch (const DamagedFile&) {
      return {};
    }
  }

  SalvagePages& pages_;
  std::function<bool(const std::string&, const std::vector<std::string>&,
                     const std::vector<Value>&)>
      is_plausible_;
  Layouts models_;
  PageSurvey survey_;
  Salvage salvage_;
  std::vector<std::pair<PageNumber, std::string>> names_;
  std::vector<std::pair<PageNumber, std::string>> all_names_;  ///< Tables of the system, too.
  std::set<PageNumber> handled_;   ///< The definitions of tables that were read.
  std::set<PageNumber> reported_;  ///< Broken pages that are in the list of losses.
};

/// What a broken-off change has left to be carried out.
PageImages PagesOfJournal(const std::string& file_name) {
  try {
    PageFile file(file_name, false);
    return HasJournal(file.Path()) ? PendingPages(file) : PageImages();
  } catch (const FileProblem&) {
    return {};
  }
}

}  // namespace

Salvage SalvageAccessFile(const std::string& file_name, const SalvageModels& models) {
  SalvagePages pages(file_name);
  pages.SetOverlay(PagesOfJournal(file_name));
  return FileSalvager(pages, models).Run();
}

}  // namespace veyra::access
