#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "help/html_reading.h"
#include "help/html_text.h"
#include "help/qt_help_file.h"
#include "help/topic_search.h"
#include "logic/help_viewer.h"
#include "tests/help/help_samples.h"

namespace veyra {
namespace {

/// A language in which the help is written.
struct Language {
  const char* Name;
  const char* Folder;  ///< Of its sources.
  const char* File;
  const char* Title;
  std::map<std::string, std::string> Questions;  ///< What a front desk looks for, and where it is.
};

const Language kEnglish{"English",
                        "topics",
                        "VeyraCalendar.chm",
                        "Veyra Calendar Help",
                        {{"backup", "data.htm"},
                         {"rename", "changing.htm"},
                         {"weekday", "many_days.htm"},
                         {"right button", "month.htm"},
                         {"pdf", "printing.htm"},
                         {"drag", "booking.htm"}}};

const Language kGerman{"German",
                       "topics_de",
                       "VeyraCalendar_de.chm",
                       "Hilfe zu Veyra Calendar",
                       {{"sicherungskopie", "data.htm"},
                        {"umbenennen", "changing.htm"},
                        {"wochentag", "many_days.htm"},
                        {"rechte taste", "month.htm"},
                        {"pdf", "printing.htm"},
                        {"ziehen", "booking.htm"},
                        {"ÜBERSICHT", "day_board.htm"},
                        {"rückgängig", "undo.htm"}}};

void PrintTo(const Language& language, std::ostream* out) {
  *out << language.Name;
}

/// A help file that comes with the program, against the sources it is compiled from.
class HelpFileTest : public testing::TestWithParam<Language> {
 protected:
  /// A source of the language, or one that all languages share.
  static std::string Source(const std::string& name) {
    const std::filesystem::path own = Folder() / name;
    return FileBytes(std::filesystem::exists(own) ? own : kHelpFolder / "topics" / name);
  }

  static std::filesystem::path Folder() { return kHelpFolder / GetParam().Folder; }

  /// The files that the project file lists.
  static std::vector<std::string> Listed() {
    std::istringstream project(Source("VeyraCalendar.hhp"));
    std::vector<std::string> names;
    std::string line;
    while (std::getline(project, line) && line != "[FILES]") {
      continue;
    }
    while (std::getline(project, line) && !line.empty()) {
      names.push_back(line);
    }
    return names;
  }

  static bool IsPage(const std::string& name) {
    return name.size() > 4 && name.substr(name.size() - 4) == ".htm";
  }

  /// What the links and pictures of a page name.
  static std::vector<std::string> TargetsOf(const std::string& html) {
    struct Targets : HtmlVisitor {
      void BeginTag(std::string_view name, const HtmlAttributes& attributes) override {
        const auto target = attributes.find(name == "img" ? "src" : "href");
        if (target != attributes.end()) {
          Names.push_back(target->second);
        }
      }
      std::vector<std::string> Names;
    } targets;
    ReadHtml(html, targets);
    return targets.Names;
  }

  static int WordlessPictures(const std::string& html) {
    struct Pictures : HtmlVisitor {
      void BeginTag(std::string_view name, const HtmlAttributes& attributes) override {
        const auto words = attributes.find("alt");
        Wordless += name == "img" && (words == attributes.end() || words->second.empty()) ? 1 : 0;
      }
      int Wordless = 0;
    } pictures;
    ReadHtml(html, pictures);
    return pictures.Wordless;
  }

  /// The numbers of the topics that the program asks for.
  static std::vector<int> Topics() {
    return {kHelpContents, kHelpOverview, kHelpCalendar, kHelpDayViewer};
  }

