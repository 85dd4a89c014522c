#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "help/html_reading.h"
#include "help/qt_help_file.h"
#include "help/topic_search.h"
#include "logic/help_viewer.h"
#include "tests/help/help_samples.h"

namespace veyra {
namespace {

/// The help file that comes with the program, against the sources it is compiled from.
class HelpFileTest : public testing::Test {
 protected:
  static std::string Source(const std::string& name) {
    return FileBytes(kHelpFolder / "topics" / name);
  }

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

  ChmArchive archive_ = ReadHelpFile(kHelpFileName, kReader);
};

TEST_F(HelpFileTest, HoldsEverySourceByteForByte) {
  std::vector<std::string> names = Listed();
  ASSERT_GE(names.size(), 11U);
  names.insert(names.end(), {"VeyraCalendar.hhc", "VeyraCalendar.hhk"});
  for (const std::string& name : names) {
    const std::string* object = archive_.Object(name);
    ASSERT_NE(nullptr, object) << name;
    EXPECT_TRUE(*object == Source(name)) << name << ": run help/compile";
  }
}

TEST_F(HelpFileTest, HoldsNoPageThatTheSourcesDoNot) {
  std::set<std::string> pages;
  for (const std::string& name : Listed()) {
    if (IsPage(name)) {
      pages.insert(name);
    }
  }
  EXPECT_EQ(pages, std::set<std::string>(archive_.Pages().begin(), archive_.Pages().end()));
}

TEST_F(HelpFileTest, EverySourceIsListed) {
  const std::vector<std::string> listed = Listed();
  const std::filesystem::path topics = kHelpFolder / "topics";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(topics)) {
    const std::string name = entry.path().lexically_relative(topics).generic_string();
    const std::string kind = entry.path().extension().string();
    const bool is_content = kind == ".htm" || kind == ".png" || kind == ".css";
    EXPECT_EQ(is_content, std::count(listed.begin(), listed.end(), name) == 1) << name;
  }
}

TEST_F(HelpFileTest, ContextNumbersLeadToTheirPages) {
  EXPECT_EQ("contents.htm", archive_.Topic(kHelpContents));
  EXPECT_EQ("overview.htm", archive_.Topic(kHelpOverview));
  EXPECT_EQ("month.htm", archive_.Topic(kHelpCalendar));
  EXPECT_EQ("day_viewer.htm", archive_.Topic(kHelpDayViewer));
}

TEST_F(HelpFileTest, ContextTableNamesPagesWithoutTheFoldersOfTheirMaker) {
  const std::string* strings = archive_.Object("/#STRINGS");
  ASSERT_NE(nullptr, strings);
  EXPECT_EQ(std::string::npos, strings->find('/'));
}

TEST_F(HelpFileTest, BeginsWithItsContents) {
  EXPECT_EQ("Veyra Calendar Help", archive_.Title());
  EXPECT_EQ("contents.htm", archive_.FirstPage());
}

TEST_F(HelpFileTest, EveryPageStandsInTheContents) {
  std::set<std::string> pages;
  for (const ContentsEntry& entry : archive_.Contents()) {
    if (!entry.Page.empty()) {
      pages.insert(entry.Page.substr(0, entry.Page.find('#')));
    }
  }
  EXPECT_EQ(pages, std::set<std::string>(archive_.Pages().begin(), archive_.Pages().end()));
}

TEST_F(HelpFileTest, EveryLinkAndPictureIsThere) {
  for (const std::string& page : archive_.Pages()) {
    for (const std::string& target : TargetsOf(archive_.Page(page).value_or(""))) {
      EXPECT_NE(nullptr, archive_.Object(target)) << page << " -> " << target;
    }
  }
}

TEST_F(HelpFileTest, EveryAnchorOfALinkIsThere) {
  for (const std::string& page : archive_.Pages()) {
    const std::string html = archive_.Page(page).value_or("");
    const std::regex link("href=\"([^\"#]+)#([^\"]+)\"");
    for (std::sregex_iterator found(html.begin(), html.end(), link), end; found != end; ++found) {
      const std::string target = archive_.Page((*found)[1].str()).value_or("");
      EXPECT_NE(std::string::npos, target.find("name=\"" + (*found)[2].str() + "\"")) << page;
    }
  }
}

TEST_F(HelpFileTest, EveryPictureSaysWhatItShows) {
  for (const std::string& page : archive_.Pages()) {
    EXPECT_EQ(0, WordlessPictures(archive_.Page(page).value_or(""))) << page;
  }
}

TEST_F(HelpFileTest, WhatAFrontDeskLooksForIsFound) {
  const std::map<std::string, std::string> questions{
      {"backup", "data.htm"},        {"rename", "changing.htm"}, {"weekday", "many_days.htm"},
      {"right button", "month.htm"}, {"pdf", "printing.htm"},    {"drag", "booking.htm"},
  };
  const TopicSearch search(archive_);
  for (const auto& question : questions) {
    const auto found = search.Find(question.first);
    EXPECT_TRUE(std::any_of(found.begin(), found.end(), [&](const FoundTopic& topic) {
      return topic.Page == question.second;
    })) << question.first;
  }
}

}  // namespace
}  // namespace veyra
