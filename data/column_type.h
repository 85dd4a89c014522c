#pragma once

namespace veyra {

enum class ColumnType { WholeNumber, Double, Text, Day };

}  // namespace veyra
