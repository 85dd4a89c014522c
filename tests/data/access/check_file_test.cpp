#include "data/access/check/check_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "data/access/format/data_page.h"
#include "data/access/pages/page_changes.h"
#include "data/access/pages/page_file.h"
#include "data/access/read/catalogue.h"
#include "data/access/read/table_layout.h"
#include "data/access/write/usage_map_writer.h"
#include "data/open_file_store.h"
#include "tests/data/access/access_folder.h"
#include "tests/data/access/fixtures.h"

namespace veyra {
namespace {

using access::Byte;
using access::Bytes;
using access::PageChanges;
using access::PageNumber;

std::vector<Phrase> FaultsOf(const std::string& file) {
  return OpenFileStore(file, StoreAccess::ReadOnly)->Verify();
}

/// The numbers and names of a text: what a translation leaves as it is.
std::string Untranslated(const Phrase& text) {
  return text.TranslatedBy([](const std::string& pattern) {
    std::string places;
    for (std::size_t at = pattern.find('%'); at != std::string::npos;
         at = pattern.find('%', at + 1)) {
      places += pattern.substr(at, 2);
    }
    return places;
  });
}

std::string Joined(const std::vector<Phrase>& faults) {
  std::string all;
  for (const Phrase& fault : faults) {
    EXPECT_EQ(std::string::npos, Untranslated(fault).find(' ')) << fault;
    all += fault.English() + "\n";
  }
  return all;
}

/// A calendar with some bookings and a long text, of which one thing is damaged.
class CheckedFile : public testing::Test {
 protected:
  CheckedFile() {
    const auto store = folder_.Open();
    store->CreateTable({.Name = "Notes", .Columns = {{.Name = "Text"}}});
    store->Insert("Notes", {{"Text", std::string(9000, 'x')}});
    std::vector<FieldValues> rows;
    for (int i = 0; i < 300; ++i) {
      rows.push_back(Booking(i % 5, "Chess", AddDays(std::chrono::year{2014} / 3 / 15, i), 20, 25));
    }
    store->InsertAll("Reserv", rows);
  }

  std::string Faults() const { return Joined(FaultsOf(folder_.Calendar())); }

  /// The faults that are found once a change was made in the pages.
  std::string FaultsAfter(const std::function<void(PageChanges&)>& damage) const {
    {
      access::PageFile file(folder_.Calendar(), true);
      PageChanges changes(file);
      damage(changes);
      file.Write(changes.Images());
    }
    return Faults();
  }

  static access::TableLayout Layout(PageChanges& pages, const std::string& table) {
    const auto catalogue = access::ReadCatalogue(pages);
    return access::ReadTableLayout(pages, access::FindTable(catalogue, table)->Definition);
  }

  static PageNumber FirstPage(PageChanges& pages, const std::string& table) {
    return access::ReadUsageMap(pages, Layout(pages, table).Owned).front();
  }

  AccessFolder folder_;
};

void ExpectPart(const std::string& part, const std::string& whole) {
  EXPECT_NE(std::string::npos, whole.find(part)) << whole;
}

TEST_F(CheckedFile, ThatIsSoundHasNoFaults) {
  EXPECT_EQ("", Faults());
}

TEST_F(CheckedFile, StaysSoundAfterEveryChange) {
  const auto store = folder_.Open();
  std::vector<Row> rows = AllRows(*store, "Reserv");
  for (std::size_t i = 0; i < 60; ++i) {
    Row& row = rows[i * 37 % rows.size()];
    if (i % 3 == 0) {
      row = store->Update("Reserv", row, {{"Event", std::string(i % 50, 'w')}, {"RmID", 1}});
    } else if (i % 3 == 1) {
      store->Delete("Reserv", row);
      row = store->Insert("Reserv", Booking(9, "New", std::chrono::year{2015} / 1 / 1, 1, 2));
    } else {
      store->Insert("Notes", {{"Text", std::string(i * 150, 'y')}});
    }
    ASSERT_EQ("", Faults()) << i;
  }
}

TEST_F(CheckedFile, OfAnotherProgramHasNoFaults) {
  VEYRA_NEED_FIXTURES();
  for (const auto& file : std::filesystem::recursive_directory_iterator(FixtureFolder())) {
    const std::string name = file.path().string();
    if (file.path().extension() == ".mdb" && name.find("corrupt") == std::string::npos &&
        name.find("password") == std::string::npos) {
      EXPECT_EQ("", Joined(FaultsOf(name))) << name;
    }
  }
}

TEST_F(CheckedFile, TellsOfAPageThatCountsAsFree) {
  ExpectPart("counts as free and belongs to the table Reserv.", FaultsAfter([](PageChanges& pages) {
               access::AddToMap(pages, access::kFreePages, FirstPage(pages, "Reserv"));
             }));
}

TEST_F(CheckedFile, TellsOfAPageThatItsTableHasForgotten) {
  const std::string faults = FaultsAfter([](PageChanges& pages) {
    access::RemoveFromMap(pages, Layout(pages, "Reserv").Owned, FirstPage(pages, "Reserv"));
  });
  ExpectPart("says that it belongs to the table Reserv, which does not know of it.", faults);
  ExpectPart("rows where its definition says 300", faults);
}

TEST_F(CheckedFile, TellsOfAPageWithRoomThatIsAnothers) {
  ExpectPart("The table Notes has a map of pages with room in which there are pages of others.",
             FaultsAfter([](PageChanges& pages) {
               access::AddToMap(pages, Layout(pages, "Notes").Free, FirstPage(pages, "Reserv"));
             }));
}

TEST_F(CheckedFile, TellsOfAPageOfTwoTables) {
  ExpectPart("belongs to the table Notes and to the table Reserv.",
             FaultsAfter([](PageChanges& pages) {
               access::AddToMap(pages, Layout(pages, "Notes").Owned, FirstPage(pages, "Reserv"));
             }));
}

TEST_F(CheckedFile, TellsOfAnIndexThatLacksARow) {
  const std::string faults = FaultsAfter([](PageChanges& pages) {
    const access::TableLayout layout = Layout(pages, "Reserv");
    Bytes& page = pages.Edit(FirstPage(pages, "Reserv"));
    const access::DataPage rows(page, access::Format::Jet4);
    const auto begin = static_cast<std::size_t>(rows.Slot(0) & access::kRowOffset);
    page[begin + 2] = static_cast<Byte>(page[begin + 2] + 1);
  });
  ExpectPart(
      "Index RmID of the table Reserv is wrong: 1 rows are missing in it, and 1 entries are "
      "of no row.",
      faults);
}

TEST_F(CheckedFile, TellsOfALongTextThatIsGone) {
  ExpectPart("whose column Text cannot be read.", FaultsAfter([](PageChanges& pages) {
               const access::TableLayout layout = Layout(pages, "Notes");
               const auto page =
                   access::ReadUsageMap(pages, layout.LongColumns.at(0).Owned).front();
               Bytes& bytes = pages.Edit(page);
               bytes.assign(bytes.size(), 0);
               bytes[0] = 1;
             }));
}

}  // namespace
}  // namespace veyra
