#include "data/access/format/rc4.h"

#include <array>
#include <numeric>
#include <utility>

namespace veyra::access {

void ApplyRc4(std::span<const Byte> key, std::span<Byte> bytes) {
  std::array<Byte, 256> state{};
  std::iota(state.begin(), state.end(), Byte{0});
  Byte mixed = 0;
  for (std::size_t i = 0; i < state.size(); ++i) {
    mixed = static_cast<Byte>(mixed + state[i] + key[i % key.size()]);
    std::swap(state[i], state[mixed]);
  }
  Byte first = 0;
  Byte second = 0;
  for (Byte& byte : bytes) {
    first = static_cast<Byte>(first + 1);
    second = static_cast<Byte>(second + state[first]);
    std::swap(state[first], state[second]);
    byte = static_cast<Byte>(byte ^ state[static_cast<Byte>(state[first] + state[second])]);
  }
}

}  // namespace veyra::access
