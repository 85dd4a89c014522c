#include "data/desk_note.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <string>

#include "tests/temp_folder.h"

namespace veyra {
namespace {

class DeskNoteTest : public testing::Test {
 protected:
  std::filesystem::path Note() const { return folder_.File("Calendar.mdb-desk-1000"); }

  TempFolder folder_;
};

TEST_F(DeskNoteTest, WhatIsWrittenIsRead) {
  WriteDeskNote(Note(), 3);
  EXPECT_EQ(3, ReadDeskNote(Note()));
  WriteDeskNote(Note(), 12);
  EXPECT_EQ(12, ReadDeskNote(Note()));
  std::ifstream stream(Note());
  EXPECT_EQ("veyra calendar desk 1\nfacility: 12\n",
            std::string(std::istreambuf_iterator<char>(stream), {}));
}

TEST_F(DeskNoteTest, ItStandsBesideTheLinkAndIsTheUsersOwn) {
  EXPECT_EQ("/desk/Calendar.mdb-desk-" + std::to_string(::geteuid()),
            DeskNoteOf("/desk/Calendar.mdb").string());
}

TEST_F(DeskNoteTest, WithoutANoteThereIsNothing) {
  EXPECT_EQ(std::nullopt, ReadDeskNote(Note()));
}

TEST_F(DeskNoteTest, ADamagedNoteIsNone) {
  for (const char* text :
       {"", "3", "veyra calendar desk 1\n", "veyra calendar desk 1\nfacility: \n",
        "veyra calendar desk 1\nfacility: 12", "veyra calendar desk 1\nfacility: 3x\n",
        "veyra calendar desk 2\nfacility: 3\n", "veyra calendar desk 1\nfacility: 3\n\n",
        "veyra calendar desk 1\nfacility: 99999999999999999999\n"}) {
    folder_.Write(Note().filename().string(), text);
    EXPECT_EQ(std::nullopt, ReadDeskNote(Note())) << text;
  }
}

TEST_F(DeskNoteTest, WhereItCannotBeWrittenNothingFails) {
  std::filesystem::create_directory(Note());
  WriteDeskNote(Note(), 3);
  EXPECT_EQ(std::nullopt, ReadDeskNote(Note()));
  WriteDeskNote(folder_.File("no such folder") / "note", 3);
}

}  // namespace
}  // namespace veyra
