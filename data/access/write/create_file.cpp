#include "data/access/write/create_file.h"

#include <algorithm>
#include <string_view>

#include "data/access/format/data_page.h"
#include "data/access/format/file_header.h"
#include "data/access/pages/page_changes.h"
#include "data/access/read/cell.h"
#include "data/access/write/system_tables.h"
#include "data/access/write/usage_map_writer.h"
#include "data/errors.h"
#include "data/posix_file.h"

namespace veyra {

namespace {

using access::Byte;
using access::Bytes;
using access::PageChanges;

constexpr std::string_view kName = "Standard Jet DB";
constexpr std::size_t kUsersAt = 0xE00;

/// The pages of a file that has none yet.
class NoPages : public access::PageSource {
 public:
  const access::FileHeader& Header() const override { return header_; }
  access::PageNumber PageCount() const override { return 0; }
  access::PagePtr ReadPage(access::PageNumber) override { throw access::DamagedFile(); }

 private:
  access::FileHeader header_;
};

void PutNoPassword(Bytes& page) {
  for (std::size_t at = 0x42; at < 0x6A; at += 4) {
    access::Put(page, at, static_cast<std::uint32_t>(access::kCreationStamp));
  }
}

/// Page 0, as file_header.h describes it; the numbers from 0x18 on are those of the first pages.
void WriteHeader(Bytes& page) {
  page[1] = 1;
  std::copy(kName.begin(), kName.end(), page.begin() + 4);
  page[0x14] = 1;
  page[0x19] = 1;
  page[0x1C] = 1;
  page[0x1D] = 1;
  for (Byte table = 2; table <= 5; ++table) {
    page[0x18U + 4U * table] = table;
  }
  access::Put(page, 0x3C, std::uint16_t{1252});
  PutNoPassword(page);
  access::Put(page, 0x6A, access::kCreationMark);
  access::Put(page, 0x6E, std::uint32_t{1033});
  access::Put(page, 0x72, access::kCreationStamp);
  access::Put(page, 0x98, std::uint32_t{1620});
  std::memcpy(&page[0x9C], "4.0", 3);
  for (std::size_t at = kUsersAt; at < page.size(); at += 2) {
    page[at + 1] = 1;
  }
  access::MaskHeader(page);
}

/// Page 1: the map of free pages, in which those past the file's end count as free, and one more
/// map that stays empty.
void WriteFreeMap(PageChanges& pages) {
  Bytes map(access::kUsageMapBytes, 0xFF);
  std::fill_n(map.begin(), 5, Byte{0});
  Bytes& page = pages.Edit(access::kFreePages.Page);
  page = access::EmptyDataPage(1);
  access::AddRow(page, map);
  access::AddRow(page, Bytes(access::kUsageMapBytes));
  for (access::PageNumber number = 0; number <= access::kRelationshipsPage; ++number) {
    access::RemoveFromMap(pages, access::kFreePages, number);
  }
}

Bytes NewDatabase() {
  NoPages none;
  PageChanges pages(none);
  WriteHeader(pages.Edit(pages.Grow()));
  pages.Grow();
  WriteFreeMap(pages);
  access::WriteSystemTables(pages);
  Bytes file;
  for (const auto& [number, page] : pages.Images()) {
    file.insert(file.end(), page.begin(), page.end());
  }
  return file;
}

void MakeFile(const std::string& file_name, const Bytes& bytes) {
  const PosixFile file(file_name, PosixFile::Use::MakeNew);
  try {
    file.Write(bytes);
    file.Flush();
  } catch (...) {
    RemoveFile(file_name);
    throw;
  }
}

}  // namespace

void CreateAccessFile(const std::string& file_name) {
  try {
    MakeFile(file_name, NewDatabase());
  } catch (const PosixFileError& error) {
    throw DatabaseError({file_name, Phrase::Tr("The database cannot be made: %1.", error.Reason()),
                         Phrase::Tr("Check the folder.")});
  }
}

}  // namespace veyra
