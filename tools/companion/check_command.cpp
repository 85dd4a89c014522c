#include "tools/companion/check_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "data/check_store.h"
#include "tools/companion/folder_argument.h"

namespace veyra {
namespace {

ExitStatus RunCheck(const std::string& file, std::ostream& out) {
  const std::vector<std::string> faults = CheckDatabaseFile(file);
  for (const std::string& fault : faults) out << fault << '\n';
  if (faults.empty()) out << file << " is sound.\n";
  return faults.empty() ? ExitStatus::Fine : ExitStatus::Found;
}

Command::Action Declare(CLI::App& app) {
  const auto file = std::make_shared<std::string>();
  AddRequiredName(app, "FILE", *file, "the database file; it may be in use");
  return [file](Streams& streams) { return RunCheck(*file, streams.Out); };
}

}  // namespace

Command CheckCommand() {
  return {"check", "Look through an Access file for damage",
          "Its list of tables, who has each page, the maps of pages, every row and long text, the\n"
          "numbers of rows, every index against its table. Prints a line for each thing that is\n"
          "wrong. The file is only read.\n"
          "Example: veyra-data check ~/our-calendar/Calendar.mdb",
          Declare};
}

}  // namespace veyra
