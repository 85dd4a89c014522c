#include <gtest/gtest.h>

#include <array>

#include "data/access/format/code_page.h"
#include "data/access/read/cell.h"
#include "data/access/write/definition_writer.h"
#include "data/access/write/row_writer.h"
#include "data/access/write/schema_writer.h"
#include "data/charset.h"
#include "data/errors.h"
#include "tests/data/access/access_folder.h"

namespace veyra {
namespace {

std::string Utf8(char32_t character) {
  std::string text;
  AppendUtf8(text, character);
  return text;
}

/// What a reader of the file makes of a text that was encoded.
std::string Decoded(const access::Bytes& bytes) {
  const access::ByteView view(bytes);
  return bytes.size() >= 2 && view.U16(0) == 0xFEFF ? access::ExpandCompressed(view.From(2))
                                                    : access::Utf8FromUtf16(view);
}

TEST(FirstCharacter, OfATextComesBackWhateverItIs) {
  for (char32_t character = 1; character < 0x20000; ++character) {
    if (character >= 0xD800 && character <= 0xDFFF) {
      continue;
    }
    for (const char* rest : {"", "bc", "\xC5\x81\xC3\xB3"}) {
      const std::string text = Utf8(character) + rest;
      for (const bool may_compress : {false, true}) {
        ASSERT_EQ(text, Decoded(access::EncodeText(text, may_compress)))
            << static_cast<unsigned>(character) << rest;
      }
    }
  }
}

TableDefinition Notes() {
  TableDefinition notes{.Name = "Notes", .Columns = {}};
  notes.Columns = {{.Name = "Short", .Type = ColumnType::Text, .Size = 50},
                   {.Name = "Long", .Type = ColumnType::Text},
                   {.Name = "Number", .Type = ColumnType::WholeNumber}};
  return notes;
}

TEST(FirstCharacter, OfATextInAFileComesBackInBothKindsOfColumn) {
  const AccessFolder folder;
  const auto store = folder.Open();
  store->CreateTable(Notes());
  std::vector<std::string> expected;
  constexpr std::array<char32_t, 6> kFirst = {0xFEFF, 0xFFFE, 0xFF, 0xFE, 0x100, 0x3000};
  for (const char32_t character : kFirst) {
    const std::string text = Utf8(character) + "Chess";
    const std::string memo = text + std::string(300, 'x');
    store->Insert("Notes", {{"Short", text}, {"Long", memo}, {"Number", 1}});
    expected.push_back(text + "|" + memo + "|1");
  }
  EXPECT_EQ(expected, RowTexts(*folder.Open(), "Notes"));
  if (AccessFolder::HasOtherReader()) {
    EXPECT_EQ("", FirstDifference(expected, AccessFolder::OtherReader(folder.Calendar(), "Notes")));
  }
}

TEST(FirstCharacter, ThatMakesATextImpossibleIsRefused) {
  const AccessFolder folder;
  const auto store = folder.Open();
  store->CreateTable(Notes());
  const std::string text = Utf8(0xFEFF) + Utf8(0x3000);
  EXPECT_THROW(store->Insert("Notes", {{"Short", text}}), ValueRefusedError);
  EXPECT_THROW(store->Insert("Notes", {{"Long", text}}), ValueRefusedError);
  EXPECT_TRUE(AllRows(*store, "Notes").empty());
}

}  // namespace
}  // namespace veyra
