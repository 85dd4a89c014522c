#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "data/access/write/text_key.h"
#include "data/errors.h"
#include "tests/data/access/access_folder.h"

namespace veyra {
namespace {

std::string Hex(const access::Bytes& bytes) {
  std::string text;
  for (const access::Byte byte : bytes) {
    std::array<char, 4> digits{};
    std::snprintf(digits.data(), digits.size(), "%02X", byte);
    text += digits.data();
  }
  return text;
}

struct NameKey {
  const char* Name;
  const char* Key;
};

class TableNameKeys : public testing::TestWithParam<NameKey> {};

TEST_P(TableNameKeys, AreThoseOfTheGeneralOrder) {
  access::Bytes key;
  access::AppendTextKey(key, GetParam().Name);
  EXPECT_EQ(GetParam().Key, Hex(key));
}

// The first three are as a real program wrote them.
INSTANTIATE_TEST_SUITE_P(
    Access, TableNameKeys,
    testing::Values(
        NameKey{"DateTest", "4F4A6D516D516B6D0100"},
        NameKey{"MSysObjects", "606B766B644C5B514D6D6B0100"},
        NameKey{"f_75A72A8786B149369D90EB962DAB8A2C_Data",
                "532B0344404A443A4A464446424C383E483C42484F4836514C48423A4F4A4C464A3A4D2B034F4A6D4A"
                "0100"},
        NameKey{"A B", "4A074C0100"}, NameKey{"A-B", "4A4C01010101800B068200"},
        NameKey{"A-B-C", "4A4C4D01010101800B0682800F068200"}, NameKey{"\xC3\x84", "4A011300"},
        NameKey{"G\xC3\xA4ste", "554A6B6D5101021300"}, NameKey{"Stra\xC3\x9F", "6B6D694A6B6B0100"},
        NameKey{"\xC3\x9C-1", "6F380113010101800B068200"}));

class TableNames : public testing::TestWithParam<const char*> {};

TEST_P(TableNames, AreKept) {
  const AccessFolder folder;
  const std::string name = GetParam();
  {
    const auto store = folder.Open();
    store->CreateTable({.Name = name, .Columns = {{.Name = "Note", .Size = 16}}});
    store->AddColumn(name, {.Name = "Nr", .Type = ColumnType::WholeNumber});
    store->Insert(name, {{"Note", "Chess"}, {"Nr", 1}});
  }
  EXPECT_EQ((std::vector<std::string>{"Rooms", "Reserv", name}), folder.Open()->TableNames());
  if (AccessFolder::HasOtherReader()) {
    EXPECT_EQ(std::vector<std::string>{"Chess|1"},
              AccessFolder::OtherReader(folder.Calendar(), name));
  }
}

INSTANTIATE_TEST_SUITE_P(Access, TableNames,
                         testing::Values("Guest list", "guest_list", "Guest-list", "Gäste",
                                         "Größe (2)", "Año 2014 & Co"));

TEST(TableName, ThatNoOtherProgramWouldFindIsRefused) {
  const AccessFolder folder;
  const auto store = folder.Open();
  for (const char* name : {"", " Guests", "Guests ", "Guests.2014", "[Guests]", "Guests!",
                           "\xE8\x8C\xB6", "Guests\t"}) {
    EXPECT_THROW(store->CreateTable({.Name = name, .Columns = {{.Name = "Note"}}}), DatabaseError)
        << name;
  }
  EXPECT_EQ(2U, store->TableNames().size());
}

}  // namespace
}  // namespace veyra
