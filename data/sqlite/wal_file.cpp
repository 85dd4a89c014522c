#include "data/sqlite/wal_file.h"

#include <array>
#include <cstddef>
#include <fstream>
#include <span>
#include <vector>

#include "data/sqlite/page_digest.h"

namespace veyra::sqlite {

namespace {

using Bytes = std::span<const unsigned char>;

constexpr std::size_t kHeadBytes = 32;
constexpr std::size_t kFrameHeadBytes = 24;
constexpr std::uint32_t kMagic = 0x377F0682;  ///< Its last bit tells the order of the sums' bytes.
constexpr std::uint32_t kSmallestPage = 512;
constexpr std::uint32_t kLargestPage = 65536;

std::uint32_t BigEndian(Bytes bytes, std::size_t at) {
  return std::uint32_t{bytes[at]} << 24U | std::uint32_t{bytes[at + 1]} << 16U |
         std::uint32_t{bytes[at + 2]} << 8U | std::uint32_t{bytes[at + 3]};
}

std::uint32_t LittleEndian(Bytes bytes, std::size_t at) {
  return std::uint32_t{bytes[at + 3]} << 24U | std::uint32_t{bytes[at + 2]} << 16U |
         std::uint32_t{bytes[at + 1]} << 8U | std::uint32_t{bytes[at]};
}

/// The running checksum of a log, over its head and then over every frame.
class Sum {
 public:
  explicit Sum(bool is_big_endian) : is_big_endian_(is_big_endian) {}

  void Add(Bytes bytes) {
    for (std::size_t at = 0; at + 8 <= bytes.size(); at += 8) {
      first_ += Word(bytes, at) + second_;
      second_ += Word(bytes, at + 4) + first_;
    }
  }

  /// Whether it is the sum that is written there.
  bool Is(Bytes bytes, std::size_t at) const {
    return BigEndian(bytes, at) == first_ && BigEndian(bytes, at + 4) == second_;
  }

 private:
  std::uint32_t Word(Bytes bytes, std::size_t at) const {
    return is_big_endian_ ? BigEndian(bytes, at) : LittleEndian(bytes, at);
  }

  bool is_big_endian_;
  std::uint32_t first_ = 0;
  std::uint32_t second_ = 0;
};

bool Fill(std::istream& stream, std::span<unsigned char> bytes) {
  stream.read(reinterpret_cast<char*>(bytes.data()),  // NOLINT: bytes
              static_cast<std::streamsize>(bytes.size()));
  return stream.gcount() == static_cast<std::streamsize>(bytes.size());
}

/// A page in the log.
struct Frame {
  std::uint32_t Number;
  std::vector<std::uint64_t> Digests;  ///< Of its sectors.
  std::uint64_t At;                    ///< Where its bytes begin.
};

bool BearsMarksOf(Bytes head, Bytes frame) {
  return BigEndian(frame, 8) == BigEndian(head, 16) && BigEndian(frame, 12) == BigEndian(head, 20);
}

void Add(const Frame& frame, WalContents& contents) {
  auto& sectors = contents.Pages[frame.Number];
  sectors.resize(frame.Digests.size());
  for (std::size_t i = 0; i < sectors.size(); ++i) {
    sectors[i].insert(frame.Digests[i]);
  }
  contents.Latest[frame.Number] = frame.At;
}

}  // namespace

WalContents ReadWal(const std::string& log) {
  std::ifstream stream(log, std::ios::binary);
  std::array<unsigned char, kHeadBytes> head{};
  if (!Fill(stream, head) || (BigEndian(head, 0) & ~1U) != kMagic) {
    return {};
  }
  const std::uint32_t page_size = BigEndian(head, 8);
  Sum sum((BigEndian(head, 0) & 1U) != 0);
  sum.Add(Bytes(head).first(24));
  if (page_size < kSmallestPage || page_size > kLargestPage || !sum.Is(head, 24)) {
    return {};
  }
  WalContents contents{.Pages = {}, .Latest = {}, .PageSize = page_size, .Frames = 0};
  std::vector<Frame> unfinished;
  std::vector<unsigned char> frame(kFrameHeadBytes + page_size);
  for (std::uint64_t at = kHeadBytes; Fill(stream, frame) && BearsMarksOf(head, frame);
       at += frame.size()) {
    sum.Add(Bytes(frame).first(8));
    sum.Add(Bytes(frame).subspan(kFrameHeadBytes));
    if (!sum.Is(frame, 16)) {
      break;
    }
    const Bytes page = Bytes(frame).subspan(kFrameHeadBytes);
    unfinished.push_back({BigEndian(frame, 0), SectorDigests(page), at + kFrameHeadBytes});
    if (BigEndian(frame, 4) != 0) {
      for (const Frame& done : unfinished) {
        Add(done, contents);
      }
      contents.Frames += static_cast<std::uint32_t>(unfinished.size());
      unfinished.clear();
    }
  }
  return contents;
}

}  // namespace veyra::sqlite
