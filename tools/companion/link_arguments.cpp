#include "tools/companion/link_arguments.h"

#include <CLI/CLI.hpp>

#include "data/shared_calendar.h"
#include "tools/companion/parser_words.h"

namespace veyra {

void AddLinkArguments(CLI::App& app, LinkArguments& arguments) {
  app.add_option("FOLDER", arguments.Folder, Meaning(Phrase::Tr("the data folder")))->type_name("");
  app.add_option(
         "URI", arguments.Link.Server,
         Meaning(Phrase::Tr("the server, as PostgreSQL's programs name it: a URI or service=NAME")))
      ->type_name("");
  AddSchema(app, arguments.Link);
}

void RequireLinkArguments(const LinkArguments& arguments) {
  if (arguments.Folder.empty()) {
    throw CLI::RequiredError("FOLDER");
  }
  if (arguments.Link.Server.empty()) {
    throw CLI::RequiredError("URI");
  }
}

void AddSchema(CLI::App& app, CalendarLink& link) {
  app.add_option("--schema", link.Schema,
                 Meaning(Phrase::Tr(
                     "the schema of the database that holds the calendar (veyra unless given)")))
      ->type_name("NAME");
}

void TellOfConnection(const CalendarLink& link, const Streams& streams) {
  const Phrase warning = LinkWarning({}, link);
  if (!warning.IsEmpty()) {
    streams.Tell(warning);
  }
}

}  // namespace veyra
