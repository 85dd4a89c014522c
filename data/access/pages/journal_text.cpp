#include "data/access/pages/journal_text.h"

#include <algorithm>
#include <string_view>

namespace veyra::access {

namespace {

constexpr std::string_view kMagic = "VeyraJ02";
constexpr std::size_t kHeadBytes = 32;
constexpr std::size_t kSumBytes = 8;
constexpr std::size_t kCheckBytes = 4 + kSumBytes;

std::size_t PageBytes(std::size_t page_size) {
  return 4 + 2 * page_size;
}

void AppendAll(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

/// Reads one part after another.
class Parts {
 public:
  explicit Parts(ByteView bytes) : bytes_(bytes) {}

  ByteView Take(std::size_t length) {
    const ByteView part = bytes_.Slice(at_, length);
    at_ += length;
    return part;
  }

 private:
  ByteView bytes_;
  std::size_t at_ = 0;
};

bool IsComplete(ByteView view, std::size_t page_size) {
  if (view.size() < kHeadBytes + kSumBytes ||
      !std::equal(kMagic.begin(), kMagic.end(), view.data()) || view.U32(8) != page_size) {
    return false;
  }
  const std::uint64_t size = kHeadBytes + view.U32(12) * std::uint64_t{PageBytes(page_size)} +
                             view.U32(16) * std::uint64_t{kCheckBytes} + view.U32(20);
  return view.size() == size + kSumBytes &&
         static_cast<std::uint64_t>(view.I64(size)) == Checksum(view.Slice(0, size));
}

}  // namespace

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

Bytes EncodeJournal(const Journal& journal, std::size_t page_size) {
  Bytes bytes(kMagic.begin(), kMagic.end());
  bytes.reserve(kHeadBytes + journal.What.size() + journal.Checks.size() * kCheckBytes +
                journal.Pages.size() * PageBytes(page_size) + kSumBytes);
  Append(bytes, static_cast<std::uint32_t>(page_size));
  Append(bytes, static_cast<std::uint32_t>(journal.Pages.size()));
  Append(bytes, static_cast<std::uint32_t>(journal.Checks.size()));
  Append(bytes, static_cast<std::uint32_t>(journal.What.size()));
  Append(bytes, journal.FileSize);
  bytes.insert(bytes.end(), journal.What.begin(), journal.What.end());
  for (const JournalCheck& check : journal.Checks) {
    Append(bytes, check.Number);
    Append(bytes, check.Sum);
  }
  for (const JournalPage& page : journal.Pages) {
    Append(bytes, page.Number);
    AppendAll(bytes, page.Before);
    AppendAll(bytes, page.After);
  }
  Append(bytes, Checksum(bytes));
  return bytes;
}

std::optional<Journal> DecodeJournal(const Bytes& bytes, std::size_t page_size) {
  const ByteView view(bytes);
  if (!IsComplete(view, page_size)) {
    return std::nullopt;
  }
  Journal journal;
  journal.FileSize = static_cast<std::uint64_t>(view.I64(24));
  Parts parts(view.From(kHeadBytes));
  const ByteView words = parts.Take(view.U32(20));
  journal.What.assign(words.data(), words.data() + words.size());
  for (std::uint32_t i = view.U32(16); i > 0; --i) {
    const ByteView check = parts.Take(kCheckBytes);
    journal.Checks.push_back({check.U32(0), static_cast<std::uint64_t>(check.I64(4))});
  }
  for (std::uint32_t i = view.U32(12); i > 0; --i) {
    const ByteView page = parts.Take(PageBytes(page_size));
    journal.Pages.push_back({page.U32(0), page.Slice(4, page_size).Copy(),
                             page.Slice(4 + page_size, page_size).Copy()});
  }
  return journal;
}

}  // namespace veyra::access
