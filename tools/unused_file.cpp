#include "tools/unused_file.h"

#include <chrono>

#include "data/open_file_store.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

/// Who has the calendar open has it open for hours: waiting is of no use.
constexpr std::chrono::milliseconds kWaitPolicy{200};

[[noreturn]] void FailAsUsed(const fs::path& file, const Phrase& cause) {
  throw DatabaseBusyError(
      {file.string(), cause,
       Phrase::Tr("Nothing was changed. Close the calendar at every desk, and try again.")});
}

}  // namespace

bool HasJournal(const fs::path& file) {
  for (const char* suffix : {"-wal", "-shm", "-journal"}) {
    if (fs::exists(fs::symlink_status(file.string() + suffix))) {
      return true;
    }
  }
  return false;
}

UnusedFile::UnusedFile(const fs::path& file) : file_(file), notice_(Open()->TakeNotice()) {
  if (HasJournal(file_)) {
    FailAsUsed(file_, Phrase::Tr("Somebody has the calendar open."));
  }
  before_ = Look();
}

std::unique_ptr<FileStore> UnusedFile::Open() const {
  try {
    return OpenFileStore(file_.string(), StoreAccess::Exclusive, kWaitPolicy);
  } catch (const DatabaseBusyError&) {
    FailAsUsed(file_, Phrase::Tr("Somebody has the calendar open."));
  }
}

void UnusedFile::RequireUnchanged() const {
  if (HasJournal(file_) || Look() != before_) {
    FailAsUsed(file_, Phrase::Tr("Somebody used the calendar meanwhile."));
  }
}

UnusedFile::State UnusedFile::Look() const {
  return {.Size = fs::file_size(file_), .Changed = fs::last_write_time(file_)};
}

}  // namespace veyra
