#include "data/access/broken_change.h"

#include <utility>

#include "data/access/pages/file_lock.h"
#include "data/access/pages/journal.h"

namespace veyra::access {

namespace {

Report NotFinished(const std::string& file_name, const UnfinishedChange& change) {
  return {file_name,
          Phrase::Tr("The program broke off while it was writing %1, and another program has "
                     "changed the file since. This change was not finished.",
                     change.What),
          Phrase::Tr("Look whether it is there, and make it again if it is not. What was to be "
                     "written is kept as %1.",
                     change.KeptAs.filename().string())};
}

}  // namespace

void BrokenChange::Finish() {
  const bool has_journal = HasJournal(file_.Path());
  if (has_journal && file_.IsWritable() && FinishNow()) {
    return;
  }
  if (has_journal || is_shown_) {
    Show();
  }
}

/// Returns false when the file cannot be written.
bool BrokenChange::FinishNow() {
  const FileLock lock(file_.File().Descriptor(), FileLock::Kind::Writing, policy_);
  try {
    FinishUnderLock();
    return true;
  } catch (const FileProblem&) {
    return false;
  }
}

void BrokenChange::FinishUnderLock() {
  if (!HasJournal(file_.Path())) {
    return;
  }
  const auto unfinished = Recover(file_);
  is_shown_ = false;
  snapshot_.Forget();
  if (unfinished) {
    notice_ = NotFinished(file_name_, *unfinished);
  }
}

void BrokenChange::Show() {
  const FileLock lock(file_.File().Descriptor(), FileLock::Kind::Reading, policy_);
  is_shown_ = HasJournal(file_.Path());
  file_.SetOverlay({});
  file_.SetOverlay(is_shown_ ? PendingPages(file_) : PageImages());
  snapshot_.Forget();
}

std::optional<Report> BrokenChange::TakeNotice() {
  return std::exchange(notice_, std::nullopt);
}

}  // namespace veyra::access
