#include "tools/companion/rescue_command.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "data/file_name.h"
#include "tools/care/rescue.h"
#include "tools/companion/folder_argument.h"
#include "tools/companion/json_text.h"
#include "tools/plain_text.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

struct Options {
  std::string File;
  std::string Folder;
  bool Json = false;
};

std::string CountOf(const SalvagedTable& table) {
  const std::string rows = std::to_string(table.Rows.size());
  return table.Expected ? rows + " of " + std::to_string(*table.Expected) + " rows"
                        : rows + (table.Rows.size() == 1 ? " row" : " rows");
}

std::string PlaceOf(const SalvageLoss& loss) {
  const std::string table = loss.Table.empty() ? "The file" : loss.Table;
  return loss.Page ? table + ", page " + std::to_string(*loss.Page) : table;
}

void PrintForPeople(const Rescued& rescued, const fs::path& damaged, std::ostream& out) {
  out << "Made " << OneLine(rescued.File.string()) << " of " << OneLine(damaged.string()) << ":\n";
  for (const SalvagedTable& table : rescued.Read.Tables) {
    out << OneLine(table.Table.Name) << ": " << CountOf(table) << '\n';
  }
  out << (rescued.Read.Losses.empty() ? "Everything could be read.\n" : "Not all could be read:\n");
  for (const SalvageLoss& loss : rescued.Read.Losses) {
    out << OneLine(PlaceOf(loss)) << ": " << OneLine(loss.What) << '\n';
  }
}

Json JsonOf(const SalvagedTable& table) {
  return {{"name", table.Table.Name},
          {"rows", table.Rows.size()},
          {"expected", table.Expected ? Json(*table.Expected) : Json(nullptr)}};
}

Json JsonOf(const SalvageLoss& loss) {
  return {{"table", loss.Table},
          {"page", loss.Page ? Json(*loss.Page) : Json(nullptr)},
          {"what", loss.What}};
}

void PrintForPrograms(const Rescued& rescued, const fs::path& damaged, std::ostream& out) {
  Json tables = Json::array();
  for (const SalvagedTable& table : rescued.Read.Tables) {
    tables.push_back(JsonOf(table));
  }
  Json losses = Json::array();
  for (const SalvageLoss& loss : rescued.Read.Losses) {
    losses.push_back(JsonOf(loss));
  }
  PrintJson({{"file", damaged.string()},
             {"made", rescued.File.string()},
             {"tables", std::move(tables)},
             {"lost", std::move(losses)}},
            out);
}

ExitStatus RunRescue(const Options& options, const CopyObserver& observer, std::ostream& out) {
  const fs::path damaged = fs::absolute(NativePath(options.File));
  const Rescued rescued = RescueFile(damaged, fs::absolute(NativePath(options.Folder)), observer);
  if (options.Json) {
    PrintForPrograms(rescued, damaged, out);
  } else {
    PrintForPeople(rescued, damaged, out);
  }
  return rescued.Read.Losses.empty() ? ExitStatus::Fine : ExitStatus::Found;
}

Command::Action Declare(CLI::App& app, const CopyObserver& observer) {
  const auto options = std::make_shared<Options>();
  AddRequiredName(app, "FILE", options->File, "the damaged database file, which is only read");
  AddRequiredName(app, "NEW-FOLDER", options->Folder, "where the new database is to be made");
  app.add_flag("--json", options->Json, "print for programs");
  return
      [options, observer](Streams& streams) { return RunRescue(*options, observer, streams.Out); };
}

}  // namespace

Command RescueCommand(CopyObserver observer) {
  return {
      "rescue", "Read what is left in a damaged file into a new one",
      "Goes through the file page by page and puts every row that is whole into a new file of\n"
      "the same kind, Calendar.mdb, or Veyra.mdb when it holds the guests. What could not be\n"
      "read is listed by table and page; status 1 when there is any. Close the calendar first,\n"
      "and leave what lies beside the file. Files that are there are never written over.\n"
      "Example: veyra-data rescue ~/our-calendar/Calendar.mdb ~/rescued",
      [observer = std::move(observer)](CLI::App& app) { return Declare(app, observer); }};
}

}  // namespace veyra
