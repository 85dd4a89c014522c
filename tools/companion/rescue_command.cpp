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
#include "tools/companion/parser_words.h"
#include "tools/plain_text.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

struct Options {
  std::string File;
  std::string Folder;
  bool Json = false;
};

Phrase CountOf(const SalvagedTable& table) {
  const std::size_t rows = table.Rows.size();
  if (table.Expected) {
    return Phrase::Tr("%1 of %2 rows", rows, *table.Expected);
  }
  return rows == 1 ? Phrase::Tr("1 row") : Phrase::Tr("%1 rows", rows);
}

Phrase PlaceOf(const SalvageLoss& loss) {
  const Phrase table = loss.Table.empty() ? Phrase::Tr("The file") : Phrase(loss.Table);
  return loss.Page ? Phrase::Tr("%1, page %2", table, *loss.Page) : table;
}

void PrintForPeople(const Rescued& rescued, const fs::path& damaged, const Streams& streams) {
  streams.Tell(
      Phrase::Tr("Made %1 of %2:", OneLine(rescued.File.string()), OneLine(damaged.string())));
  for (const SalvagedTable& table : rescued.Read.Tables) {
    streams.Tell(OneLine(table.Table.Name) + ": " + CountOf(table));
  }
  streams.Tell(rescued.Read.Losses.empty() ? Phrase::Tr("Everything could be read.")
                                           : Phrase::Tr("Not all could be read:"));
  for (const SalvageLoss& loss : rescued.Read.Losses) {
    streams.Tell(OneLine(streams.InWords(PlaceOf(loss) + ": " + loss.What)));
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
          {"what", loss.What.English()}};
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

ExitStatus RunRescue(const Options& options, const CopyObserver& observer, const Streams& streams) {
  const fs::path damaged = fs::absolute(NativePath(options.File));
  const Rescued rescued = RescueFile(damaged, fs::absolute(NativePath(options.Folder)), observer);
  if (options.Json) {
    PrintForPrograms(rescued, damaged, streams.Out);
  } else {
    PrintForPeople(rescued, damaged, streams);
  }
  return rescued.Read.Losses.empty() ? ExitStatus::Fine : ExitStatus::Found;
}

Command::Action Declare(CLI::App& app, const CopyObserver& observer) {
  const auto options = std::make_shared<Options>();
  AddRequiredName(app, "FILE", options->File,
                  Phrase::Tr("the damaged database file, which is only read"));
  AddRequiredName(app, "NEW-FOLDER", options->Folder,
                  Phrase::Tr("where the new database is to be made"));
  app.add_flag("--json", options->Json, Meaning(Phrase::Tr("print for programs")));
  return [options, observer](Streams& streams) { return RunRescue(*options, observer, streams); };
}

}  // namespace

Command RescueCommand(CopyObserver observer) {
  return {
      "rescue", Phrase::Tr("Read what is left in a damaged file into a new one"),
      Phrase::Tr(
          "Goes through the file page by page and puts every row that is whole into a new file of "
          "the same kind, Calendar.mdb, or Veyra.mdb when it holds the guests. What could not be "
          "read is listed by table and page; status 1 when there is any. Close the calendar first, "
          "and leave what lies beside the file. Files that are there are never written over.") +
          Examples({"veyra-data rescue ~/our-calendar/Calendar.mdb ~/rescued"}),
      [observer = std::move(observer)](CLI::App& app) { return Declare(app, observer); }};
}

}  // namespace veyra
