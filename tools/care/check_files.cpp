#include "tools/care/check_files.h"

#include <fcntl.h>
#include <unistd.h>

#include "data/errors.h"
#include "data/open_store.h"
#include "tools/care/rolling_backups.h"
#include "tools/plain_text.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr int kOldBackup = 7;

std::string NameOf(const fs::path& path) {
  return OneLine(path.filename().string());
}

/// A log that holds no change does no harm, and the next change uses it.
bool IsEmpty(const fs::path& log) {
  std::error_code gone;
  return fs::file_size(log, gone) == 0 && !gone;
}

void CheckLogs(const fs::path& calendar, Findings& findings) {
  if (IsInUse(calendar)) {
    return;
  }
  for (const fs::path& log : LogsBeside(calendar)) {
    if (IsEmpty(log)) {
      continue;
    }
    findings.push_back(
        {.Kind = "log-left",
         .What = Phrase::Tr("%1 was left by a calendar that was not closed properly.", NameOf(log)),
         .Advice = Phrase::Tr("Start the calendar once and close it. Never move or remove one of "
                              "the two files without the other.")});
  }
}

void CheckUnfinished(const fs::path& folder, Findings& findings) {
  std::error_code unreadable;
  for (const auto& entry : fs::directory_iterator(folder, unreadable)) {
    if (!entry.path().filename().string().starts_with(".unfinished-")) {
      continue;
    }
    findings.push_back(
        {.Kind = "unfinished",
         .What = Phrase::Tr("%1 was left by a command that broke off.", NameOf(entry.path())),
         .Advice = Phrase::Tr("Remove it when no veyra-data is running.")});
  }
}

void CheckGuests(const fs::path& folder, Findings& findings) {
  try {
    const auto guests = OpenStore((folder / "Veyra.mdb").string(), StoreAccess::ReadOnly);
    guests->Select(ParseQuery("SELECT * FROM Guest"));
  } catch (const DatabaseBusyError&) {
    // The program that it belongs to is writing to it, so it is in use.
  } catch (const DatabaseError& error) {
    findings.push_back(
        {.Kind = "guests",
         .What = Phrase::Tr("The guest database Veyra.mdb: %1", error.report().Cause),
         .Advice = error.report().Advice});
  }
}

void CheckBackups(const fs::path& folder, Date today, Findings& findings) {
  std::error_code unreachable;
  if (!fs::is_directory(folder / kBackupFolder, unreachable)) {
    return;
  }
  const auto newest = NewestBackup(folder / kBackupFolder);
  if (newest && DaysBetween(*newest, today) <= kOldBackup) {
    return;
  }
  findings.push_back(
      {.Kind = "old-backup",
       .What = newest ? Phrase::Tr("The newest copy in backups is of %1.", DateText(*newest))
                      : Phrase::Tr("There is no copy in backups."),
       .Advice = Phrase::Tr("Run \"veyra-data backup --rolling\" and see what it "
                            "says.")});
}

}  // namespace

bool IsInUse(const fs::path& file) {
  const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) {
    return false;
  }
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  const bool is_locked = ::fcntl(descriptor, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
  ::close(descriptor);
  return is_locked;
}

std::vector<fs::path> LogsBeside(const fs::path& file) {
  std::vector<fs::path> logs;
  for (const char* suffix : {"-wal", "-shm", "-journal"}) {
    const fs::path log = file.string() + suffix;
    std::error_code unreachable;
    if (fs::exists(fs::symlink_status(log, unreachable))) {
      logs.push_back(log);
    }
  }
  return logs;
}

Findings CheckFolder(const fs::path& calendar, Date today) {
  Findings findings;
  CheckLogs(calendar, findings);
  CheckUnfinished(calendar.parent_path(), findings);
  CheckGuests(calendar.parent_path(), findings);
  CheckBackups(calendar.parent_path(), today, findings);
  return findings;
}

}  // namespace veyra
