#include "tools/companion/command_line.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <sstream>

#include "data/errors.h"

namespace veyra {
namespace {

Command::Action Greet(CLI::App& app) {
  const auto name = std::make_shared<std::string>();
  app.add_option("NAME", *name)->required();
  return [name](Streams& streams) {
    if (*name == "nobody") {
      throw FileError({"/a/file", "Cause.", "Advice."});
    }
    streams.Out << "Hello " << *name << "\n";
    return *name == "stranger" ? ExitStatus::Found : ExitStatus::Fine;
  };
}

class CommandLineTest : public ::testing::Test {
 protected:
  ExitStatus Run(const Arguments& arguments) {
    Streams streams{in_, out_, err_};
    return RunCommandLine({{"greet", "Greet", "Example: veyra-data greet you", Greet}}, arguments,
                          streams);
  }

  std::string Out() const { return out_.str(); }
  std::string Err() const { return err_.str(); }

  void Clear() { err_.str(""); }

  bool Says(const std::string& text) const { return Out().find(text) != std::string::npos; }

 private:
  std::istringstream in_;
  std::ostringstream out_;
  std::ostringstream err_;
};

TEST_F(CommandLineTest, RunsTheCommandWithTheRestOfTheLine) {
  EXPECT_EQ(ExitStatus::Fine, Run({"greet", "you"}));
  EXPECT_EQ("Hello you\n", Out());
}

TEST_F(CommandLineTest, GivesTheStatusOfTheCommand) {
  EXPECT_EQ(ExitStatus::Found, Run({"greet", "stranger"}));
}

TEST_F(CommandLineTest, AFailureIsReported) {
  EXPECT_EQ(ExitStatus::Failed, Run({"greet", "nobody"}));
  EXPECT_EQ("", Out());
  EXPECT_EQ("veyra-data: /a/file\nCause.\nAdvice.\n", Err());
}

TEST_F(CommandLineTest, WhatIsNotUnderstoodIsReportedWithAHint) {
  for (const Arguments& line :
       {Arguments{"sing"}, Arguments{}, Arguments{"greet"}, Arguments{"greet", "you", "--loud"}}) {
    Clear();
    EXPECT_EQ(ExitStatus::Failed, Run(line));
    EXPECT_EQ("", Out());
    EXPECT_EQ(0U, Err().find("veyra-data: ")) << Err();
    EXPECT_NE(std::string::npos, Err().find("Try \"veyra-data --help\".\n")) << Err();
  }
}

TEST_F(CommandLineTest, HelpNamesEveryCommandOnTheOrdinaryStream) {
  EXPECT_EQ(ExitStatus::Fine, Run({"--help"}));
  EXPECT_TRUE(Says("greet")) << Out();
  EXPECT_TRUE(Says("Greet")) << Out();
  EXPECT_EQ("", Err());
}

TEST_F(CommandLineTest, ACommandHasAHelpOfItsOwnWithAnExample) {
  EXPECT_EQ(ExitStatus::Fine, Run({"greet", "--help"}));
  EXPECT_TRUE(Says("NAME")) << Out();
  EXPECT_TRUE(Says("Example: veyra-data greet you")) << Out();
}

TEST_F(CommandLineTest, VersionIsThatOfTheProgram) {
  EXPECT_EQ(ExitStatus::Fine, Run({"--version"}));
  EXPECT_EQ("veyra-data 1.0.5\n", Out());
}

TEST_F(CommandLineTest, ACommandTellsTheVersionToo) {
  EXPECT_EQ(ExitStatus::Fine, Run({"greet", "--version"}));
  EXPECT_EQ("veyra-data 1.0.5\n", Out());
}

}  // namespace
}  // namespace veyra
