#include "data/access/pages/journal.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace veyra::access {

namespace {

constexpr std::string_view kMagic = "VeyraJ01";
constexpr std::size_t kHeadBytes = 20;
constexpr std::size_t kChecksumBytes = 8;
constexpr std::size_t kSector = 512;

struct JournalPage {
  PageNumber Number = 0;
  Bytes Before;
  Bytes After;
};

struct Journal {
  PageNumber PageCount = 0;
  std::vector<JournalPage> Pages;
};

[[noreturn]] void FailFor(const std::string& what) {
  throw FileProblem(what + ": " + std::strerror(errno) + ".",
                    "Check that the disk is not full and that you may write to the folder.");
}

/// A file descriptor that closes itself.
class OpenFile {
 public:
  OpenFile(const std::filesystem::path& path, int flags)
      : descriptor_(open(path.c_str(), flags | O_CLOEXEC, 0666)) {
    if (descriptor_ < 0) {
      FailFor("The journal " + path.filename().string() + " cannot be written");
    }
  }
  ~OpenFile() { close(descriptor_); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  void Write(const Bytes& bytes) const {
    std::size_t done = 0;
    while (done < bytes.size()) {
      const ssize_t written = write(descriptor_, bytes.data() + done, bytes.size() - done);
      if (written < 0 && errno != EINTR) {
        FailFor("The journal of the database cannot be written");
      }
      done += static_cast<std::size_t>(std::max<ssize_t>(written, 0));
    }
  }

  void Flush() const {
    if (fsync(descriptor_) != 0) {
      FailFor("The journal of the database cannot be written");
    }
  }

 private:
  int descriptor_;
};

/// Some file systems have no folders to flush: what they promise without it must do there.
void FlushFolder(const std::filesystem::path& database) {
  const std::filesystem::path folder = database.parent_path();
  const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor >= 0) {
    fsync(descriptor);
    close(descriptor);
  }
}

std::uint64_t Checksum(ByteView bytes) {
  constexpr std::uint64_t kPrime = 0x100000001B3;
  std::uint64_t sum = 0xCBF29CE484222325;
  std::size_t at = 0;
  for (; at + 8 <= bytes.size(); at += 8) {
    sum = (sum ^ static_cast<std::uint64_t>(bytes.I64(at))) * kPrime;
    sum ^= sum >> 29U;
  }
  for (; at < bytes.size(); ++at) {
    sum = (sum ^ bytes.U8(at)) * kPrime;
  }
  return sum;
}

/// What a change does away with.
struct Before {
  PageNumber PageCount = 0;
  PageImages Pages;
};

Before PagesBefore(PageFile& file, const PageImages& pages) {
  Before before{file.PageCount(), {}};
  for (const auto& [number, page] : pages) {
    if (number < before.PageCount) {
      before.Pages[number] = *file.ReadPage(number);
    }
  }
  return before;
}

Bytes EncodeJournal(const PageFile& file, const Before& old, const PageImages& pages) {
  Bytes bytes(kMagic.begin(), kMagic.end());
  bytes.reserve(kHeadBytes + pages.size() * (4 + 2 * file.PageSize()) + kChecksumBytes);
  Append(bytes, static_cast<std::uint32_t>(file.PageSize()));
  Append(bytes, old.PageCount);
  Append(bytes, static_cast<std::uint32_t>(pages.size()));
  for (const auto& [number, after] : pages) {
    const auto known = old.Pages.find(number);
    const Bytes before = known == old.Pages.end() ? Bytes(file.PageSize()) : known->second;
    Append(bytes, number);
    bytes.insert(bytes.end(), before.begin(), before.end());
    bytes.insert(bytes.end(), after.begin(), after.end());
  }
  Append(bytes, Checksum(bytes));
  return bytes;
}

Bytes ReadWhole(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// The journal in these bytes, or nothing when it is not complete.
std::optional<Journal> DecodeJournal(const Bytes& bytes, std::size_t page_size) {
  const ByteView view(bytes);
  if (bytes.size() < kHeadBytes + kChecksumBytes ||
      !std::equal(kMagic.begin(), kMagic.end(), bytes.begin()) || view.U32(8) != page_size) {
    return std::nullopt;
  }
  const std::size_t entry = 4 + 2 * page_size;
  const std::size_t size = kHeadBytes + view.U32(16) * entry;
  if (bytes.size() != size + kChecksumBytes ||
      static_cast<std::uint64_t>(view.I64(size)) != Checksum(view.Slice(0, size))) {
    return std::nullopt;
  }
  Journal journal{view.U32(12), {}};
  for (std::size_t at = kHeadBytes; at < size; at += entry) {
    journal.Pages.push_back({view.U32(at), view.Slice(at + 4, page_size).Copy(),
                             view.Slice(at + 4 + page_size, page_size).Copy()});
  }
  return journal;
}

bool SectorsAreEither(const Bytes& page, const JournalPage& journal) {
  for (std::size_t at = 0; at < page.size(); at += kSector) {
    if (std::memcmp(&page[at], &journal.Before[at], kSector) != 0 &&
        std::memcmp(&page[at], &journal.After[at], kSector) != 0) {
      return false;
    }
  }
  return true;
}

/// Pages may have been written in part: each sector is the one from before or the new one. A page
/// with another was written by somebody else since, who knew nothing of the journal.
void CheckFits(PageFile& file, const Journal& journal) {
  for (const JournalPage& page : journal.Pages) {
    if (page.Number < std::min(file.PageCount(), journal.PageCount) &&
        !SectorsAreEither(*file.ReadPage(page.Number), page)) {
      throw FileProblem(
          "A change of the database broke off, and another program has changed the file since.",
          "Look through the last bookings, then remove " +
              JournalPath(file.Path()).filename().string() + ".");
    }
  }
}

/// A loss of power may bring the journal back, until the next change flushes the folder; to carry
/// it out once more changes nothing.
void RemoveJournal(const std::filesystem::path& database) {
  if (unlink(JournalPath(database).c_str()) != 0 && errno != ENOENT) {
    FailFor("The journal of the database cannot be removed");
  }
}

/// Takes a change back whose pages could not all be written. Where even that fails the journal
/// stays, and the next opening completes the change.
void Undo(PageFile& file, const Before& before) {
  file.Write(before.Pages);
  file.CutTo(before.PageCount);
  file.Flush();
  RemoveJournal(file.Path());
}

}  // namespace

std::filesystem::path JournalPath(const std::filesystem::path& database) {
  return database.string() + "-journal";
}

bool HasJournal(const std::filesystem::path& database) {
  return ::access(JournalPath(database).c_str(), F_OK) == 0;
}

void CommitPages(PageFile& file, const PageImages& pages, const CommitObserver& observer) {
  const auto tell = [&](CommitStep step) {
    if (observer) {
      observer(step);
    }
  };
  const Before before = PagesBefore(file, pages);
  const Bytes bytes = EncodeJournal(file, before, pages);
  try {
    const OpenFile journal(JournalPath(file.Path()), O_WRONLY | O_CREAT | O_TRUNC);
    journal.Write(bytes);
    tell(CommitStep::JournalWritten);
    journal.Flush();
    FlushFolder(file.Path());
  } catch (const FileProblem&) {
    unlink(JournalPath(file.Path()).c_str());
    throw;
  }
  tell(CommitStep::JournalFlushed);
  try {
    file.Write(pages);
    tell(CommitStep::PagesWritten);
    file.Flush();
  } catch (const FileProblem&) {
    Undo(file, before);
    throw;
  }
  tell(CommitStep::PagesFlushed);
  RemoveJournal(file.Path());
  tell(CommitStep::Done);
}

PageImages PendingPages(PageFile& file) {
  PageImages pages;
  if (const auto journal = DecodeJournal(ReadWhole(JournalPath(file.Path())), file.PageSize())) {
    CheckFits(file, *journal);
    for (const JournalPage& page : journal->Pages) {
      pages[page.Number] = page.After;
    }
  }
  return pages;
}

void Recover(PageFile& file) {
  file.Refresh(true);
  const PageImages pages = PendingPages(file);
  if (!pages.empty()) {
    file.Write(pages);
    file.Flush();
  }
  RemoveJournal(file.Path());
  file.Refresh(true);
}

}  // namespace veyra::access
