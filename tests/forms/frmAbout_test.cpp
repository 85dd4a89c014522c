#include "forms/about/frmAbout.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include "data/text.h"
#include "forms/about/maker.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_windows.h"

namespace veyra {
namespace {

class FakeAboutView : public AboutView {
 public:
  bool Closed = false;

  void CloseWindow() override { Closed = true; }
};

class FakeBrowser : public Browser {
 public:
  bool Works = true;
  std::string Opened;

  bool Open(const std::string& address) override {
    Opened = address;
    return Works;
  }
};

class FrmAboutTest : public testing::Test {
 protected:
  FakeDialogs dialogs_;
  FakeWindows windows_;
  FakeAboutView view_;
  FakeBrowser browser_;
  frmAbout about_{view_, windows_, browser_, dialogs_};
};

TEST_F(FrmAboutTest, ExitClosesTheBox) {
  about_.Command1_Click();
  EXPECT_TRUE(view_.Closed);
}

TEST_F(FrmAboutTest, ClosingEnablesTheMonth) {
  about_.Form_Unload();
  EXPECT_EQ("enable month\n", windows_.Log);
}

TEST_F(FrmAboutTest, TheLinkOpensTheMakersSite) {
  about_.labAbout_Click(4);
  EXPECT_EQ(kAboutLabels[kLinkLabel], browser_.Opened);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FrmAboutTest, WithoutABrowserTheOperatorIsTold) {
  browser_.Works = false;
  about_.labAbout_Click(4);
  EXPECT_EQ("[OK Exclamation] There is no web browser on this machine that can open " +
                std::string(kAboutLabels[kLinkLabel]),
            dialogs_.OnlyBox());
}

TEST_F(FrmAboutTest, AnyOtherLabelDoesNothing) {
  for (std::size_t label = 0; label < kAboutLabels.size(); ++label) {
    if (label != kLinkLabel) {
      about_.labAbout_Click(label);
    }
  }
  EXPECT_EQ("", browser_.Opened);
}

TEST_F(FrmAboutTest, TheHelpKeyOpensTheHelpFile) {
  about_.HelpKey();
  EXPECT_EQ("help 0\n", windows_.Log);
}

/// What stands in an about box until somebody fills it in.
TEST_F(FrmAboutTest, NoLabelIsAPlaceholder) {
  for (const std::string label : kAboutLabels) {
    for (const char* word : {"STREET AND NUMBER", "NAME OF", "NUMBER OF", "TELEPHONE NUMBER",
                             "TOWN, COUNTRY", "PLACEHOLDER", "TO DO", "TODO", "XXX", "@",
                             "EXAMPLE.COM", "EXAMPLE.ORG", "EXAMPLE.NET"}) {
      EXPECT_EQ(std::string::npos, UpperCase(label).find(word)) << label;
    }
  }
}

TEST_F(FrmAboutTest, TheMakerHasANameAndASite) {
  EXPECT_STRNE("", kAboutLabels[1]);
  EXPECT_TRUE(std::string(kAboutLabels[kLinkLabel]).starts_with("https://"));
}

TEST_F(FrmAboutTest, TheMetainfoFileNamesTheSameSite) {
  std::ifstream file(VEYRA_METAINFO);
  const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const std::regex url("<url type=\"homepage\">(.*)</url>");
  std::smatch found;
  ASSERT_TRUE(std::regex_search(text, found, url)) << text;
  EXPECT_EQ(kAboutLabels[kLinkLabel], found[1]);
  EXPECT_EQ(std::string::npos, text.find('@')) << text;
}

TEST_F(FrmAboutTest, TheBoxTellsTitleAndVersion) {
  EXPECT_STREQ("Veyra Calendar     Scheduler", kAboutLabels[0]);
  EXPECT_STREQ("Version 1.0.5", kAboutLabels[5]);
}

}  // namespace
}  // namespace veyra
