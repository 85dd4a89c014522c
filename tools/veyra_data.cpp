#include <ctime>
#include <iostream>

#include "tools/command_line.h"
#include "tools/new_command.h"
#include "tools/show_command.h"

namespace {

veyra::Date Today() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return veyra::MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday).value();
}

}  // namespace

int main(int argc, char** argv) {
  return veyra::RunCommandLine({veyra::NewCommand(Today()), veyra::ShowCommand()},
                               {argv + 1, argv + argc}, std::cout, std::cerr);
}
