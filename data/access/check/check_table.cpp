#include "data/access/check/check_table.h"

#include <algorithm>
#include <set>

#include "data/access/check/check_index.h"
#include "data/access/format/data_page.h"
#include "data/access/read/cell.h"
#include "data/access/read/usage_map.h"

namespace veyra::access {

namespace {

constexpr std::uint32_t kLongPage = 0x4C41564C;  // "LVAL"

class TableCheck {
 public:
  TableCheck(PageSource& pages, std::string name, Findings& findings)
      : pages_(pages),
        table_(std::move(name)),
        name_(Phrase::Tr("the table %1", table_)),
        findings_(findings) {}

  void Check(PageNumber definition) {
    for (const PageNumber page : DefinitionPages(pages_, definition)) {
      findings_.Claim(page, Phrase::Tr("the definition of %1", name_));
    }
    const TableLayout layout = ReadTableLayout(pages_, definition);
    CheckDataPages(layout.Owned, layout.Free, definition);
    for (const LongColumnMaps& maps : layout.LongColumns) {
      CheckDataPages(maps.Owned, maps.Free, kLongPage);
    }
    CheckRows(definition);
  }

  /// Says why the table cannot be gone through: a sentence.
  void BreakOff(const Phrase& cause) {
    findings_.Add(Phrase::Tr("The table %1 cannot be gone through: %2", table_, cause));
  }

 private:
  /// The pages of a map, the map itself entered as well.
  std::vector<PageNumber> PagesOf(RowPointer map) {
    if (map.Page == 0) {
      return {};
    }
    findings_.ClaimShared(map.Page);
    for (const PageNumber page : MapPages(pages_, map)) {
      findings_.Claim(page, Phrase::Tr("a usage map of %1", name_));
    }
    return ReadUsageMap(pages_, map);
  }

  void CheckDataPages(RowPointer owned_map, RowPointer free_map, std::uint32_t owner) {
    const std::vector<PageNumber> owned = PagesOf(owned_map);
    for (const PageNumber number : owned) {
      findings_.Claim(number, name_);
      const PagePtr page = pages_.ReadPage(number);
      if (page->front() != static_cast<Byte>(PageKind::Data) ||
          DataPage(*page, pages_.Header().Version).Owner() != owner) {
        findings_.Add(
            Phrase::Tr("The table %1 has page %2, which is not one of its own.", table_, number));
      }
    }
    const std::vector<PageNumber> free = PagesOf(free_map);
    if (!std::includes(owned.begin(), owned.end(), free.begin(), free.end())) {
      findings_.Add(Phrase::Tr(
          "The table %1 has a map of pages with room in which there are pages of others.", table_));
    }
  }

  void CheckRows(PageNumber definition) {
    const TableImage image(pages_, definition);
    const CellReader reader(pages_);
    for (std::size_t i = 0; i < image.RowCount(); ++i) {
      for (const ColumnLayout& column : image.Layout().Columns) {
        CheckCell(reader, image, i, column);
      }
    }
    if (pages_.Header().Version == Format::Jet4) {
      for (const IndexLayout& index : image.Layout().Indexes) {
        PagesOf(index.Pages);
        if (index.Root != 0) {
          CheckIndex(pages_, image, index, table_, findings_);
        }
      }
    }
  }

  void CheckCell(const CellReader& reader, const TableImage& image, std::size_t row,
                 const ColumnLayout& column) {
    try {
      reader.Read(image.View(row), column);
    } catch (const FileProblem&) {
      const RowPointer home = HomeOf(image.Key(row));
      findings_.Add(Phrase::Tr("The table %1 has a row on page %2 whose column %3 cannot be read.",
                               table_, home.Page, column.Name));
    }
  }

  PageSource& pages_;
  std::string table_;
  Phrase name_;
  Findings& findings_;
};

}  // namespace

void CheckTable(PageSource& pages, const std::string& name, PageNumber definition,
                Findings& findings) {
  TableCheck check(pages, name, findings);
  try {
    check.Check(definition);
  } catch (const FileProblem& problem) {
    check.BreakOff(problem.cause());
  }
}

}  // namespace veyra::access
