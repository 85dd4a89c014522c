#pragma once

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace veyra {

/// Makes texts that nobody would type, the same ones in every run: by turns bytes of any value and
/// the given pieces in any order.
template <std::size_t N>
class RandomText {
 public:
  explicit RandomText(const std::array<std::string_view, N>& pieces) : pieces_(pieces) {}

  std::string Next() {
    std::string text;
    const bool of_pieces = Below(2) == 0;
    for (std::size_t left = Below(24); left > 0; --left) {
      if (of_pieces) {
        text += pieces_[Below(N)];
      } else {
        text += static_cast<char>(static_cast<unsigned char>(Below(256)));
      }
    }
    return text;
  }

 private:
  std::size_t Below(std::size_t bound) { return random_() % bound; }

  std::array<std::string_view, N> pieces_;
  std::mt19937 random_{20140305};
};

}  // namespace veyra
