#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "help/chm_archive.h"

namespace veyra {

/// A page that a search found.
struct FoundTopic {
  std::string Page;     ///< Its reference.
  std::string Title;    ///< Its title; its name when it has none.
  std::string Excerpt;  ///< The words around the first place that was found.
};

/// The text of a help file's pages, to be searched.
class TopicSearch {
 public:
  /// Reads every page.
  explicit TopicSearch(const ChmArchive& archive);

  /// The pages in which every word of `words` occurs, as a whole word or in part of one, in any
  /// letter case. Pages with the words in their title come first, then those in which they occur
  /// most often. None when there is no word.
  std::vector<FoundTopic> Find(std::string_view words) const;

 private:
  struct Topic {
    std::string Page;
    std::string Title;
    std::string Text;
    std::string UpperTitle;
    std::string UpperText;  ///< Character by character that of Text.
  };

  std::vector<Topic> topics_;
};

}  // namespace veyra
