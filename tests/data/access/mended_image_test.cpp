#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "data/access/pages/page_changes.h"
#include "data/access/pages/page_file.h"
#include "data/access/read/snapshot.h"
#include "data/access/read/table_image.h"
#include "data/access/read/table_rows.h"
#include "data/access/write/row_changes.h"
#include "data/access/write/schema_writer.h"
#include "tests/data/access/access_folder.h"

namespace veyra {
namespace {

using access::PageChanges;
using access::PageFile;
using access::TableImage;
using access::TableWriter;

const Date kFirstDay = DateFromIsoText("2014-03-01").value();
constexpr std::int64_t kRooms = 5;
constexpr int kDays = 9;

/// What an image says: every row, and which rows hold each room and each day.
std::string Told(PageFile& file, TableImage& image) {
  const access::CellReader cells(file);
  std::string told;
  for (std::size_t i = 0; i < image.RowCount(); ++i) {
    told += RowText({image.Key(i), access::ReadValues(cells, image.View(i), image.Layout())}) +
            " at " + std::to_string(image.Key(i)) + "\n";
  }
  const auto list = [&](const char* column, double number) {
    told += std::string(column) + " " + std::to_string(number) + ":";
    for (const std::size_t row : image.RowsEqual(image.Layout().FindColumn(column), number)) {
      told += " " + std::to_string(row);
    }
    told += "\n";
  };
  for (std::int64_t room = 1; room <= kRooms; ++room) {
    list("RmID", static_cast<double>(room));
  }
  for (int day = 0; day < kDays; ++day) {
    list("DateOfRes", *access::OrderKey(AddDays(kFirstDay, day)));
  }
  return told;
}

/// The bookings of a calendar as they were read once and mended after each change.
class MendedImageTest : public testing::Test {
 protected:
  MendedImageTest()
      : file_(folder_.Calendar(), true),
        definition_(access::Snapshot(file_).DefinitionOf("Reserv")),
        image_(file_, definition_) {
    Told(file_, image_);
  }

  bool Change(const std::function<void(PageChanges&, TableWriter&)>& work) {
    PageChanges pages(file_);
    TableWriter writer(pages, definition_);
    work(pages, writer);
    const access::PageImages images = pages.Images();
    file_.Write(images);
    return image_.Mend(file_, images);
  }

  FieldValues AnyBooking() {
    return Booking(Number(1, kRooms), std::string(static_cast<std::size_t>(Number(1, 50)), 'x'),
                   AddDays(kFirstDay, Number(0, kDays - 1)), 1, 2);
  }

  bool Add() {
    return Change([this](PageChanges& pages, TableWriter& writer) {
      rows_.push_back(access::InsertRow(pages, writer, AnyBooking()));
    });
  }

  bool Alter() {
    return Change([this](PageChanges& pages, TableWriter& writer) {
      Row& row = AnyRow();
      row = access::UpdateRow(pages, writer, row, AnyBooking());
    });
  }

  bool Remove() {
    return Change([this](PageChanges& pages, TableWriter& writer) {
      Row& row = AnyRow();
      access::DeleteRow(pages, writer, row);
      row = rows_.back();
      rows_.pop_back();
    });
  }

  void ExpectAsInTheFile() {
    TableImage read_anew(file_, definition_);
    ASSERT_EQ(Told(file_, read_anew), Told(file_, image_));
  }

  std::int64_t Number(std::int64_t from, std::int64_t to) {
    return std::uniform_int_distribution<std::int64_t>(from, to)(random_);
  }

  std::vector<Row> rows_;
  AccessFolder folder_;
  PageFile file_;
  access::PageNumber definition_;
  TableImage image_;

 private:
  Row& AnyRow() {
    return rows_[static_cast<std::size_t>(Number(0, static_cast<std::int64_t>(rows_.size()) - 1))];
  }

