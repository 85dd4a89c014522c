#pragma once

#include <string>

namespace veyra {

inline constexpr const char* kRelationDomain = "veyra-calendar";

/// What the events of a series have in common: "series-20140406153012@veyra-calendar".
std::string RelationOf(const std::string& series);

/// The series of such a relation; empty when it is another's.
std::string SeriesOf(const std::string& relation);

}  // namespace veyra
