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
#include "tools/companion/parser_words.h"
#include "tools/plain_text.h"
#include "tools/rewritten_file.h"
#include "tools/unfinished_folder.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr const char* kCalendarFile = "Calendar.mdb";

Phrase Converted(const std::string& file, FileKind kind, const CopyPlan& plan) {
  return kind == FileKind::Access
             ? Phrase::Tr("%1 is an Access file now: %2 tables, %3 rows, all compared.", file,
                          plan.Tables.size(), plan.RowCount)
             : Phrase::Tr("%1 is a SQLite file now: %2 tables, %3 rows, all compared.", file,
                          plan.Tables.size(), plan.RowCount);
}

Phrase AlreadyOf(const std::string& file, FileKind kind) {
  return kind == FileKind::Access
             ? Phrase::Tr("%1 is an Access file already; nothing was changed.", file)
             : Phrase::Tr("%1 is a SQLite file already; nothing was changed.", file);
}

void Convert(const fs::path& file, FileKind was, FileKind kind, Date today,
             const CopyObserver& observer, const Streams& streams) {
  const RewrittenFile made = RewriteFile(file, kind, today, observer);
  streams.Tell(Converted(OneLine(file.string()), kind, made.Plan));
  streams.Tell(Phrase::Tr("The old file is kept as %1.", OneLine(made.Kept.filename().string())));
  if (was == FileKind::Postgres) {
    streams.Tell(
        Phrase::Tr("The calendar on the server stays as it is: desks that have a link "
                   "still book there."));
  }
  streams.TellNotice(made.Notice);
}

struct Options {
  std::string Folder;
  FileKind To = FileKind::Sqlite;
};

ExitStatus RunConvert(const Options& options, Date today, const CopyObserver& observer,
                      const Streams& streams) {
  const fs::path named = fs::absolute(NativePath(options.Folder)) / kCalendarFile;
  const StoreDescription found = OpenStore(named.string(), StoreAccess::ReadOnly)->Describe();
  if (found.Kind == options.To && found.IsWritable) {
    // A conversion that was killed when it was done may have left its workshop.
    UnfinishedFolder::RemoveAbandoned(fs::canonical(named).parent_path());
    streams.Tell(AlreadyOf(OneLine(named.string()), options.To));
    return ExitStatus::Found;
  }
  Convert(fs::canonical(named), found.Kind, options.To, today, observer, streams);
  return ExitStatus::Fine;
}

Command::Action Declare(CLI::App& app, Date today, const CopyObserver& observer) {
  const auto options = std::make_shared<Options>();
  AddRequiredName(app, "FOLDER", options->Folder, Phrase::Tr("the data folder"));
  const std::map<std::string, FileKind> kinds = {{"sqlite", FileKind::Sqlite},
                                                 {"access", FileKind::Access}};
  app.add_option("--to", options->To,
                 Meaning(Phrase::Tr("the kind of file to make: sqlite (the default) or access")))
      ->type_name("KIND")
      ->transform(CLI::CheckedTransformer(kinds).description(""));
  return [options, today, observer](Streams& streams) {
    return RunConvert(*options, today, observer, streams);
  };
}

}  // namespace

Command ConvertCommand(Date today, CopyObserver observer) {
  return {
      "convert", Phrase::Tr("Make Calendar.mdb a file of the other kind"),
      Phrase::Tr(
          "All its tables, columns and rows are copied; queries, forms and reports are left out. "
          "Every row is compared, and the old file stays beside the new one as "
          "Calendar-before-DATE.mdb. Nobody may have the calendar open.") +
          Examples({"veyra-data convert ~/our-calendar --to sqlite"}),
      [today, observer = std::move(observer)](CLI::App& app) {
        return Declare(app, today, observer);
      }};
}

}  // namespace veyra
