#include "tools/companion/consent.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>
#include <istream>
#include <ostream>

namespace veyra {
namespace {

std::string WithSmallInitial(std::string word) {
  if (!word.empty()) {
    word.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(word.front())));
  }
  return word;
}

bool IsYes(const std::string& answer, const Streams& streams) {
  const std::initializer_list<Phrase> words = {"y", "yes", Phrase::Tr("y"), Phrase::Tr("yes")};
  return std::any_of(words.begin(), words.end(), [&](const Phrase& word) {
    return WithSmallInitial(answer) == streams.InWords(word);
  });
}

}  // namespace

bool IsConsented(const Phrase& question, Streams& streams) {
  streams.Err << streams.InWords(Phrase::Tr("%1 [y/N]", question)) << ' ' << std::flush;
  std::string answer;
  std::getline(streams.In, answer);
  return IsYes(answer, streams);
}

}  // namespace veyra
