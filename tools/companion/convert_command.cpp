#include "tools/companion/convert_command.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <map>
#include <memory>
#include <utility>

#include "data/create_store.h"
#include "data/errors.h"
#include "data/file_name.h"
#include "data/open_store.h"
#include "tools/companion/folder_argument.h"
#include "tools/plain_text.h"
#include "tools/rewritten_file.h"
#include "tools/unfinished_folder.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr const char* kCalendarFile = "Calendar.mdb";

const char* NameOf(FileKind kind) {
  return kind == FileKind::Access ? "an Access file" : "a SQLite file";
}

void Convert(const fs::path& file, FileKind was, FileKind kind, Date today,
             const CopyObserver& observer, std::ostream& out) {
  const RewrittenFile made = RewriteFile(file, kind, today, observer);
  out << OneLine(file.string()) << " is " << NameOf(kind) << " now: " << made.Plan.Tables.size()
      << " tables, " << made.Plan.RowCount << " rows, all compared.\nThe old file is kept as "
      << OneLine(made.Kept.filename().string()) << ".\n";
  if (was == FileKind::Postgres) {
    out << "The calendar on the server stays as it is: desks that have a link still book there.\n";
  }
  if (made.Notice) {
    out << PlainLines(Error(*made.Notice).what()) << '\n';
  }
}

struct Options {
  std::string Folder;
  FileKind To = FileKind::Sqlite;
};

ExitStatus RunConvert(const Options& options, Date today, const CopyObserver& observer,
                      std::ostream& out) {
  const fs::path named = fs::absolute(NativePath(options.Folder)) / kCalendarFile;
  const StoreDescription found = OpenStore(named.string(), StoreAccess::ReadOnly)->Describe();
  if (found.Kind == options.To && found.IsWritable) {
    // A conversion that was killed when it was done may have left its workshop.
    UnfinishedFolder::RemoveAbandoned(fs::canonical(named).parent_path());
    out << OneLine(named.string()) << " is " << NameOf(options.To)
        << " already; nothing was changed.\n";
    return ExitStatus::Found;
  }
  Convert(fs::canonical(named), found.Kind, options.To, today, observer, out);
  return ExitStatus::Fine;
}

Command::Action Declare(CLI::App& app, Date today, const CopyObserver& observer) {
  const auto options = std::make_shared<Options>();
  AddRequiredName(app, "FOLDER", options->Folder, "the data folder");
  const std::map<std::string, FileKind> kinds = {{"sqlite", FileKind::Sqlite},
                                                 {"access", FileKind::Access}};
  app.add_option("--to", options->To, "the kind of file to make: sqlite (the default) or access")
      ->type_name("KIND")
      ->transform(CLI::CheckedTransformer(kinds).description(""));
  return [options, today, observer](Streams& streams) {
    return RunConvert(*options, today, observer, streams.Out);
  };
}

}  // namespace

Command ConvertCommand(Date today, CopyObserver observer) {
  return {"convert", "Make Calendar.mdb a file of the other kind",
          "All its tables, columns and rows are copied; queries, forms and reports are left out.\n"
          "Every row is compared, and the old file stays beside the new one as\n"
          "Calendar-before-DATE.mdb. Nobody may have the calendar open.\n"
          "Example: veyra-data convert ~/our-calendar --to sqlite",
          [today, observer = std::move(observer)](CLI::App& app) {
            return Declare(app, today, observer);
          }};
}

}  // namespace veyra
