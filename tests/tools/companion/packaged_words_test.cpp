#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

#include "tests/tools/companion/run_program.h"

namespace veyra {
namespace {

/// The completion and the manual page that are installed with the program.
class PackagedWordsTest : public testing::Test {
 protected:
  static std::string Packaged(const char* name) {
    return VEYRA_PACKAGING_FOLDER + std::string(name);
  }

  static std::string Read(const std::string& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  /// The first group of every match.
  static std::vector<std::string> Matches(const std::string& text, const char* pattern) {
    const std::regex regex(pattern, std::regex::multiline);
    std::vector<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), regex), end; at != end; ++at) {
      found.push_back((*at)[1]);
    }
    return found;
  }

  static std::vector<std::string> Commands() {
    const std::string help = RunProgram({"--help"}).Out;
    return Matches(help.substr(help.find("Subcommands:")), "^  ([a-z-]+) ");
  }

  static std::vector<std::string> OptionsOf(const std::string& command) {
    return Matches(RunProgram({command, "--help"}).Out, "^  (?:-h,)?(--[a-z-]+)");
  }

  /// What Bash offers after these words, each between blanks.
  static std::string Offered(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) {
      line += " " + ShellQuoted(word);
    }
    const std::string script = ". " + ShellQuoted(Packaged("veyra-data.bash")) +
                               "; COMP_WORDS=(veyra-data" + line +
                               "); COMP_CWORD=" + std::to_string(words.size()) +
                               "; _veyra_data; echo \" ${COMPREPLY[*]} \"";
    return RunShell("bash -c " + ShellQuoted(script)).Out;
  }

  static bool Has(const std::string& text, const std::string& word) {
    return text.find(" " + word + " ") != std::string::npos;
  }
};

TEST_F(PackagedWordsTest, EveryCommandIsCompleted) {
  ASSERT_LE(13U, Commands().size());
  for (const std::string& command : Commands()) {
    EXPECT_TRUE(Has(Offered({""}), command)) << command;
  }
  EXPECT_EQ(" restore-backup \n", Offered({"restore-"}));
  EXPECT_EQ(" restore restore-backup \n", Offered({"rest"}));
}

TEST_F(PackagedWordsTest, EveryOptionIsCompleted) {
  for (const std::string& command : Commands()) {
    for (const std::string& option : OptionsOf(command)) {
      EXPECT_TRUE(Has(Offered({command, "--"}), option)) << command << ' ' << option;
    }
  }
  EXPECT_EQ(" on off status \n", Offered({"journal", ""}));
}

TEST_F(PackagedWordsTest, TheManualPageNamesEveryCommandAndOption) {
  std::string page = Read(Packaged("veyra-data.1"));
  page = std::regex_replace(page, std::regex(R"(\\-)"), "-");
  for (const std::string& command : Commands()) {
    EXPECT_NE(std::string::npos, page.find(command)) << command;
    for (const std::string& option : OptionsOf(command)) {
      if (option == "--help" || option == "--version") {
        continue;
      }
      EXPECT_NE(std::string::npos, page.find(option)) << command << ' ' << option;
    }
  }
}

TEST_F(PackagedWordsTest, EveryCommandHasAnExample) {
  for (const std::string& command : Commands()) {
    EXPECT_NE(std::string::npos, RunProgram({command, "--help"}).Out.find("veyra-data " + command))
        << command;
  }
}

}  // namespace
}  // namespace veyra
