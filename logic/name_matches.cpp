#include "logic/name_matches.h"

#include <algorithm>
#include <iterator>

#include "data/ascii.h"
#include "data/text.h"

namespace veyra::modRes {
namespace {

/// So many names are remembered as used.
constexpr std::size_t kMostUsed = 64;

/// Letters without their accents: a letter each, or a dot for what stays as it is.
struct Letters {
  unsigned First;
  std::string_view Plain;
};

constexpr Letters kLatin{0xC0,
                         "AAAAAAACEEEEIIIIDNOOOOO.OUUUUYTSAAAAAAACEEEEIIIIDNOOOOO.OUUUUYTY"
                         "AAAAAACCCCCCCCDDDDEEEEEEEEEEGGGGGGGGHHHHIIIIIIIIII..JJKKKLLLLLL."
                         ".LLNNNNNNNNNOOOOOOOORRRRRRSSSSSSSSTTTTTTUUUUUUUUUUUUWWYYYZZZZZZS"};
constexpr Letters kMoreLatin{0x1E00,
                             "AABBBBBBCCDDDDDDDDDDEEEEEEEEEEFFGGHHHHHHHHHHIIIIKKKKKKLLLLLLLLMM"
                             "MMMMNNNNNNNNOOOOOOOOPPPPRRRRRRRRSSSSSSSSSSTTTTTTTTUUUUUUUUUUVVVV"
                             "WWWWWWWWWWXXXXYYZZZZZZHTWYAS..S.AAAAAAAAAAAAAAAAAAAAAAAAEEEEEEEE"
                             "EEEEEEEEIIIIOOOOOOOOOOOOOOOOOOOOOOOOUUUUUUUUUUUUUUYYYYYYYY......"};
constexpr unsigned kFirstAccent = 0x300;
constexpr unsigned kLastAccent = 0x36F;

std::size_t LengthOf(char first) {
  const auto byte = static_cast<unsigned char>(first);
  return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

/// The code point of a sequence of two or three bytes.
unsigned CodeOf(std::string_view sequence) {
  unsigned code = static_cast<unsigned char>(sequence[0]) & (sequence.size() == 2 ? 0x1Fu : 0x0Fu);
  for (const char byte : sequence.substr(1)) {
    code = code << 6 | (static_cast<unsigned char>(byte) & 0x3Fu);
  }
  return code;
}

/// The letter without its accent; a dot for what stays as it is.
char PlainLetter(unsigned code) {
  for (const Letters& letters : {kLatin, kMoreLatin}) {
    if (code >= letters.First && code - letters.First < letters.Plain.size()) {
      return letters.Plain[code - letters.First];
    }
  }
  return '.';
}

void AppendFolded(std::string& folded, std::string_view sequence) {
  if (sequence.size() != 2 && sequence.size() != 3) {
    folded += sequence;
    return;
  }
  const unsigned code = CodeOf(sequence);
  if (code >= kFirstAccent && code <= kLastAccent) {
    return;
  }
  if (const char plain = PlainLetter(code); plain != '.') {
    folded += plain;
  } else {
    folded += sequence;
  }
}

void AppendWithoutAccents(std::string& folded, std::string_view upper) {
  while (!upper.empty()) {
    const std::string_view sequence = upper.substr(0, LengthOf(upper.front()));
    AppendFolded(folded, sequence);
    upper.remove_prefix(sequence.size());
  }
}

bool IsAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

std::vector<std::string> Folded(const std::vector<std::string>& names) {
  std::vector<std::string> folded;
  folded.reserve(names.size());
  std::transform(names.begin(), names.end(), std::back_inserter(folded), FoldedName);
  return folded;
}

/// Gathers names, each once, up to so many.
class Gathered {
 public:
  explicit Gathered(std::size_t most) : most_(most) {}

  bool IsFull() const { return names_.size() >= most_; }

  void Add(const std::string& name) {
    if (!IsFull() && std::find(names_.begin(), names_.end(), name) == names_.end()) {
      names_.push_back(name);
    }
  }

  const std::vector<std::string>& Names() const { return names_; }

 private:
  std::size_t most_;
  std::vector<std::string> names_;
};

}  // namespace

/// Plain letters, of which names are made for the most part, are not looked up one by one.
std::string FoldedName(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  while (!text.empty()) {
    const auto others = std::find_if_not(text.begin(), text.end(), IsAscii);
    std::transform(text.begin(), others, std::back_inserter(folded), ascii::Upper);
    text.remove_prefix(static_cast<std::size_t>(others - text.begin()));
    const auto next =
        static_cast<std::size_t>(std::find_if(text.begin(), text.end(), IsAscii) - text.begin());
    AppendWithoutAccents(folded, UpperCase(text.substr(0, next)));
    text.remove_prefix(next);
  }
  return folded;
}

void UseName(std::vector<std::string>& used, const std::string& name) {
  std::erase(used, name);
  used.insert(used.begin(), name);
  used.resize(std::min(used.size(), kMostUsed));
}

void NameMatches::SetNames(const std::vector<std::string>& names,
                           const std::vector<std::string>& used) {
  if (names_ != names || used_ != used) {
    names_ = names;
    used_ = used;
    is_folded_ = false;
  }
}

/// Only when something is typed, for it takes a while.
void NameMatches::Fold() {
  if (!is_folded_) {
    folded_names_ = Folded(names_);
    folded_used_ = Folded(used_);
    is_folded_ = true;
  }
}

std::vector<std::string> NameMatches::Find(std::string_view text, std::size_t most) {
  const std::string wanted = FoldedName(text);
  Gathered found(most);
  if (wanted.empty()) {
    return {};
  }
  Fold();
  for (std::size_t i = 0; i < used_.size(); ++i) {
    if (folded_used_[i].find(wanted) != std::string::npos) {
      found.Add(used_[i]);
    }
  }
  Gathered within(most);
  for (std::size_t i = 0; i < names_.size() && !found.IsFull(); ++i) {
    const std::size_t at = folded_names_[i].find(wanted);
    if (at == 0) {
      found.Add(names_[i]);
    } else if (at != std::string::npos) {
      within.Add(names_[i]);
    }
  }
  for (const std::string& name : within.Names()) {
    found.Add(name);
  }
  return found.Names();
}

}  // namespace veyra::modRes
