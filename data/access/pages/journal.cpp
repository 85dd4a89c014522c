#include "data/access/pages/journal.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>

#include "data/access/pages/disk_call.h"
#include "data/access/pages/journal_text.h"

namespace veyra::access {

namespace {

FileProblem JournalNotWritten(const Phrase& why) {
  return {Phrase::Tr("The journal of the database cannot be written: %1.", why),
          Phrase::Tr("Check that the disk is not full and that you may write to the folder.")};
}

constexpr std::size_t kSector = 512;
constexpr PageNumber kFreeMapPage = 1;

/// Some file systems have no folders to flush, and some folders may not be read: what they promise
/// without it must do there.
void FlushFolder(const std::filesystem::path& database) {
  try {
    FlushFolderOf(database);
  } catch (const PosixFileError& error) {
    if (error.Number() == EIO || error.Number() == ENOSPC || error.Number() == EDQUOT) {
      throw;
    }
  }
}

/// Pages that other programs change whenever they write: the header, the map of free pages, and
/// the definitions of the tables that are written to.
std::set<PageNumber> PagesToCheck(PageFile& file, const PageImages& pages) {
  std::set<PageNumber> watched{0, kFreeMapPage};
  for (const auto& [number, page] : pages) {
    const auto kind = static_cast<PageKind>(page.front());
    const bool names_its_table =
        kind == PageKind::Data || kind == PageKind::IndexLeaf || kind == PageKind::IndexNode;
    if (names_its_table && ByteView(page).U32(4) < file.PageCount()) {
      watched.insert(ByteView(page).U32(4));
    }
  }
  for (const auto& [number, page] : pages) {
    watched.erase(number);
  }
  return watched;
}

Journal JournalOf(PageFile& file, const PageImages& pages, const std::string& what) {
  Journal journal{what, file.Size(), {}, {}};
  for (const PageNumber number : PagesToCheck(file, pages)) {
    if (number < file.PageCount()) {
      journal.Checks.push_back({number, Checksum(*file.ReadPage(number))});
    }
  }
  for (const auto& [number, after] : pages) {
    const Bytes before =
        number < file.PageCount() ? *file.ReadPage(number) : Bytes(file.PageSize());
    journal.Pages.push_back({number, before, after});
  }
  return journal;
}

PageImages PagesBefore(const Journal& journal, std::size_t page_size) {
  PageImages pages;
  for (const JournalPage& page : journal.Pages) {
    if (page.Number < journal.FileSize / page_size) {
      pages[page.Number] = page.Before;
    }
  }
  return pages;
}

std::optional<Journal> ReadJournal(const PageFile& file) {
  std::ifstream stream(JournalPath(file.Path()), std::ios::binary);
  const Bytes bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  return DecodeJournal(bytes, file.PageSize());
}

/// Pages may have been written in part: each sector is the one from before or the new one.
bool SectorsAreEither(const Bytes& page, const JournalPage& journal) {
  for (std::size_t at = 0; at < page.size(); at += kSector) {
    if (std::memcmp(&page[at], &journal.Before[at], kSector) != 0 &&
        std::memcmp(&page[at], &journal.After[at], kSector) != 0) {
      return false;
    }
  }
  return true;
}

bool SizeIsEither(const PageFile& file, const Journal& journal) {
  const std::uint64_t pages =
      journal.Pages.empty() ? 0 : std::uint64_t{1} + journal.Pages.back().Number;
  return file.Size() >= journal.FileSize &&
         file.Size() <= std::max(journal.FileSize, pages * file.PageSize());
}

/// Whether the file is the one that the journal was made for, the change made in it wholly, in part
/// or not at all: what is neither was written by somebody else since, who knew nothing of the
/// journal. That may be in the very pages that the change adds to the file.
bool Fits(PageFile& file, const Journal& journal) {
  return SizeIsEither(file, journal) &&
         std::all_of(journal.Checks.begin(), journal.Checks.end(),
                     [&](const JournalCheck& check) {
                       return check.Number < file.PageCount() &&
                              Checksum(*file.ReadPage(check.Number)) == check.Sum;
                     }) &&
         std::all_of(journal.Pages.begin(), journal.Pages.end(), [&](const JournalPage& page) {
           return page.Number >= file.PageCount() ||
                  SectorsAreEither(*file.ReadPage(page.Number), page);
         });
}

/// Whether the file holds the pages as they are here, and no others.
bool Holds(PageFile& file, const PageImages& pages, std::uint64_t size) {
  file.Refresh(true);
  return file.Size() == size && std::all_of(pages.begin(), pages.end(), [&](const auto& page) {
           return *file.ReadPage(page.first) == page.second;
         });
}

/// Makes sure that nobody carries the journal out, by removing or at least emptying it. Returns
/// whether it could. A loss of power may bring it back until the next change flushes the folder: to
/// carry it out once more changes nothing.
bool DropJournal(const std::filesystem::path& database) {
  const std::filesystem::path path = JournalPath(database);
  return unlink(path.c_str()) == 0 || errno == ENOENT || truncate(path.c_str(), 0) == 0;
}

/// Takes back a change whose pages could not all be written. Returns whether that succeeded.
bool TakeBack(PageFile& file, const Journal& journal) {
  const PageImages before = PagesBefore(journal, file.PageSize());
  try {
    if (!Holds(file, before, journal.FileSize)) {
      file.Write(before);
      file.CutTo(journal.FileSize);
      file.Flush();
    }
  } catch (const FileProblem&) {
    return false;
  }
  return DropJournal(file.Path());
}

void WriteJournal(const PageFile& file, const Bytes& bytes, const CommitObserver& tell) {
  bool is_complete = false;
  try {
    DiskCall(JournalNotWritten, [&] {
      const PosixFile journal(JournalPath(file.Path()), PosixFile::Use::Empty);
      journal.Write(bytes);
      is_complete = true;
      tell(CommitStep::JournalWritten);
      journal.Flush();
      FlushFolder(file.Path());
    });
  } catch (const FileProblem& problem) {
    if (!DropJournal(file.Path()) && is_complete) {
      throw OutcomeUnknown(problem);
    }
    throw;
  }
}

/// Gives the journal the first name that is free of "NAME.mdb-unfinished-change",
/// "NAME.mdb-unfinished-change-2" ...
UnfinishedChange SetAside(const PageFile& file, const Journal& journal) {
  const std::string name = file.Path().string() + "-unfinished-change";
  std::string kept = name;
  for (int i = 2; ::access(kept.c_str(), F_OK) == 0; ++i) {
    kept = name + "-" + std::to_string(i);
  }
  if (std::rename(JournalPath(file.Path()).c_str(), kept.c_str()) == 0) {
    return {journal.What, kept};
  }
  throw FileProblem(Phrase::Tr("The program broke off while it was writing %1, and another program "
                               "has changed the file since.",
                               journal.What),
                    Phrase::Tr("Look through the last bookings, then remove %1.",
                               JournalPath(file.Path()).filename().string()));
}

}  // namespace

std::filesystem::path JournalPath(const std::filesystem::path& database) {
  return database.string() + "-journal";
}

bool HasJournal(const std::filesystem::path& database) {
  struct stat status {};
  return stat(JournalPath(database).c_str(), &status) == 0 && status.st_size > 0;
}

void CommitPages(PageFile& file, const PageImages& pages, const std::string& what,
                 const CommitObserver& observer) {
  const CommitObserver tell = observer ? observer : [](CommitStep) {};
  const Journal journal = JournalOf(file, pages, what);
  WriteJournal(file, EncodeJournal(journal, file.PageSize()), tell);
  tell(CommitStep::JournalFlushed);
  try {
    file.Write(pages);
    tell(CommitStep::PagesWritten);
    file.Flush();
  } catch (const FileProblem& problem) {
    if (!TakeBack(file, journal)) {
      throw OutcomeUnknown(problem);
    }
    throw;
  }
  tell(CommitStep::PagesFlushed);
  // The change is made. A journal that cannot be dropped says the same as the file, and the next
  // change writes its own over it.
  DropJournal(file.Path());
  tell(CommitStep::Done);
}

PageImages PendingPages(PageFile& file) {
  PageImages pages;
  const auto journal = ReadJournal(file);
  if (journal && Fits(file, *journal)) {
    for (const JournalPage& page : journal->Pages) {
      pages[page.Number] = page.After;
    }
  }
  return pages;
}

std::optional<UnfinishedChange> Recover(PageFile& file) {
  file.SetOverlay({});
  const auto journal = ReadJournal(file);
  if (journal && !Fits(file, *journal)) {
    return SetAside(file, *journal);
  }
  if (journal) {
    file.Write(PendingPages(file));
    file.Flush();
  }
  DropJournal(file.Path());
  file.Refresh(true);
  return std::nullopt;
}

}  // namespace veyra::access
