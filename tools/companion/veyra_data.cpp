#include <unistd.h>

#include <ctime>
#include <iostream>

#include "tools/companion/check_command.h"
#include "tools/companion/command_line.h"
#include "tools/companion/compact_command.h"
#include "tools/companion/convert_command.h"
#include "tools/companion/new_command.h"
#include "tools/companion/show_command.h"
#include "tools/progress_lines.h"

namespace {

veyra::Date Today() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return veyra::MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday).value();
}

}  // namespace

int main(int argc, char** argv) {
  veyra::ProgressLines progress(std::cerr);
  const bool is_watched = isatty(STDERR_FILENO) == 1;
  const auto show = [&](const veyra::CopyStep& step) {
    if (is_watched) progress.Show(step);
  };
  veyra::Streams streams{std::cin, std::cout, std::cerr};
  return static_cast<int>(veyra::RunCommandLine(
      {veyra::NewCommand(Today()), veyra::ConvertCommand(Today(), show),
       veyra::CompactCommand(Today(), show), veyra::CheckCommand(), veyra::ShowCommand()},
      {argv + 1, argv + argc}, streams));
}
