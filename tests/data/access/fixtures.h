#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace veyra {

/// The folder of the Access files that real programs made, which is kept apart from the sources.
/// The environment variable VEYRA_FIXTURES names another.
inline std::filesystem::path FixtureFolder() {
  const char* named = std::getenv("VEYRA_FIXTURES");
  return named != nullptr ? named : VEYRA_FIXTURES_FOLDER;
}

}  // namespace veyra

/// Skips the test, saying so, where the fixture folder is not there.
#define VEYRA_NEED_FIXTURES()                                                  \
  if (!std::filesystem::is_directory(veyra::FixtureFolder())) {                \
    GTEST_SKIP() << "no folder of Access files at " << veyra::FixtureFolder(); \
  }
