#include "tools/translation.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "tools/companion/parser_words.h"
#include "tools/progress_lines.h"

namespace veyra {
namespace {

using Languages = std::vector<std::string>;
using Variables = std::map<std::string, std::string>;

Languages Wanted(const Variables& variables) {
  return WantedLanguages([&](const char* name) {
    const auto found = variables.find(name);
    return found == variables.end() ? nullptr : found->second.c_str();
  });
}

std::string NoDate(const Languages& languages) {
  return Phrase::Tr("no date").TranslatedBy(TranslatorInto(languages));
}

TEST(WantedLanguages, TheFirstVariableThatIsNotEmptyDecides) {
  EXPECT_EQ((Languages{"de_AT", "de"}), Wanted({{"LANG", "de_AT.UTF-8"}}));
  EXPECT_EQ((Languages{"fr"}), Wanted({{"LANG", "de_AT.UTF-8"}, {"LC_MESSAGES", "fr@euro"}}));
  EXPECT_EQ((Languages{"it"}), Wanted({{"LANG", "de"}, {"LC_MESSAGES", "fr"}, {"LC_ALL", "it"}}));
  EXPECT_EQ((Languages{"de"}), Wanted({{"LANG", "de"}, {"LC_ALL", ""}}));
}

TEST(WantedLanguages, LanguageListsThemUnlessTheLocaleIsNone) {
  EXPECT_EQ((Languages{"fr", "de_CH", "de"}),
            Wanted({{"LANG", "en_US.UTF-8"}, {"LANGUAGE", "fr::de_CH"}}));
  EXPECT_EQ(Languages(), Wanted({{"LANG", "C.UTF-8"}, {"LANGUAGE", "de"}}));
  EXPECT_EQ(Languages(), Wanted({{"LC_ALL", "POSIX"}, {"LANG", "de"}}));
  EXPECT_EQ(Languages(), Wanted({{"LANGUAGE", "de"}}));
}

TEST(TranslatorInto, TheFirstLanguageThatIsKnown) {
  EXPECT_EQ("ohne Datum", NoDate({"de"}));
  EXPECT_EQ("ohne Datum", NoDate({"tlh", "de_AT", "de"}));
  EXPECT_EQ("no date", NoDate({"en_GB", "en", "de"}));
  EXPECT_EQ("no date", NoDate({"tlh"}));
  EXPECT_EQ("no date", NoDate({}));
}

TEST(TranslatorInto, WhatHasNoTranslationStaysAsItIs) {
  EXPECT_EQ("Not a text of the program", TranslatorInto({"de"})("Not a text of the program"));
}

TEST(TranslatorInto, QuotesAndSignsComeThroughTheTables) {
  EXPECT_EQ("„soon“ ist kein Datum.", Phrase::Tr("\"%1\" is not a date.", std::string("soon"))
                                          .TranslatedBy(TranslatorInto({"de"})));
  EXPECT_EQ("<= &Voriger Tag", TranslatorInto({"de"})("<= &Previous"));
}

TEST(TranslatorInto, ProgressIsTold) {
  std::ostringstream terminal;
  std::chrono::steady_clock::time_point now{};
  ProgressLines lines(
      terminal, [&] { return now; }, TranslatorInto({"de"}));
  now += std::chrono::seconds(1);
  lines.Show({.Verb = "Compared", .Rows = 200, .Of = 900});
  EXPECT_EQ("200 von 900 Zeilen verglichen\n", terminal.str());
}

/// A sentence of the parser in English and in German.
struct Said {
  std::string English;
  std::string German;
};

void PrintTo(const Said& said, std::ostream* out) {
  *out << said.English;
}

class WordsOfTheParser : public testing::TestWithParam<Said> {};

INSTANTIATE_TEST_SUITE_P(
    Sentences, WordsOfTheParser,
    testing::Values(
        Said{"The following argument was not expected: x excludes y",
             "Das folgende Argument wurde nicht erwartet: x excludes y"},
        Said{"The following arguments were not expected: x y",
             "Die folgenden Argumente wurden nicht erwartet: x y"},
        Said{"Could not convert: --last = x requires y", "Nicht verstanden: --last = x requires y"},
        Said{"--last: At Most 1 required but received 2",
             "--last kann nur 1-mal angegeben werden, nicht 2-mal"},
        Said{"--last: 1 required NUMBER missing", "--last: 1 Angabe fehlt (NUMBER)"},
        Said{"FILE: it is empty", "FILE: ist leer"},
        Said{"--to: Check a value in b value in {access->2,sqlite->0} OR {2,0} FAILED",
             "--to: a value in b ist keines von {access->2,sqlite->0} oder {2,0}"},
        Said{"WHAT: x not in y not in {on,off,status}",
             "WHAT: x not in y ist keines von {on,off,status}"},
        Said{"--week excludes --month", "--week geht nicht zusammen mit --month"},
        Said{"--role requires --sql", "--role braucht --sql"},
        Said{"A subcommand is required", "Ein Befehl ist nötig"},
        Said{"FILE is required", "FILE ist nötig"},
        Said{"A sentence of a later version: unknown", "A sentence of a later version: unknown"}));

TEST_P(WordsOfTheParser, AreTranslatedAndInEnglishAsItSaysThem) {
  const Phrase words = WordsOf(GetParam().English);
  EXPECT_EQ(GetParam().German, words.TranslatedBy(TranslatorInto({"de"})));
  EXPECT_EQ(GetParam().English, words.English());
}

TEST(Wrapped, LongLinesBreakBetweenWords) {
  const std::string word(40, 'x');
  EXPECT_EQ(word + " " + word + "\n" + word + "\nshort",
            Wrapped(word + " " + word + " " + word + "\nshort", 88));
  EXPECT_EQ(std::string(88, 'x'), Wrapped(std::string(88, 'x'), 88));
}

TEST(Wrapped, ALineOfAccentsIsCountedByCharacters) {
  std::string line;
  for (int i = 0; i < 44; ++i) {
    line += "ä ";
  }
  line.pop_back();
  EXPECT_EQ(line, Wrapped(line, 88));
}

}  // namespace
}  // namespace veyra
