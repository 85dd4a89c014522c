#pragma once

#include <string>

#include "data/calendar_link.h"
#include "tools/companion/command.h"

namespace CLI {
class App;
}

namespace veyra {

/// A data folder, and where its calendar is shared.
struct LinkArguments {
  std::string Folder;
  CalendarLink Link;
};

/// Declares FOLDER, URI and --schema, which are read into `arguments`; that must outlive the
/// parsing. None of them need be given.
void AddLinkArguments(CLI::App& app, LinkArguments& arguments);

/// Throws CLI::RequiredError when FOLDER or URI was not given.
void RequireLinkArguments(const LinkArguments& arguments);

/// Declares --schema alone.
void AddSchema(CLI::App& app, CalendarLink& link);

/// Says what there is to be said of how the connection is protected. Throws as LinkWarning does.
void TellOfConnection(const CalendarLink& link, const Streams& streams);

}  // namespace veyra
