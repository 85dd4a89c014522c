#pragma once

namespace veyra {

enum class StoreAccess {
  ReadOnly,
  ReadWrite,
  Exclusive,  ///< For reading and writing, and nobody else has the file open for writing meanwhile.
};

}  // namespace veyra
