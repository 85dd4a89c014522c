#include "tools/companion/compact_command.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

#include "data/errors.h"
#include "data/file_name.h"
#include "data/open_store.h"
#include "tools/companion/folder_argument.h"
#include "tools/companion/parser_words.h"
#include "tools/plain_text.h"
#include "tools/rewritten_file.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr const char* kCalendarFile = "Calendar.mdb";

std::string Kilobytes(std::uintmax_t bytes) {
  return std::to_string((bytes + 1023) / 1024) + " KB";
}

void RequireTablesOnly(const std::string& file, const StoreDescription& found) {
  if (found.OtherObjects > 0) {
    throw DatabaseError({file,
                         Phrase::Tr("It has %1 queries, forms, reports or other objects, which "
                                    "would be lost.",
                                    found.OtherObjects),
                         Phrase::Tr("Nothing was changed. Open it in Access and choose Compact and "
                                    "Repair.")});
  }
  if (!found.IsWritable) {
    throw DatabaseError({file, Phrase::Tr("It is of a kind that is only read."),
                         Phrase::Tr("Nothing was changed. Convert it with veyra-data convert.")});
  }
}

/// An earlier run that broke off, a conversion or a mending has left the calendar as it was.
void TellOfKept(const fs::path& file, const Streams& streams) {
  std::error_code unreachable;
  for (fs::directory_iterator entry(file.parent_path(), unreachable), end;
       !unreachable && entry != end; entry.increment(unreachable)) {
    const std::string name = entry->path().filename().string();
    if (name.starts_with(file.stem().string() + "-before-")) {
      streams.Tell(Phrase::Tr("Beside it lies the older file %1.", OneLine(name)));
    }
  }
}

Phrase NeedlessFor(const std::string& file, FileKind kind) {
  return kind == FileKind::Sqlite
             ? Phrase::Tr("%1 is a SQLite file, which needs no compacting; nothing was changed.",
                          file)
             : Phrase::Tr("%1 is on a server, which needs no compacting; nothing was changed.",
                          file);
}

ExitStatus RunCompact(const std::string& folder, Date today, const CopyObserver& observer,
                      const Streams& streams) {
  const fs::path named = fs::absolute(NativePath(folder)) / kCalendarFile;
  const StoreDescription found = OpenStore(named.string(), StoreAccess::ReadOnly)->Describe();
  if (found.Kind != FileKind::Access) {
    streams.Tell(NeedlessFor(OneLine(named.string()), found.Kind));
    return ExitStatus::Found;
  }
  RequireTablesOnly(named.string(), found);
  const fs::path file = fs::canonical(named);
  const std::uintmax_t before = fs::file_size(file);
  const RewrittenFile made = RewriteFile(file, found.Kind, today, observer);
  fs::remove(made.Kept);
  const std::uintmax_t after = fs::file_size(file);
  streams.Tell(Phrase::Tr("%1 had %2 and has %3 now, %4 less: %5 tables, %6 rows, all compared.",
                          OneLine(file.string()), Kilobytes(before), Kilobytes(after),
                          Kilobytes(before > after ? before - after : 0), made.Plan.Tables.size(),
                          made.Plan.RowCount));
  streams.TellNotice(made.Notice);
  TellOfKept(file, streams);
  return ExitStatus::Fine;
}

Command::Action Declare(CLI::App& app, Date today, const CopyObserver& observer) {
  const auto folder = std::make_shared<std::string>();
  AddRequiredName(app, "FOLDER", *folder, Phrase::Tr("the data folder"));
  return [folder, today, observer](Streams& streams) {
    return RunCompact(*folder, today, observer, streams);
  };
}

}  // namespace

Command CompactCommand(Date today, CopyObserver observer) {
  return {
      "compact", Phrase::Tr("Make Calendar.mdb anew without its holes"),
      Phrase::Tr("All its tables, columns and rows are copied into a new file, where every row is "
                 "compared; the old file is kept until then. Nobody may have the calendar open.") +
          Examples({"veyra-data compact ~/our-calendar"}),
      [today, observer = std::move(observer)](CLI::App& app) {
        return Declare(app, today, observer);
      }};
}

}  // namespace veyra