  ChmArchive archive_ = ReadHelpFile(kHelpFolder / GetParam().File, kReader);
};

TEST_P(HelpFileTest, HoldsEverySourceByteForByte) {
  std::vector<std::string> names = Listed();
  ASSERT_GE(names.size(), 11U);
  names.insert(names.end(), {"VeyraCalendar.hhc", "VeyraCalendar.hhk"});
  for (const std::string& name : names) {
    const std::string* object = archive_.Object(name);
    ASSERT_NE(nullptr, object) << name;
    EXPECT_TRUE(*object == Source(name)) << name << ": run help/compile";
  }
}

TEST_P(HelpFileTest, HoldsNoPageThatTheSourcesDoNot) {
  std::set<std::string> pages;
  for (const std::string& name : Listed()) {
    if (IsPage(name)) {
      pages.insert(name);
    }
  }
  EXPECT_EQ(pages, std::set<std::string>(archive_.Pages().begin(), archive_.Pages().end()));
}

TEST_P(HelpFileTest, EverySourceIsListed) {
  const std::vector<std::string> listed = Listed();
  for (const auto& entry : std::filesystem::recursive_directory_iterator(Folder())) {
    const std::string name = entry.path().lexically_relative(Folder()).generic_string();
    const std::string kind = entry.path().extension().string();
    const bool is_content = kind == ".htm" || kind == ".png" || kind == ".css";
    EXPECT_EQ(is_content, std::count(listed.begin(), listed.end(), name) == 1) << name;
  }
}

TEST_P(HelpFileTest, ContextNumbersLeadToTheirPages) {
  EXPECT_EQ("contents.htm", archive_.Topic(kHelpContents));
  EXPECT_EQ("overview.htm", archive_.Topic(kHelpOverview));
  EXPECT_EQ("month.htm", archive_.Topic(kHelpCalendar));
  EXPECT_EQ("day_viewer.htm", archive_.Topic(kHelpDayViewer));
}

TEST_P(HelpFileTest, ContextTableNamesPagesWithoutTheFoldersOfTheirMaker) {
  const std::string* strings = archive_.Object("/#STRINGS");
  ASSERT_NE(nullptr, strings);
  EXPECT_EQ(std::string::npos, strings->find('/'));
}

TEST_P(HelpFileTest, BeginsWithItsContents) {
  EXPECT_EQ(GetParam().Title, archive_.Title());
  EXPECT_EQ("contents.htm", archive_.FirstPage());
}

TEST_P(HelpFileTest, EveryPageStandsInTheContents) {
  std::set<std::string> pages;
  for (const ContentsEntry& entry : archive_.Contents()) {
    if (!entry.Page.empty()) {
      pages.insert(entry.Page.substr(0, entry.Page.find('#')));
    }
  }
  EXPECT_EQ(pages, std::set<std::string>(archive_.Pages().begin(), archive_.Pages().end()));
}

TEST_P(HelpFileTest, EveryLinkAndPictureIsThere) {
  for (const std::string& page : archive_.Pages()) {
    for (const std::string& target : TargetsOf(archive_.Page(page).value_or(""))) {
      EXPECT_NE(nullptr, archive_.Object(target)) << page << " -> " << target;
    }
  }
}

TEST_P(HelpFileTest, EveryAnchorOfALinkIsThere) {
  for (const std::string& page : archive_.Pages()) {
    const std::string html = archive_.Page(page).value_or("");
    const std::regex link("href=\"([^\"#]+)#([^\"]+)\"");
    for (std::sregex_iterator found(html.begin(), html.end(), link), end; found != end; ++found) {
      const std::string target = archive_.Page((*found)[1].str()).value_or("");
      EXPECT_NE(std::string::npos, target.find("name=\"" + (*found)[2].str() + "\"")) << page;
    }
  }
}

TEST_P(HelpFileTest, EveryPictureSaysWhatItShows) {
  for (const std::string& page : archive_.Pages()) {
    EXPECT_EQ(0, WordlessPictures(archive_.Page(page).value_or(""))) << page;
  }
}

TEST_P(HelpFileTest, WhatAFrontDeskLooksForIsFound) {
  const TopicSearch search(archive_);
  for (const auto& question : GetParam().Questions) {
    const auto found = search.Find(question.first);
    EXPECT_TRUE(std::any_of(found.begin(), found.end(), [&](const FoundTopic& topic) {
      return topic.Page == question.second;
    })) << question.first;
  }
}

TEST_P(HelpFileTest, EveryPageIsNamedInTheContentsAsInItsTitle) {
  std::size_t compared = 0;
  for (const ContentsEntry& entry : archive_.Contents()) {
    if (!entry.Page.empty() && entry.Page.find('#') == std::string::npos) {
      EXPECT_EQ(PageTitle(archive_.Page(entry.Page).value_or("")), entry.Title);
      ++compared;
    }
  }
  EXPECT_EQ(archive_.Pages().size(), compared);
}

INSTANTIATE_TEST_SUITE_P(Help, HelpFileTest, testing::Values(kEnglish, kGerman),
                         [](const auto& test) { return test.param.Name; });

/// The help of another language beside the English one.
class TranslatedHelpTest : public HelpFileTest {
 protected:
  static std::set<std::string> LinksOf(const ChmArchive& archive, const std::string& page) {
    const std::vector<std::string> targets = TargetsOf(archive.Page(page).value_or(""));
    return {targets.begin(), targets.end()};
  }

  const ChmArchive english_ = ReadHelpFile(kHelpFileName, kReader);
};

TEST_P(TranslatedHelpTest, EveryTopicIsThereUnderTheSameName) {
  EXPECT_EQ(english_.Pages(), archive_.Pages());
}

TEST_P(TranslatedHelpTest, TheSameNumbersLeadToTheSameTopics) {
  for (const int topic : Topics()) {
    EXPECT_EQ(english_.Topic(topic), archive_.Topic(topic)) << topic;
  }
}

TEST_P(TranslatedHelpTest, TheContentsHaveTheSameLines) {
  ASSERT_EQ(english_.Contents().size(), archive_.Contents().size());
  for (std::size_t line = 0; line < english_.Contents().size(); ++line) {
    EXPECT_EQ(english_.Contents()[line].Page, archive_.Contents()[line].Page);
    EXPECT_EQ(english_.Contents()[line].Level, archive_.Contents()[line].Level);
    EXPECT_NE(english_.Contents()[line].Title, archive_.Contents()[line].Title);
  }
}

TEST_P(TranslatedHelpTest, ATopicLeadsWhereverTheEnglishOneDoes) {
  for (const std::string& page : english_.Pages()) {
    const std::set<std::string> links = LinksOf(archive_, page);
    for (const std::string& link : LinksOf(english_, page)) {
      EXPECT_TRUE(links.contains(link)) << page << " -> " << link;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Help, TranslatedHelpTest, testing::Values(kGerman),
                         [](const auto& test) { return test.param.Name; });

}  // namespace
}  // namespace veyra
