#pragma once

#include <chrono>

namespace veyra {

enum class StoreAccess {
  ReadOnly,
  ReadWrite,
  Alone,  ///< For reading and writing, and nobody else has the file open for writing meanwhile.
};

/// How long a store waits for another program to let go of the file before it gives up.
inline constexpr std::chrono::milliseconds kStoreTimeout{5000};

}  // namespace veyra
