#pragma once

#include <map>
#include <string>
#include <string_view>

namespace veyra {

/// By name in lower case; the value of one that has none is empty.
using HtmlAttributes = std::map<std::string, std::string, std::less<>>;

/// Follows an HTML text from its beginning to its end. Names of tags are in lower case, entities
/// are resolved; scripts, style sheets and comments are left out.
class HtmlVisitor {
 public:
  virtual ~HtmlVisitor() = default;

  virtual void BeginTag(std::string_view /*name*/, const HtmlAttributes& /*attributes*/) {}

  /// Comes for every tag that began, also for one that the text never ends.
  virtual void EndTag(std::string_view /*name*/) {}

  virtual void TakeText(std::string_view /*text*/) {}
};

/// How many tags may lie in each other: what comes behind a deeper one is not read.
inline constexpr int kDeepestTag = 20'000;

/// Leads the visitor through an HTML text (UTF-8). Any text is understood somehow.
void ReadHtml(std::string_view html, HtmlVisitor& visitor);

}  // namespace veyra
