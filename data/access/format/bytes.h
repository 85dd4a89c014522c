#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include "data/access/format/problem.h"

namespace veyra::access {

using Byte = std::uint8_t;
using Bytes = std::vector<Byte>;

static_assert(std::endian::native == std::endian::little,
              "numbers are copied as the file has them");

/// A run of bytes of a file, read as little-endian numbers. Every read is checked: one that would
/// leave the run throws DamagedFile. Does not own the bytes.
class ByteView {
 public:
  ByteView() = default;
  ByteView(const Byte* data, std::size_t size) : data_(data), size_(size) {}
  ByteView(const Bytes& bytes) : data_(bytes.data()), size_(bytes.size()) {}  // NOLINT: a view

  const Byte* data() const { return data_; }
  std::size_t size() const { return size_; }

  std::uint8_t U8(std::size_t at) const { return Read<std::uint8_t>(at); }
  std::uint16_t U16(std::size_t at) const { return Read<std::uint16_t>(at); }
  std::uint32_t U24(std::size_t at) const {
    return U16(at) | (static_cast<std::uint32_t>(U8(at + 2)) << 16U);
  }
  std::uint32_t U32(std::size_t at) const { return Read<std::uint32_t>(at); }
  std::int16_t I16(std::size_t at) const { return Read<std::int16_t>(at); }
  std::int32_t I32(std::size_t at) const { return Read<std::int32_t>(at); }
  std::int64_t I64(std::size_t at) const { return Read<std::int64_t>(at); }
  float Single(std::size_t at) const { return Read<float>(at); }
  double Double(std::size_t at) const { return Read<double>(at); }

  /// The `length` bytes from `at` on.
  ByteView Slice(std::size_t at, std::size_t length) const {
    Need(at, length);
    return {data_ + at, length};
  }

  /// All bytes from `at` on.
  ByteView From(std::size_t at) const {
    Need(at, 0);
    return {data_ + at, size_ - at};
  }

  Bytes Copy() const { return {data_, data_ + size_}; }

 private:
  void Need(std::size_t at, std::size_t length) const {
    if (at > size_ || length > size_ - at) {
      throw DamagedFile();
    }
  }

  template <typename Number>
  Number Read(std::size_t at) const {
    Need(at, sizeof(Number));
    Number number;
    std::memcpy(&number, data_ + at, sizeof(Number));
    return number;
  }

  const Byte* data_ = nullptr;
  std::size_t size_ = 0;
};

/// Writes a number, little-endian, at `at`. Throws DamagedFile when it would leave the bytes.
template <typename Number>
void Put(std::span<Byte> bytes, std::size_t at, Number number) {
  if (at > bytes.size() || sizeof(Number) > bytes.size() - at) {
    throw DamagedFile();
  }
  std::memcpy(bytes.data() + at, &number, sizeof(Number));
}

/// Adds a number, little-endian, after the last byte.
template <typename Number>
void Append(Bytes& bytes, Number number) {
  const std::size_t at = bytes.size();
  bytes.resize(at + sizeof(Number));
  Put(bytes, at, number);
}

}  // namespace veyra::access
