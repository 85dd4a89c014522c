#include "data/access/format/file_header.h"

#include <algorithm>
#include <array>
#include <cmath>

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
  throw FileProblem("The database is of a newer kind than Access 2003.",
                    "Save it in Access as an Access 2000 or 2002-2003 database (.mdb).");
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

bool HasPassword(ByteView unmasked, Format version) {
  const std::size_t length = version == Format::Jet3 ? 20 : 40;
  const std::uint32_t mask = version == Format::Jet3 ? 0 : WholeDays(unmasked.Double(0x72));
  for (std::size_t i = 0; i < length; i += 4) {
    if ((unmasked.U32(0x42 + i) ^ mask) != 0) {
      return true;
    }
  }
  return false;
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
    throw FileProblem("The file is not an Access database.", "Check that it is the right file.");
  }
  if (IsNewer(first_bytes)) {
    RefuseNewer();
  }
  Bytes bytes = first_bytes.Slice(0, kHeaderBytes).Copy();
  FileHeader header;
  header.Version = VersionOf(bytes[0x14]);
  Mask(bytes, header.Version);
  const ByteView unmasked(bytes);
  header.CodePage = unmasked.U16(0x3C);
  header.DatabaseKey = unmasked.U32(0x3E);
  if (HasPassword(unmasked, header.Version)) {
    throw FileProblem("The database is protected by a password.",
                      "Remove the database password in Access.");
  }
  return header;
}

void MaskHeader(Bytes& page_0) {
  Mask(page_0, Format::Jet4);
}

}  // namespace veyra::access