  std::mt19937 random_{20140315};
};

TEST_F(MendedImageTest, IsTheOneThatIsReadAnewAfterEachOfManyChanges) {
  for (int change = 0; change < 400; ++change) {
    const std::int64_t kind = rows_.size() < 20 ? 0 : Number(0, 9);
    ASSERT_TRUE(kind < 4 ? Add() : kind < 7 ? Alter() : Remove());
    ExpectAsInTheFile();
  }
}

TEST_F(MendedImageTest, FollowsARowThatWasMovedToAnotherPage) {
  for (int i = 0; i < 80; ++i) {
    Add();
  }
  std::set<access::PageNumber> pages;
  for (Row& row : rows_) {
    const auto home = access::HomeOf(row.Key);
    Change([&](PageChanges& changed, TableWriter& writer) {
      row = access::UpdateRow(changed, writer, row, {{"Event", std::string(50, 'y')}});
    });
    const auto place = access::ResolveRow(file_, home);
    pages.insert(place->Page == home.Page ? 0 : place->Page);
    ExpectAsInTheFile();
  }
  EXPECT_LT(1U, pages.size()) << "no row was moved";
  for (Row& row : rows_) {
    ASSERT_TRUE(Change([&](PageChanges& changed, TableWriter& writer) {
      row = access::UpdateRow(changed, writer, row,
                              {{"Event", std::string("z")}, {"DateOfRes", kFirstDay}});
    }));
    ExpectAsInTheFile();
  }
}

TEST_F(MendedImageTest, FollowsPagesThatTheTableGetsAndGivesBack) {
  for (int i = 0; i < 200; ++i) {
    ASSERT_TRUE(Add());
  }
  ExpectAsInTheFile();
  while (!rows_.empty()) {
    ASSERT_TRUE(Remove());
    ExpectAsInTheFile();
  }
}

TEST_F(MendedImageTest, IsReadAnewAfterAChangeOfManyPages) {
  EXPECT_FALSE(Change([this](PageChanges& pages, TableWriter& writer) {
    access::InsertRows(pages, writer, std::vector<FieldValues>(4000, AnyBooking()));
  }));
}

TEST_F(MendedImageTest, IsReadAnewWhenTheColumnsAreOthers) {
  Add();
  PageChanges pages(file_);
  access::AddColumn(pages, definition_, {.Name = "MoreKeys", .Type = ColumnType::Double});
  const access::PageImages images = pages.Images();
  file_.Write(images);
  EXPECT_FALSE(image_.Mend(file_, images));
}

/// What a calendar keeps of what it read while it is changed.
class KeptImagesTest : public testing::Test {
 protected:
  void AddBooking() {
    PageChanges pages(file_);
    TableWriter writer(pages, snapshot_.DefinitionOf("Reserv"));
    access::InsertRow(pages, writer, Booking(1, "Ann", kFirstDay, 1, 2));
    access::Snapshot::Images images = snapshot_.TakeImages();
    file_.Write(pages.Images());
    snapshot_.MendImages(std::move(images), pages.Images());
  }

  AccessFolder folder_;
  PageFile file_{folder_.Calendar(), true};
  access::Snapshot snapshot_{file_};
};

TEST_F(KeptImagesTest, ATableIsNotReadAgainAfterAChange) {
  const TableImage* read = snapshot_.Table("Reserv").get();
  const access::Snapshot::Held held(snapshot_);
  AddBooking();
  EXPECT_EQ(read, snapshot_.Table("Reserv").get());
  EXPECT_EQ(1U, snapshot_.Table("Reserv")->RowCount());
}

TEST_F(KeptImagesTest, RowsThatSomebodyStillReadsStayAsTheyWere) {
  const std::shared_ptr<TableImage> read = snapshot_.Table("Reserv");
  const access::Snapshot::Held held(snapshot_);
  AddBooking();
  EXPECT_EQ(0U, read->RowCount());
  EXPECT_EQ(1U, snapshot_.Table("Reserv")->RowCount());
}

}  // namespace
}  // namespace veyra
