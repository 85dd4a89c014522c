#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "data/access/pages/commit_step.h"
#include "data/access/pages/page_file.h"

namespace veyra::access {

// A change is written so: the journal, flushed, as "NAME.mdb-journal" beside "NAME.mdb"; the pages
// into the file, flushed; the journal removed. A journal that is found when a file is opened tells
// how far the last program came. One that is complete is carried out again from its beginning to
// its end; with one that is not, the file has not been touched, and the journal is dropped. So a
// change is made whole or not at all, and one that was reported as made is never lost.
//
// A program that knows nothing of journals may have written to the file in between. Then the
// journal must not be carried out, for it would write over what that program wrote: the file stays
// as it is, and the journal is kept under another name.

std::filesystem::path JournalPath(const std::filesystem::path& database);

/// Writes changed pages into the file by way of the journal; durable on return. `what` says in
/// words what is being changed.
///
/// Throws FileProblem when the file is unchanged, and stays so; OutcomeUnknown when it could
/// neither be changed nor be left as it was: then the journal stays, and what Recover does with it
/// shows whether the change is made.
/// REQUIRES: Recover has been called; this program has the lock for writing.
void CommitPages(PageFile& file, const PageImages& pages, const std::string& what,
                 const CommitObserver& observer = {});

/// Whether a journal lies beside the database.
bool HasJournal(const std::filesystem::path& database);

/// A change that could not be finished.
struct UnfinishedChange {
  std::string What;              ///< What was being changed, in words.
  std::filesystem::path KeptAs;  ///< The name that its journal has now.
};

/// Finishes what a program that broke off has left: carries out a complete journal, drops another.
/// Returns the change when another program has written to the file since: then its journal is set
/// aside and the file is as it was. Throws FileProblem when the file cannot be written.
/// REQUIRES: this program has the lock for writing.
std::optional<UnfinishedChange> Recover(PageFile& file);

/// The pages that Recover would write; none without a complete journal that fits the file. For a
/// file that is only read, which shows them as if they were written.
PageImages PendingPages(PageFile& file);

}  // namespace veyra::access
