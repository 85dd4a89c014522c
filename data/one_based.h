#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

namespace veyra {

/// N things that are counted from 1, as the days of a week, the half hours of a day and the cells
/// of a month are.
template <typename T, std::size_t N>
class OneBased {
 public:
  constexpr OneBased() = default;
  constexpr explicit OneBased(const std::array<T, N>& items) : items_(items) {}

  /// Throws std::out_of_range unless the number is one of 1 to N.
  constexpr T& operator[](std::integral auto number) { return items_[IndexOf(number)]; }
  constexpr const T& operator[](std::integral auto number) const { return items_[IndexOf(number)]; }

  /// The number of a thing that the iterator stands at.
  constexpr int NumberOf(typename std::array<T, N>::const_iterator place) const {
    return static_cast<int>(place - items_.begin()) + 1;
  }

  static constexpr std::size_t size() { return N; }
  constexpr auto begin() { return items_.begin(); }
  constexpr auto begin() const { return items_.begin(); }
  constexpr auto end() { return items_.end(); }
  constexpr auto end() const { return items_.end(); }

  bool operator==(const OneBased&) const = default;

 private:
  static constexpr std::size_t IndexOf(std::integral auto number) {
    if (std::cmp_less(number, 1) || std::cmp_greater(number, N)) {
      throw std::out_of_range("there is no entry " + std::to_string(number));
    }
    return static_cast<std::size_t>(number) - 1;
  }

  std::array<T, N> items_{};
};

}  // namespace veyra
