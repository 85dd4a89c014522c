#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/access/pages/page_file.h"

namespace veyra::access {

// The bytes of a journal:
//
//   "VeyraJ02"
//   page size, number of pages that follow, number of checks that follow, length of the words that
//   follow; 4 bytes each
//   size of the file, 8 bytes
//   what is being changed, in words, UTF-8
//   for each check: the number of a page that does not change (4 bytes), its checksum (8 bytes)
//   for each page: its number (4 bytes), what it held (all 0 for one past the end), what it is to
//   hold
//   checksum of all that stands before, 8 bytes

struct JournalPage {
  PageNumber Number = 0;
  Bytes Before;
  Bytes After;
};

/// A page that the change leaves as it is, and other programs hardly ever when they write.
struct JournalCheck {
  PageNumber Number = 0;
  std::uint64_t Sum = 0;
};

struct Journal {
  std::string What;            ///< What is being changed, in words.
  std::uint64_t FileSize = 0;  ///< In bytes, before the change.
  std::vector<JournalCheck> Checks;
  std::vector<JournalPage> Pages;  ///< Their numbers rising.
};

std::uint64_t Checksum(ByteView bytes);

Bytes EncodeJournal(const Journal& journal, std::size_t page_size);

/// The journal in these bytes, or nothing when it is not complete.
std::optional<Journal> DecodeJournal(const Bytes& bytes, std::size_t page_size);

}  // namespace veyra::access
