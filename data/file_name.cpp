#include "data/file_name.h"

#include <algorithm>
#include <string>

namespace veyra {

std::filesystem::path NativePath(std::string_view file_name) {
  std::string native(file_name);
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

}  // namespace veyra
