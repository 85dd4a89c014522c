#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace veyra::modRes {

/// The text as names are compared while one is typed: in upper case and without accents.
std::string FoldedName(std::string_view text);

/// Puts the name before all that were used earlier; the oldest ones are forgotten.
void UseName(std::vector<std::string>& used, const std::string& name);

/// Offers names while one is typed. Made for very long lists.
class NameMatches {
 public:
  /// What may be offered: the names of a list and those `used`, the last one first.
  void SetNames(const std::vector<std::string>& names, const std::vector<std::string>& used);

  /// The names that hold the text anywhere, in any letter case, with or without accents: those used
  /// first, then those that begin with it, then the others in the order of the list. Each once, and
  /// at most `most`. None for an empty text.
  std::vector<std::string> Find(std::string_view text, std::size_t most);

 private:
  void Fold();

  std::vector<std::string> used_;
  std::vector<std::string> names_;
  std::vector<std::string> folded_used_;
  std::vector<std::string> folded_names_;
  bool is_folded_ = false;
};

}  // namespace veyra::modRes
