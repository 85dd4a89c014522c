#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "data/access/write/create_file.h"
#include "data/create_store.h"
#include "data/errors.h"
#include "data/schema.h"

namespace {

namespace fs = std::filesystem;

using veyra::FileKind;

constexpr int kPage = 4096;

/// A calendar from empty to a few pages long.
void MakeCalendar(const std::string& file, FileKind kind, int bookings) {
  const auto store = veyra::CreateStore(file, veyra::Durability::AtOnce, kind);
  store->CreateTable(veyra::RoomsTable());
  store->CreateTable(veyra::ReservTable());
  for (int i = 0; i < bookings; ++i) {
    store->Insert("Rooms", {{"Name", std::string(static_cast<std::size_t>(i) * 300, 'a')}});
    store->Insert("Reserv", {{"RmID", std::int64_t{i % 3}},
                             {"Event", std::string("Łódź")},
                             {"DateOfRes", veyra::MakeDate(2014, 3, i % 28 + 1).value()},
                             {"TimeFrom", std::int64_t{20}},
                             {"TimeTo", std::int64_t{25}}});
  }
}

void MakeAccessFiles(const fs::path& folder) {
  veyra::CreateAccessFile((folder / "empty.mdb").string());
  MakeCalendar((folder / "tables.mdb").string(), FileKind::Access, 0);
  MakeCalendar((folder / "calendar.mdb").string(), FileKind::Access, 12);
}

/// The file once more, one of its pages filled with other bytes.
void Damage(const fs::path& file, int page, char with) {
  const fs::path damaged = file.string() + "-" + std::to_string(page) + with;
  fs::copy_file(file, damaged);
  std::fstream stream(damaged, std::ios::in | std::ios::out | std::ios::binary);
  stream.seekp(std::streamoff{page} * kPage);
  stream << std::string(kPage, with);
}

void MakeDamagedFiles(const fs::path& folder) {
  for (const FileKind kind : {FileKind::Sqlite, FileKind::Access}) {
    const fs::path file = folder / (kind == FileKind::Sqlite ? "sqlite" : "access");
    MakeCalendar(file.string(), kind, 12);
    for (const int page : {0, 1, 2}) {
      Damage(file, page, '0');
      Damage(file, page, 'x');
    }
  }
}

}  // namespace

/// Makes a folder with files to begin with for access_fuzzer or rescue_fuzzer.
int main(int argc, char** argv) {
  const std::string kind = argc == 3 ? argv[1] : "";
  if (kind != "access" && kind != "rescue") {
    std::fputs("usage: make_corpus access|rescue FOLDER\n", stderr);
    return 2;
  }
  try {
    const fs::path folder = argv[2];
    fs::remove_all(folder);
    fs::create_directories(folder);
    kind == "access" ? MakeAccessFiles(folder) : MakeDamagedFiles(folder);
  } catch (const veyra::Error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
