#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "data/access/pages/page_changes.h"
#include "data/access/pages/page_file.h"
#include "data/access/read/catalogue.h"
#include "data/access/read/cell.h"
#include "data/access/read/table_image.h"
#include "data/access/write/index_key.h"
#include "data/access/write/index_tree.h"
#include "data/access/write/text_key.h"
#include "tests/data/access/fixtures.h"

namespace veyra::access {
namespace {

constexpr std::size_t kRowBytes = 4;
constexpr int kFewestEntries = 400;

/// What came of the entries of the text indexes that other programs wrote.
struct Compared {
  int Indexes = 0;
  int Entries = 0;
  std::vector<std::string> Differing;
  std::map<std::string, int> Unknown;  ///< Texts whose keys are not known here.
};

bool IsOfText(const IndexLayout& index, const TableLayout& table) {
  return std::any_of(index.Columns.begin(), index.Columns.end(), [&](const IndexColumn& column) {
    return table.ColumnByNumber(column.Number)->Kind == ColumnKind::Text;
  });
}

/// The texts of a row that an index sorts by.
std::vector<std::string> TextsOf(PageSource& file, const TableImage& image,
                                 const IndexLayout& index, std::size_t row) {
  std::vector<std::string> texts;
  for (const IndexColumn& column : index.Columns) {
    const Cell cell =
        CellReader(file).Read(image.View(row), *image.Layout().ColumnByNumber(column.Number));
    if (const auto* text = std::get_if<std::string>(&cell)) {
      texts.push_back(*text);
    }
  }
  return texts;
}

/// The keys of an index by the home slots of their rows.
std::map<RowKey, Bytes> KeysOf(PageFile& file, const TableImage& image, const IndexLayout& index) {
  PageChanges changes(file);
  std::map<RowKey, Bytes> keys;
  for (const Bytes& entry : IndexTree(changes, image.Layout().Page, index).Keys()) {
    const auto end = entry.end() - kRowBytes;
    const PageNumber page = (PageNumber{end[0]} << 16U) | (PageNumber{end[1]} << 8U) | end[2];
    keys[KeyOf({page, end[3]})] = Bytes(entry.begin(), end);
  }
  return keys;
}

void CompareIndex(PageFile& file, const TableImage& image, const IndexLayout& index,
                  const std::string& where, Compared& compared) {
  const std::map<RowKey, Bytes> written = KeysOf(file, image, index);
  ++compared.Indexes;
  for (std::size_t row = 0; row < image.RowCount(); ++row) {
    const RawRow raw = RawColumns(image.View(row), image.Layout());
    const auto entry = written.find(image.Key(row));
    if (entry == written.end()) {
      if (!index.SkipsNulls() || !IsNullKey(index, image.Layout(), raw)) {
        compared.Differing.push_back(where + ": a row without an entry");
      }
      continue;
    }
    const std::vector<std::string> texts = TextsOf(file, image, index, row);
    if (!std::all_of(texts.begin(), texts.end(), HasTextKey)) {
      ++compared.Unknown[where];
      continue;
    }
    ++compared.Entries;
    if (entry->second != IndexKey(index, image.Layout(), raw)) {
      compared.Differing.push_back(where + ": " + (texts.empty() ? "no text" : texts.front()));
    }
  }
}

void CompareFile(const std::filesystem::path& path, Compared& compared) {
  PageFile file(path, false);
  for (const CatalogueEntry& table : ReadAllTables(file)) {
    const TableImage image(file, table.Definition);
    for (const IndexLayout& index : image.Layout().Indexes) {
      if (IsOfText(index, image.Layout())) {
        CompareIndex(file, image, index,
                     path.lexically_relative(FixtureFolder()).string() + ", " + table.Name + ", " +
                         index.Name,
                     compared);
      }
    }
  }
}

/// Access 97 sorts by another table, and those files are only read.
std::vector<std::filesystem::path> FilesOfAccess2000() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(FixtureFolder())) {
    const std::string name = entry.path().filename().string();
    if (entry.path().extension() == ".mdb" && entry.path().parent_path().filename() != "corrupt" &&
        name.find("password") == std::string::npos &&
        PageFile(entry.path(), false).Header().Version != Format::Jet3) {
      files.push_back(entry.path());
    }
  }
  return files;
}

TEST(SortKeys, AreThoseThatOtherProgramsWroteForTheSameTexts) {
  VEYRA_NEED_FIXTURES();
  Compared compared;
  for (const std::filesystem::path& path : FilesOfAccess2000()) {
    CompareFile(path, compared);
  }
  EXPECT_EQ(std::vector<std::string>{}, compared.Differing);
  EXPECT_LE(kFewestEntries, compared.Entries);
  // Texts in Greek, Cyrillic and Chinese, of a yen sign, and of all signs of Latin 1.
  EXPECT_EQ(5,
            std::exchange(compared.Unknown["real/jet4-a2003-unicodecomp.mdb, Table, Unicode"], 0));
  for (const auto& [where, count] : compared.Unknown) {
    // What other programs keep there has names that begin with a control character.
    EXPECT_TRUE(count == 0 || where.find("MSysAccessStorage") != std::string::npos) << where;
  }
}

}  // namespace
}  // namespace veyra::access
