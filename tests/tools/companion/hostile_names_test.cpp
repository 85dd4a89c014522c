#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "data/open_store.h"
#include "data/schema.h"
#include "tests/temp_folder.h"
#include "tests/tools/companion/run_program.h"

namespace veyra {
namespace {

/// Would colour a terminal, ring its bell, turn its writing round and set its title.
const std::string kHostile =
    "x\x1B[31m\x07\xE2\x80\xAEy\xC2\x9B"
    "2J\x1B]0;t\x07z";

bool IsObeyedByTerminals(unsigned char byte) {
  return (byte < 0x20 && byte != '\n') || byte == 0x7F;
}

/// What a terminal would get of a text beside what it is to show.
std::string Orders(const std::string& text) {
  std::string orders;
  for (const char c : text) {
    if (IsObeyedByTerminals(static_cast<unsigned char>(c))) {
      orders += c;
    }
  }
  for (const char* sign : {"\xC2\x9B", "\xE2\x80\xAE"}) {
    if (text.find(sign) != std::string::npos) {
      orders += sign;
    }
  }
  return orders;
}

/// A calendar in which everything that has a name bears a hostile one, its folder too.
class HostileNamesTest : public testing::Test {
 protected:
  HostileNamesTest() {
    EXPECT_EQ(0, RunProgram({"new", Folder()}).Status);
    const auto store = OpenStore(Folder() + "/Calendar.mdb", StoreAccess::ReadWrite);
    store->Insert("Rooms", {{"Name", kHostile}, {"Active", std::int64_t{1}}});
    store->Insert("Rooms", {{"Name", kHostile}, {"Active", std::int64_t{1}}});
    store->Insert("Reserv", {{"RmID", std::int64_t{1}},
                             {"Event", kHostile},
                             {"DateOfRes", MakeDate(2014, 4, 6).value()},
                             {"TimeFrom", std::int64_t{19}},
                             {"TimeTo", std::int64_t{21}}});
  }

  std::string Folder() const { return temp_.File(kHostile).string(); }

  void ExpectText(const Arguments& arguments) const {
    const Ended ended = RunProgram(arguments);
    EXPECT_NE("", ended.Out + ended.Err) << arguments.front();
    EXPECT_EQ("", Orders(ended.Out + ended.Err)) << arguments.front() << "\n"
                                                 << ended.Out << ended.Err;
  }

  TempFolder temp_;
};

TEST_F(HostileNamesTest, ReachNoTerminalAsOrders) {
  ExpectText({"list", Folder(), "--on", "2014-04-06"});
  ExpectText({"list", Folder(), "--facility", "no " + kHostile});
  ExpectText({"show", Folder() + "/Calendar.mdb"});
  ExpectText({"check", Folder()});
  ExpectText({"check", Folder(), "--mend"});
  ExpectText({"backup", temp_.File("copy " + kHostile).string(), Folder()});
  ExpectText({"convert", Folder(), "--to", "sqlite"});
  ExpectText({"convert", Folder(), "--to", "access"});
  ExpectText({"new", Folder()});
  ExpectText({"export", temp_.File(kHostile + ".none").string(), Folder()});
  ExpectText({"no " + kHostile});
}

TEST_F(HostileNamesTest, AreExportedAsTheyAre) {
  const std::string file = temp_.File("bookings.csv").string();
  ASSERT_EQ(0, RunProgram({"export", file, Folder()}).Status);
  EXPECT_NE(std::string::npos, temp_.Read("bookings.csv").find("[31m"));
}

}  // namespace
}  // namespace veyra
