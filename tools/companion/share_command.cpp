#include "tools/companion/share_command.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <utility>

#include "data/errors.h"
#include "data/file_name.h"
#include "data/shared_calendar.h"
#include "tools/companion/link_arguments.h"
#include "tools/companion/parser_words.h"
#include "tools/plain_text.h"
#include "tools/shared_file.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr const char* kCalendarFile = "Calendar.mdb";

struct Options {
  LinkArguments Place;
  bool Sql = false;
  std::string Role;
};

ExitStatus Share(const Options& options, Date today, const CopyObserver& observer,
                 const Streams& streams) {
  const fs::path named = fs::absolute(NativePath(options.Place.Folder)) / kCalendarFile;
  if (LeadsToServer(named)) {
    streams.Tell(Phrase::Tr("%1 is shared already; nothing was changed.", OneLine(named.string())));
    return ExitStatus::Found;
  }
  const SharedFile made = ShareFile(fs::canonical(named), options.Place.Link, today, observer);
  streams.Tell(Phrase::Tr("%1 leads to the server now: %2 tables, %3 rows, all compared.",
                          OneLine(named.string()), made.Plan.Tables.size(), made.Plan.RowCount));
  streams.Tell(Phrase::Tr("The old file is kept as %1.", OneLine(made.Kept.filename().string())));
  streams.TellNotice(made.Notice);
  return ExitStatus::Fine;
}

ExitStatus RunShare(const Options& options, Date today, const CopyObserver& observer,
                    const Streams& streams) {
  if (options.Sql) {
    streams.Out << SharedCalendarSql(options.Place.Link.Schema, options.Role);
    return ExitStatus::Fine;
  }
  TellOfConnection(options.Place.Link, streams);
  return Share(options, today, observer, streams);
}

Command::Action Declare(CLI::App& app, Date today, const CopyObserver& observer) {
  const auto options = std::make_shared<Options>();
  CLI::Option* const sql = app.add_flag(
      "--sql", options->Sql,
      Meaning(Phrase::Tr("print what an administrator may run on the server, and do nothing")));
  AddLinkArguments(app, options->Place);
  app.parse_complete_callback([options] {
    if (!options->Sql) {
      RequireLinkArguments(options->Place);
    }
  });
  app.add_option("--role", options->Role,
                 Meaning(Phrase::Tr(
                     "with --sql: the role of the desks, which may then read and write rows")))
      ->needs(sql)
      ->default_val("veyra_desk");
  return [options, today, observer](Streams& streams) {
    return RunShare(*options, today, observer, streams);
  };
}

}  // namespace

Command ShareCommand(Date today, CopyObserver observer) {
  return {
      "share", Phrase::Tr("Put the calendar on a PostgreSQL server, for several desks"),
      Phrase::Tr(
          "All its tables, columns and rows are copied in one transaction, every row is compared, "
          "and a link takes the place of Calendar.mdb, which stays beside it as "
          "Calendar-before-DATE.mdb. Nobody may have the calendar open. "
          "Passwords do not belong into a link: put them into ~/.pgpass or a service file.") +
          Examples({"veyra-data share ~/our-calendar postgresql://desk@server.example/houses"}),
      [today, observer = std::move(observer)](CLI::App& app) {
        return Declare(app, today, observer);
      }};
}

}  // namespace veyra
