#include "tools/companion/share_command.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <utility>

#include "data/errors.h"
#include "data/file_name.h"
#include "data/shared_calendar.h"
#include "tools/companion/link_arguments.h"
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
                 std::ostream& out) {
  const fs::path named = fs::absolute(NativePath(options.Place.Folder)) / kCalendarFile;
  if (LeadsToServer(named)) {
    out << OneLine(named.string()) << " is shared already; nothing was changed.\n";
    return ExitStatus::Found;
  }
  const SharedFile made = ShareFile(fs::canonical(named), options.Place.Link, today, observer);
  out << OneLine(named.string()) << " leads to the server now: " << made.Plan.Tables.size()
      << " tables, " << made.Plan.RowCount << " rows, all compared.\nThe old file is kept as "
      << OneLine(made.Kept.filename().string()) << ".\n";
  if (made.Notice) {
    out << PlainLines(Error(*made.Notice).what()) << '\n';
  }
  return ExitStatus::Fine;
}

ExitStatus RunShare(const Options& options, Date today, const CopyObserver& observer,
                    std::ostream& out) {
  if (options.Sql) {
    out << SharedCalendarSql(options.Place.Link.Schema, options.Role);
    return ExitStatus::Fine;
  }
  TellOfConnection(options.Place.Link, out);
  return Share(options, today, observer, out);
}

Command::Action Declare(CLI::App& app, Date today, const CopyObserver& observer) {
  const auto options = std::make_shared<Options>();
  CLI::Option* const sql = app.add_flag(
      "--sql", options->Sql, "print what an administrator may run on the server, and do nothing");
  AddLinkArguments(app, options->Place);
  app.parse_complete_callback([options] {
    if (!options->Sql) {
      RequireLinkArguments(options->Place);
    }
  });
  app.add_option("--role", options->Role,
                 "with --sql: the role of the desks, which may then read and write rows")
      ->needs(sql)
      ->default_val("veyra_desk");
  return [options, today, observer](Streams& streams) {
    return RunShare(*options, today, observer, streams.Out);
  };
}

}  // namespace

Command ShareCommand(Date today, CopyObserver observer) {
  return {"share", "Put the calendar on a PostgreSQL server, for several desks",
          "All its tables, columns and rows are copied in one transaction, every row is compared,\n"
          "and a link takes the place of Calendar.mdb, which stays beside it as\n"
          "Calendar-before-DATE.mdb. Nobody may have the calendar open.\n"
          "Passwords do not belong into a link: put them into ~/.pgpass or a service file.\n"
          "Example: veyra-data share ~/our-calendar postgresql://desk@server.example/houses",
          [today, observer = std::move(observer)](CLI::App& app) {
            return Declare(app, today, observer);
          }};
}

}  // namespace veyra
