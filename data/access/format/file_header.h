#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "data/access/format/bytes.h"

namespace veyra::access {

// Page 0:
//
//   0x00  00 01 00 00
//   0x04  "Standard Jet DB" 00
//   0x14  version: 0 Jet 3, 1 Jet 4, more for newer formats
//   0x18  masked with RC4 under the key C7 DA 39 6B, 126 bytes in Jet 3, 128 in Jet 4:
//     0x3C  code page, 2 bytes
//     0x3E  database key, 4 bytes: 0, or what all other pages are encoded with
//     0x42  database password, 20 bytes in Jet 3; 40 in Jet 4, there xored with the whole days of
//           the creation date as a 32-bit number, over and over
//     0x72  creation date, a double: days since 1899-12-30

enum class Format { Jet3, Jet4 };

/// What page 0 tells of a database file.
struct FileHeader {
  Format Version = Format::Jet4;
  std::uint16_t CodePage = 1252;  ///< Of the texts of a Jet 3 file.
  std::uint32_t DatabaseKey = 0;  ///< Not 0: pages are encoded.

  std::size_t PageSize() const { return Version == Format::Jet3 ? 2048 : 4096; }
  bool IsEncoded() const { return DatabaseKey != 0; }
};

/// How many bytes of a file ReadFileHeader needs.
inline constexpr std::size_t kHeaderBytes = 0x98;

/// Whether a file that begins so is an Access file of any version.
bool HasAccessSignature(ByteView first_bytes);

/// Reads the beginning of page 0. Throws FileProblem when the bytes are too few or no Access file,
/// or when the file is of a newer version or has a database password.
FileHeader ReadFileHeader(ByteView first_bytes);

/// What page 0 of a damaged file still tells; nothing when it does not even begin as one. `version`
/// is what the other pages tell, if they tell anything, and then goes before its own. Throws
/// FileProblem for a newer version or a password, unless that is not a text but a flipped bit.
std::optional<FileHeader> ReadDamagedHeader(ByteView first_bytes, std::optional<Format> version);

/// Masks, or unmasks, the masked part of a Jet 4 page 0.
void MaskHeader(Bytes& page_0);

}  // namespace veyra::access
