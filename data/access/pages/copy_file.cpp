#include "data/access/pages/copy_file.h"

#include <array>
#include <span>

#include "data/access/pages/disk_call.h"
#include "data/access/pages/journal.h"

namespace veyra::access {

namespace {

constexpr std::size_t kPiece = 1 << 16;

void CopyBytes(const PosixFile& source, const PosixFile& target) {
  std::array<unsigned char, kPiece> piece{};
  std::uint64_t place = 0;
  while (const std::size_t read = source.ReadAt(piece, place)) {
    target.WriteAt(std::span(piece).first(read), place);
    place += read;
  }
}

void WritePending(PageFile& file, const PosixFile& target) {
  if (!HasJournal(file.Path())) {
    return;
  }
  for (const auto& [number, page] : PendingPages(file)) {
    target.WriteAt(page, std::uint64_t{number} * page.size());
  }
}

FileProblem CannotBeMade(const Phrase& why) {
  return {Phrase::Tr("The copy cannot be made: %1.", why),
          Phrase::Tr("Check that the disk has room and that you may make files in the folder.")};
}

void FillCopy(PageFile& file, const PosixFile& target, const std::filesystem::path& new_file) {
  try {
    CopyBytes(file.File(), target);
    WritePending(file, target);
  } catch (...) {
    RemoveFile(new_file);
    throw;
  }
}

}  // namespace

void CopyFile(PageFile& file, const std::filesystem::path& new_file) {
  DiskCall(CannotBeMade,
           [&] { FillCopy(file, PosixFile(new_file, PosixFile::Use::MakeNew), new_file); });
}

}  // namespace veyra::access
