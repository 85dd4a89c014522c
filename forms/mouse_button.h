#pragma once

namespace veyra {

enum class MouseButton { Left, Right, Other };

}  // namespace veyra
