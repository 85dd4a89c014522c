#include "tools/care/keep_copy.h"

#include <cerrno>
#include <string>

#include "data/errors.h"
#include "data/open_file_store.h"
#include "data/posix_file.h"
#include "tools/care/check_files.h"
#include "tools/file_moves.h"
#include "tools/unfinished_folder.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

Phrase NothingMade() {
  return Phrase::Tr("Nothing was made. Check the original with \"veyra-data check\".");
}

/// Throws unless the copy is one whole, sound file.
void Check(const fs::path& copy) {
  const auto problems = OpenFileStore(copy.string(), StoreAccess::ReadOnly)->Verify();
  if (!problems.empty()) {
    throw DatabaseError({copy.filename().string(),
                         Phrase::Tr("The copy is not sound: %1", problems.front()), NothingMade()});
  }
  if (!LogsBeside(copy).empty()) {
    throw DatabaseError(
        {copy.filename().string(), Phrase::Tr("The copy could not be completed."), NothingMade()});
  }
}

/// Returns 0 or the error number.
int Move(const fs::path& from, const fs::path& to, bool replace) {
  if (!replace) {
    return RenameWithoutReplacing(from, to);
  }
  std::error_code failure;
  fs::rename(from, to, failure);
  return failure.value();
}

void MakeWhole(FileStore& store, const fs::path& copy) {
  store.CopyTo(copy.string());
  Check(copy);
  Flush(copy);
}

[[noreturn]] void Fail(const fs::path& copy, int error) {
  throw FileError({copy.string(),
                   error == EEXIST
                       ? Phrase::Tr("This file is there already; nothing was made.")
                       : Phrase::Tr("The copy could not be put there: %1.", SystemErrorText(error)),
                   Phrase::Tr("Choose another name, or a folder that you may write to.")});
}

}  // namespace

void MakeCheckedCopy(FileStore& store, const fs::path& copy, bool replace) {
  const UnfinishedFolder unfinished(copy.parent_path());
  const fs::path fresh = unfinished.path() / copy.filename();
  MakeWhole(store, fresh);
  if (const int error = Move(fresh, copy, replace); error != 0) {
    Fail(copy, error);
  }
  Flush(copy.parent_path());
}

fs::path KeepCopy(FileStore& store, Date day) {
  const fs::path file = store.FileName();
  const UnfinishedFolder unfinished(file.parent_path());
  const fs::path fresh = unfinished.path() / file.filename();
  MakeWhole(store, fresh);
  int number = 1;
  int error = RenameWithoutReplacing(fresh, KeptName(file, day, number));
  while (error == EEXIST) {
    error = RenameWithoutReplacing(fresh, KeptName(file, day, ++number));
  }
  if (error != 0) {
    Fail(KeptName(file, day, number), error);
  }
  Flush(file.parent_path());
  return KeptName(file, day, number);
}

}  // namespace veyra
