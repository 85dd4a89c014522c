#include "tools/exchange/series_relation.h"

namespace veyra {
namespace {

constexpr const char* kStart = "series-";

}  // namespace

std::string RelationOf(const std::string& series) {
  return kStart + series + "@" + kRelationDomain;
}

std::string SeriesOf(const std::string& relation) {
  const std::string start = kStart;
  const std::string end = std::string("@") + kRelationDomain;
  if (!relation.starts_with(start) || !relation.ends_with(end)) {
    return {};
  }
  return relation.substr(start.size(), relation.size() - start.size() - end.size());
}

}  // namespace veyra
