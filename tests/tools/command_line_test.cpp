#include "tools/command_line.h"

#include <gtest/gtest.h>

#include <sstream>

#include "data/errors.h"

namespace veyra {
namespace {

class CommandLineTest : public ::testing::Test {
 protected:
  ExitStatus Run(const Arguments& arguments) {
    const Command greet{"greet", "NAME", "      Greets.\n",
                        [](const Arguments& names, std::ostream& out) { Greet(names, out); }};
    return RunCommandLine({greet}, arguments, out_, err_);
  }

  std::string Out() const { return out_.str(); }
  std::string Err() const { return err_.str(); }

 private:
  static void Greet(const Arguments& names, std::ostream& out) {
    if (names.size() != 1) throw UsageError("\"greet\" needs one name.");
    if (names.front() == "nobody") throw FileError({"/a/file", "Cause.", "Advice."});
    out << "Hello " << names.front() << "\n";
  }

  std::ostringstream out_;
  std::ostringstream err_;
};

TEST_F(CommandLineTest, RunsTheCommandWithTheRestOfTheLine) {
  EXPECT_EQ(kDone, Run({"greet", "you"}));
  EXPECT_EQ("Hello you\n", Out());
}

TEST_F(CommandLineTest, AFailureIsReportedAsStatusOne) {
  EXPECT_EQ(kFailed, Run({"greet", "nobody"}));
  EXPECT_EQ("", Out());
  EXPECT_EQ("veyra-data: /a/file\nCause.\nAdvice.\n", Err());
}

TEST_F(CommandLineTest, AnUnknownCommandIsStatusTwo) {
  EXPECT_EQ(kNotUnderstood, Run({"sing"}));
  EXPECT_EQ("veyra-data: There is no command \"sing\".\nTry \"veyra-data --help\".\n", Err());
}

TEST_F(CommandLineTest, AnEmptyLineIsStatusTwo) {
  EXPECT_EQ(kNotUnderstood, Run({}));
  EXPECT_NE("", Err());
}

TEST_F(CommandLineTest, WrongArgumentsAreStatusTwo) {
  EXPECT_EQ(kNotUnderstood, Run({"greet"}));
  EXPECT_EQ("veyra-data: \"greet\" needs one name.\nTry \"veyra-data --help\".\n", Err());
}

TEST_F(CommandLineTest, HelpNamesEveryCommandOnTheOrdinaryStream) {
  EXPECT_EQ(kDone, Run({"--help"}));
  EXPECT_NE(std::string::npos, Out().find("veyra-data greet NAME\n      Greets.\n"));
  EXPECT_EQ("", Err());
}

TEST_F(CommandLineTest, HelpIsAnsweredBehindACommandToo) {
  EXPECT_EQ(kDone, Run({"greet", "--help"}));
  EXPECT_NE("Hello --help\n", Out());
}

TEST_F(CommandLineTest, VersionIsThatOfTheProgram) {
  EXPECT_EQ(kDone, Run({"--version"}));
  EXPECT_EQ("veyra-data 1.0.5\n", Out());
}

TEST(WithoutOptionsTest, TakesKnownOptionsFromAnyPlace) {
  Arguments given;
  EXPECT_EQ((Arguments{"a", "b"}), WithoutOptions({"a", "--x", "b"}, {"--x"}, given));
  EXPECT_EQ((Arguments{"--x"}), given);
}

TEST(WithoutOptionsTest, AfterTwoDashesNothingIsAnOption) {
  Arguments given;
  EXPECT_EQ((Arguments{"--x"}), WithoutOptions({"--", "--x"}, {"--x"}, given));
  EXPECT_TRUE(given.empty());
}

TEST(WithoutOptionsTest, RefusesAnUnknownOption) {
  Arguments given;
  EXPECT_THROW(WithoutOptions({"--y"}, {"--x"}, given), UsageError);
}

}  // namespace
}  // namespace veyra
