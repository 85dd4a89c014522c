#include "help/topic_search.h"

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <utility>

#include "data/text.h"
#include "help/html_text.h"

namespace veyra {
namespace {

constexpr std::size_t kExcerptBefore = 30;
constexpr std::size_t kExcerptLength = 110;

std::vector<std::string> UpperWords(std::string_view text) {
  std::istringstream stream(UpperCase(text));
  std::vector<std::string> words;
  for (std::string word; stream >> word;) {
    words.push_back(word);
  }
  return words;
}

std::size_t Occurrences(const std::string& text, const std::string& word) {
  std::size_t count = 0;
  for (std::size_t i = text.find(word); i != std::string::npos; i = text.find(word, i + 1)) {
    ++count;
  }
  return count;
}

/// Some words of the text around the character of that number.
std::string ExcerptAround(const std::string& text, std::size_t character) {
  const std::size_t first = character > kExcerptBefore ? character - kExcerptBefore : 0;
  std::string excerpt = text.substr(FirstCharacters(text, first).size());
  const bool cut_behind = CharacterCount(excerpt) > kExcerptLength;
  excerpt = FirstCharacters(excerpt, kExcerptLength);
  if (first > 0) {
    excerpt.erase(0, std::min(excerpt.find(' '), excerpt.size()));
  }
  if (cut_behind) {
    excerpt.erase(std::min(excerpt.rfind(' '), excerpt.size()));
  }
  return (first > 0 ? "…" : "") + excerpt + (cut_behind ? " …" : "");
}

/// The text without the heading that repeats the title at its beginning.
std::string WithoutHeading(const std::string& text, const std::string& title) {
  const bool repeats = !title.empty() && text.compare(0, title.size() + 1, title + " ") == 0;
  return repeats ? text.substr(title.size() + 1) : text;
}

}  // namespace

TopicSearch::TopicSearch(const ChmArchive& archive) {
  for (const std::string& page : archive.Pages()) {
    const std::string html = archive.Page(page).value_or("");
    Topic topic{page, PageTitle(html), "", "", ""};
    topic.Text = WithoutHeading(PlainText(html), topic.Title);
    if (topic.Title.empty()) {
      topic.Title = page;
    }
    topic.UpperTitle = UpperCase(topic.Title);
    topic.UpperText = UpperCase(topic.Text);
    topics_.push_back(std::move(topic));
  }
}

std::vector<FoundTopic> TopicSearch::Find(std::string_view words) const {
  const std::vector<std::string> wanted = UpperWords(words);
  std::vector<std::pair<std::size_t, FoundTopic>> ranked;
  for (const Topic& topic : topics_) {
    constexpr std::size_t kTitleWeight = 1000;
    std::size_t rank = 0;
    const bool found = std::all_of(wanted.begin(), wanted.end(), [&](const std::string& word) {
      const std::size_t weight =
          kTitleWeight * Occurrences(topic.UpperTitle, word) + Occurrences(topic.UpperText, word);
      rank += weight;
      return weight > 0;
    });
    if (wanted.empty() || !found) {
      continue;
    }
    const std::size_t place = topic.UpperText.find(wanted.front());
    const std::size_t character =
        place == std::string::npos ? 0 : CharacterCount(topic.UpperText.substr(0, place));
    ranked.push_back({rank, {topic.Page, topic.Title, ExcerptAround(topic.Text, character)}});
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& one, const auto& other) { return one.first > other.first; });
  std::vector<FoundTopic> topics;
  topics.reserve(ranked.size());
  for (auto& [rank, topic] : ranked) {
    topics.push_back(std::move(topic));
  }
  return topics;
}

}  // namespace veyra
