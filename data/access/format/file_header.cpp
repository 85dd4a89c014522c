#include "data/access/format/file_header.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <vector>

#include "data/access/format/rc4.h"

namespace veyra::access {

namespace {

constexpr std::array<Byte, 19> kSignature = {0,   1,   0,   0,   'S', 't', 'a', 'n', 'd', 'a',
                                             'r', 'd', ' ', 'J', 'e', 't', ' ', 'D', 'B'};
constexpr std::array<Byte, 15> kNewerName = {'S', 't', 'a', 'n', 'd', 'a', 'r', 'd',
                                             ' ', 'A', 'C', 'E', ' ', 'D', 'B'};
constexpr std::array<Byte, 4> kMaskKey = {0xC7, 0xDA, 0x39, 0x6B};
constexpr std::size_t kMaskedFrom = 0x18;
constexpr std::size_t kMaskedJet3 = 126;
constexpr std::size_t kMaskedJet4 = 128;

[[noreturn]] void RefuseNewer() {
  throw FileProblem(
      Phrase::Tr("The database is of a newer kind than Access 2003."),
      Phrase::Tr("Save it in Access as an Access 2000 or 2002-2003 database (.mdb)."));
}

bool IsNewer(ByteView bytes) {
  return bytes.size() >= 4 + kNewerName.size() &&
         std::equal(kNewerName.begin(), kNewerName.end(), bytes.data() + 4);
}

Format VersionOf(Byte version) {
  switch (version) {
    case 0:
      return Format::Jet3;
    case 1:
      return Format::Jet4;
    default:
      RefuseNewer();
  }
}

std::uint32_t WholeDays(double creation_date) {
  if (!std::isfinite(creation_date) || std::abs(creation_date) > 2e9) {
    return 0;
  }
  return static_cast<std::uint32_t>(static_cast<std::int64_t>(creation_date));
}

/// The bytes of the password, four at a time.
std::vector<std::uint32_t> Password(ByteView unmasked, Format version) {
  const std::size_t length = version == Format::Jet3 ? 20 : 40;
  const std::uint32_t mask = version == Format::Jet3 ? 0 : WholeDays(unmasked.Double(0x72));
  std::vector<std::uint32_t> words;
  for (std::size_t i = 0; i < length; i += 4) {
    words.push_back(unmasked.U32(0x42 + i) ^ mask);
  }
  return words;
}

bool HasPassword(ByteView unmasked, Format version) {
  const std::vector<std::uint32_t> words = Password(unmasked, version);
  return std::any_of(words.begin(), words.end(), [](std::uint32_t word) { return word != 0; });
}

/// A flipped bit of the password is one bit; one of the date that masks it changes all words alike.
bool IsFlippedBit(const std::vector<std::uint32_t>& words) {
  const auto is_first = [&](std::uint32_t word) { return word == words.front(); };
  int bits = 0;
  for (const std::uint32_t word : words) {
    bits += std::popcount(word);
  }
  return bits == 1 || std::all_of(words.begin(), words.end(), is_first);
}

[[noreturn]] void RefusePassword() {
  throw FileProblem(Phrase::Tr("The database is protected by a password."),
                    Phrase::Tr("Remove the database password in Access."));
}

void ReadUnmasked(ByteView unmasked, FileHeader& header) {
  header.CodePage = unmasked.U16(0x3C);
  header.DatabaseKey = unmasked.U32(0x3E);
}

void Mask(Bytes& bytes, Format version) {
  const std::size_t length = version == Format::Jet3 ? kMaskedJet3 : kMaskedJet4;
  ApplyRc4(kMaskKey, std::span(bytes).subspan(kMaskedFrom, length));
}

}  // namespace

bool HasAccessSignature(ByteView first_bytes) {
  return IsNewer(first_bytes) ||
         (first_bytes.size() >= kSignature.size() &&
          std::equal(kSignature.begin(), kSignature.end(), first_bytes.data()));
}

FileHeader ReadFileHeader(ByteView first_bytes) {
  if (!HasAccessSignature(first_bytes)) {
    throw FileProblem(Phrase::Tr("The file is not an Access database."),
                      Phrase::Tr("Check that it is the right file."));
  }
  if (IsNewer(first_bytes)) {
    RefuseNewer();
  }
  Bytes bytes = first_bytes.Slice(0, kHeaderBytes).Copy();
  FileHeader header;
  header.Version = VersionOf(bytes[0x14]);
  Mask(bytes, header.Version);
  const ByteView unmasked(bytes);
  ReadUnmasked(unmasked, header);
  if (HasPassword(unmasked, header.Version)) {
    RefusePassword();
  }
  return header;
}

std::optional<FileHeader> ReadDamagedHeader(ByteView first_bytes, std::optional<Format> version) {
  if (IsNewer(first_bytes)) {
    RefuseNewer();
  }
  if (!HasAccessSignature(first_bytes) || first_bytes.size() < kHeaderBytes) {
    return std::nullopt;
  }
  Bytes bytes = first_bytes.Slice(0, kHeaderBytes).Copy();
  FileHeader header;
  header.Version = version ? *version : VersionOf(bytes[0x14]);
  Mask(bytes, header.Version);
  const ByteView unmasked(bytes);
  ReadUnmasked(unmasked, header);
  if (HasPassword(unmasked, header.Version) && !IsFlippedBit(Password(unmasked, header.Version))) {
    RefusePassword();
  }
  return header;
}

void MaskHeader(Bytes& page_0) {
  Mask(page_0, Format::Jet4);
}

}  // namespace veyra::access
