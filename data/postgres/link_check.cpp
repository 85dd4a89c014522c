#include "data/postgres/link_check.h"

#include <map>
#include <memory>
#include <sstream>

#include "data/errors.h"
#include "data/postgres/libpq.h"

namespace veyra::postgres {

namespace {

using Settings = std::map<std::string, std::string>;

/// libpq's messages end in a line break.
std::string OneLine(std::string text) {
  for (char& c : text) {
    c = c == '\n' ? ' ' : c;
  }
  text.erase(text.find_last_not_of(" .") + 1);
  return text;
}

Settings Parse(const std::string& file, const std::string& server) {
  const Libpq libpq(file);
  char* message = nullptr;
  PQconninfoOption* const options = libpq.ConninfoParse(server.c_str(), &message);
  if (options == nullptr) {
    const Phrase why =
        message == nullptr ? Phrase::Tr("too little memory") : Phrase(OneLine(message));
    libpq.FreeMem(message);
    throw DatabaseError(
        {file, Phrase::Tr("The link does not name a server as it should: %1.", why),
         Phrase::Tr("Write it as postgresql://USER@HOST/DATABASE or service=NAME.")});
  }
  Settings settings;
  for (const PQconninfoOption* option = options; option->keyword != nullptr; ++option) {
    if (option->val != nullptr) {
      settings[option->keyword] = option->val;
    }
  }
  libpq.ConninfoFree(options);
  return settings;
}

bool IsThisHost(const std::string& host) {
  return host.empty() || host.starts_with('/') || host.starts_with('@') || host == "localhost" ||
         host.starts_with("127.") || host == "::1";
}

std::string In(const Settings& settings, const std::string& name) {
  const auto found = settings.find(name);
  return found == settings.end() ? std::string() : found->second;
}

void RefusePassword(const std::string& file, const Settings& settings) {
  if (settings.contains("password") || settings.contains("sslpassword")) {
    throw DatabaseError(
        {file,
         Phrase::Tr(
             "There is a password in the link, which everybody who may read the file would have."),
         Phrase::Tr("Take it out of the link. Put it into the file ~/.pgpass of each desk, or into "
                    "a service file, or let the server know the desks by their accounts (peer "
                    "authentication).")});
  }
}

}  // namespace

bool IsThisMachine(const std::string& hosts) {
  std::istringstream list(hosts);
  for (std::string host; std::getline(list, host, ',');) {
    if (!IsThisHost(host)) {
      return false;
    }
  }
  return true;
}

LinkFacts CheckLink(const std::string& file, const CalendarLink& link) {
  const Settings settings = Parse(file, link.Server);
  RefusePassword(file, settings);
  const std::string address = In(settings, "hostaddr");
  LinkFacts facts{.IsRemote = !IsThisMachine(In(settings, "host")) || !IsThisMachine(address),
                  .NamesTls = settings.contains("sslmode"),
                  .Tls = In(settings, "sslmode")};
  if (facts.IsRemote && !facts.NamesTls) {
    facts.Tls = "verify-full";
  }
  return facts;
}

}  // namespace veyra::postgres
