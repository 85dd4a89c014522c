#pragma once

#include <filesystem>

#include "data/access/pages/commit_step.h"
#include "data/access/pages/page_file.h"

namespace veyra::access {

// The journal of a change, "NAME.mdb-journal" beside "NAME.mdb":
//
//   "VeyraJ01"
//   page size, number of pages the file had, number of pages that follow; 4 bytes each
//   for each page: its number (4 bytes), what it held (all 0 for one past the end), what it is to
//   hold
//   checksum of all that stands before, 8 bytes
//
// A change is written so: the journal, flushed; the pages into the file, flushed; the journal
// removed. A journal that is found when a file is opened tells how far the last program came. One
// that is complete is carried out again from its beginning to its end; with one that is not, the
// file has not been touched, and the journal is dropped. So a change is made whole or not at all,
// and one that was reported as made is never lost.

std::filesystem::path JournalPath(const std::filesystem::path& database);

/// Writes changed pages into the file by way of the journal; durable on return. Throws FileProblem:
/// the file is then unchanged, or is made so that the next opening completes the change.
/// REQUIRES: no journal is there; this program has the lock for writing.
void CommitPages(PageFile& file, const PageImages& pages, const CommitObserver& observer = {});

/// Whether a journal lies beside the database.
bool HasJournal(const std::filesystem::path& database);

/// Finishes what a program that broke off has left: carries out a complete journal, drops another.
/// Throws FileProblem when the file has been changed by another program since.
/// REQUIRES: this program has the lock for writing.
void Recover(PageFile& file);

/// The pages that Recover would write; none without a complete journal. For a file that is only
/// read, which shows them as if they were written.
PageImages PendingPages(PageFile& file);

}  // namespace veyra::access
