#include "tools/companion/link_command.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>

#include "data/file_name.h"
#include "data/open_store.h"
#include "tools/companion/link_arguments.h"
#include "tools/companion/parser_words.h"
#include "tools/new_database.h"
#include "tools/plain_text.h"
#include "tools/unfinished_folder.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr const char* kCalendarFile = "Calendar.mdb";

/// The server is asked before the link is where the program finds it.
void MakeLink(const fs::path& folder, const CalendarLink& link) {
  UnfinishedFolder::RemoveAbandoned(folder);
  RefuseIfThere(folder / kCalendarFile);
  UnfinishedFolder unfinished(folder);
  const fs::path fresh = unfinished.path() / kCalendarFile;
  WriteCalendarLink(fresh, link);
  OpenStore(fresh, StoreAccess::ReadOnly);
  unfinished.MoveOut({kCalendarFile});
}

ExitStatus RunLink(const LinkArguments& place, const Streams& streams) {
  const fs::path folder = NativePath(place.Folder);
  TellOfConnection(place.Link, streams);
  MakeLink(folder, place.Link);
  streams.Tell(Phrase::Tr("%1 leads to the shared calendar now.",
                          OneLine((folder / kCalendarFile).string())));
  return ExitStatus::Fine;
}

Command::Action Declare(CLI::App& app) {
  const auto place = std::make_shared<LinkArguments>();
  AddLinkArguments(app, *place);
  app.parse_complete_callback([place] { RequireLinkArguments(*place); });
  return [place](Streams& streams) { return RunLink(*place, streams); };
}

}  // namespace

Command LinkCommand() {
  return {
      "link", Phrase::Tr("Make the link to a calendar that is shared already"),
      Phrase::Tr(
          "For each further desk. The server is asked first; a Calendar.mdb that is there is never "
          "written over.") +
          Examples({"veyra-data link ~/our-calendar postgresql://desk@server.example/houses"}),
      [](CLI::App& app) { return Declare(app); }};
}

}  // namespace veyra
