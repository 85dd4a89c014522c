#pragma once

#include <optional>
#include <string>

#include "data/access/pages/page_file.h"
#include "data/access/read/snapshot.h"
#include "data/errors.h"
#include "data/waiting.h"

namespace veyra::access {

/// The change that another copy of this program may have left unfinished: its journal then lies
/// beside the file. Throws FileProblem.
class BrokenChange {
 public:
  /// `file` and `snapshot` must outlive it.
  BrokenChange(const std::string& file_name, const WaitPolicy& policy, PageFile& file,
               Snapshot& snapshot)
      : file_name_(file_name), policy_(policy), file_(file), snapshot_(snapshot) {}

  /// Finishes it. A file that is only read, or cannot be written just now, shows it as made.
  void Finish();

  /// Finishes it. REQUIRES: the file is locked for writing.
  void FinishUnderLock();

  /// What the operator is to be told, once, of a change that could not be finished.
  std::optional<Report> TakeNotice();

 private:
  bool FinishNow();
  void Show();

  std::string file_name_;
  WaitPolicy policy_;
  PageFile& file_;
  Snapshot& snapshot_;
  bool is_shown_ = false;
  std::optional<Report> notice_;
};

}  // namespace veyra::access
