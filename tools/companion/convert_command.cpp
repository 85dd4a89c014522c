#include "tools/companion/convert_command.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <utility>

#include "data/create_store.h"
#include "data/errors.h"
#include "data/file_name.h"
#include "data/open_store.h"
#include "tools/companion/folder_argument.h"
#include "tools/copy_database.h"
#include "tools/file_moves.h"
#include "tools/unfinished_folder.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr const char* kCalendarFile = "Calendar.mdb";

/// Who has the calendar open has it open for hours: waiting is of no use.
constexpr std::chrono::milliseconds kPatience{200};

constexpr const char* kCloseAdvice =
    "Nothing was changed. Close the calendar at every desk, and try again.";

const char* NameOf(FileKind kind) {
  return kind == FileKind::Access ? "an Access file" : "a SQLite file";
}

std::unique_ptr<Store> OpenAlone(const fs::path& file) {
  try {
    return OpenStore(file.string(), StoreAccess::Alone, kPatience);
  } catch (const DatabaseBusyError&) {
    throw DatabaseBusyError({file.string(), "Somebody has the calendar open.", kCloseAdvice});
  }
}

/// Whether a journal lies beside a database that is closed here: then it is not whole without it.
bool HasJournal(const fs::path& file) {
  for (const char* suffix : {"-wal", "-shm", "-journal"}) {
    if (fs::exists(fs::symlink_status(file.string() + suffix))) return true;
  }
  return false;
}

/// What changes in a file when it is written to.
using FileState = std::pair<std::uintmax_t, fs::file_time_type>;

FileState StateOf(const fs::path& file) {
  return {fs::file_size(file), fs::last_write_time(file)};
}

/// Makes what an interrupted program left undone, and returns what the file is then like.
FileState Settle(const fs::path& file) {
  OpenAlone(file);
  if (HasJournal(file)) {
    throw DatabaseBusyError({file.string(), "Somebody has the calendar open.", kCloseAdvice});
  }
  return StateOf(file);
}

void RequireUnchanged(const fs::path& file, const FileState& before) {
  if (HasJournal(file) || StateOf(file) != before) {
    throw DatabaseBusyError(
        {file.string(), "Somebody used the calendar while it was converted.", kCloseAdvice});
  }
}

/// Makes the new file, whole and compared, and returns how many tables and rows it has.
CopyPlan MakeCopy(const fs::path& file, const fs::path& fresh, FileKind kind,
                  const CopyObserver& observer) {
  const auto source = OpenAlone(file);
  CopyPlan plan = PlanCopy(*source, kind, observer);
  CopyTables(*source, *CreateStore(fresh.string(), Durability::WhenAsked, kind), plan, observer);
  if (HasJournal(fresh)) {
    throw FileError({fresh.string(), "The new file could not be completed.",
                     "Nothing was changed. Check that the disk has room."});
  }
  CompareTables(*source, *OpenStore(fresh.string(), StoreAccess::ReadOnly), plan, observer);
  return plan;
}

void Convert(const fs::path& file, FileKind kind, Date today, const CopyObserver& observer,
             std::ostream& out) {
  const FileState before = Settle(file);
  UnfinishedFolder unfinished(file.parent_path());
  const fs::path fresh = unfinished.path() / file.filename();
  const CopyPlan plan = MakeCopy(file, fresh, kind, observer);
  RequireUnchanged(file, before);
  TakeOverRights(file, fresh);
  const fs::path kept = ReplaceAndKeep(fresh, file, today);
  out << file.string() << " is " << NameOf(kind) << " now: " << plan.Tables.size() << " tables, "
      << plan.RowCount << " rows, all compared.\nThe old file is kept as "
      << kept.filename().string() << ".\n";
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
    out << named.string() << " is " << NameOf(options.To) << " already; nothing was changed.\n";
    return ExitStatus::Found;
  }
  Convert(fs::canonical(named), options.To, today, observer, out);
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
