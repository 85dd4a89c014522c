#include "data/access/check/check_file.h"

#include <algorithm>

#include "data/access/check/check_table.h"
#include "data/access/check/page_owners.h"
#include "data/access/read/catalogue.h"
#include "data/access/read/usage_map.h"

namespace veyra::access {

namespace {

constexpr RowPointer kFreePages{1, 0};

bool IsZero(const Bytes& page) {
  return std::all_of(page.begin(), page.end(), [](Byte byte) { return byte == 0; });
}

void CheckFreePages(PageSource& pages, Findings& findings) {
  findings.ClaimShared(kFreePages.Page);
  for (const PageNumber page : MapPages(pages, kFreePages)) {
    findings.Claim(page, Phrase::Tr("the map of free pages"));
  }
  for (const PageNumber page : ReadUsageMap(pages, kFreePages)) {
    if (findings.IsClaimed(page)) {
      findings.Add(
          Phrase::Tr("Page %1 counts as free and belongs to %2.", page, findings.OwnerOf(page)));
    }
  }
}

/// A data page that no map knows holds rows that nobody finds.
void CheckStrayPages(PageSource& pages, const std::vector<CatalogueEntry>& tables,
                     Findings& findings) {
  for (PageNumber number = 0; number < pages.PageCount(); ++number) {
    if (findings.IsClaimed(number)) {
      continue;
    }
    const PagePtr page = pages.ReadPage(number);
    if (IsZero(*page) || page->front() != static_cast<Byte>(PageKind::Data)) {
      continue;
    }
    const std::uint32_t owner = ByteView(*page).U32(4);
    const auto table = std::find_if(tables.begin(), tables.end(), [owner](const auto& entry) {
      return entry.Definition == owner;
    });
    if (table != tables.end()) {
      findings.Add(
          Phrase::Tr("Page %1 says that it belongs to the table %2, which does not know of it.",
                     number, table->Name));
    }
  }
}

}  // namespace

std::vector<Phrase> CheckFile(PageSource& pages) {
  Findings findings(pages.PageCount());
  try {
    findings.Claim(0, Phrase::Tr("the header"));
    const std::vector<CatalogueEntry> tables = ReadAllTables(pages);
    for (const CatalogueEntry& table : tables) {
      CheckTable(pages, table.Name, table.Definition, findings);
    }
    CheckFreePages(pages, findings);
    CheckStrayPages(pages, ReadCatalogue(pages), findings);
  } catch (const FileProblem& problem) {
    findings.Add(problem.cause());
  }
  return findings.Faults();
}

}  // namespace veyra::access
