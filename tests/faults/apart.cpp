#include "tests/faults/apart.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <stdexcept>

#include "data/errors.h"
#include "tests/faults/contents.h"

namespace veyra::faults {

namespace {

enum class Tag : char { Saved, Error, Afterwards, LastBox, Disk };

void Send(int pipe, Tag tag, const std::string& text) {
  const auto size = static_cast<std::uint32_t>(text.size());
  std::string message(1, static_cast<char>(tag));
  message.append(reinterpret_cast<const char*>(&size), sizeof size);
  message += text;
  if (write(pipe, message.data(), message.size()) != static_cast<ssize_t>(message.size())) {
    _exit(3);
  }
}

std::string ReadAll(int pipe) {
  std::string bytes;
  char block[4096];
  for (ssize_t count = 0; (count = read(pipe, block, sizeof block)) > 0;) {
    bytes.append(block, static_cast<std::size_t>(count));
  }
  return bytes;
}

void Take(Tag tag, const std::string& text, Outcome& outcome) {
  switch (tag) {
    case Tag::Saved:
      ++outcome.Saved;
      break;
    case Tag::Error:
      outcome.Error = text;
      break;
    case Tag::Afterwards:
      outcome.Afterwards = text;
      break;
    case Tag::LastBox:
      outcome.LastBox = text;
      break;
    case Tag::Disk:
      std::memcpy(&outcome.Disk.Steps, text.data(), sizeof outcome.Disk.Steps);
      std::memcpy(outcome.Disk.Calls.data(), text.data() + sizeof outcome.Disk.Steps,
                  sizeof outcome.Disk.Calls);
      break;
  }
}

Outcome Decode(const std::string& bytes) {
  Outcome outcome;
  for (std::size_t at = 0; at + 5 <= bytes.size();) {
    std::uint32_t size = 0;
    std::memcpy(&size, bytes.data() + at + 1, sizeof size);
    Take(static_cast<Tag>(bytes[at]), bytes.substr(at + 5, size), outcome);
    at += 5 + size;
  }
  return outcome;
}

std::string Encode(const Seen& seen) {
  std::string bytes(reinterpret_cast<const char*>(&seen.Steps), sizeof seen.Steps);
  bytes.append(reinterpret_cast<const char*>(seen.Calls.data()), sizeof seen.Calls);
  return bytes;
}

std::string BookAfterwards(Office& office) {
  try {
    office.Book(29, "Afterwards");
    return "saved";
  } catch (const std::exception& failure) {
    return failure.what();
  }
}

void Work(const Action& action, const std::string& folder, const Plan& plan, int pipe) {
  Watch(plan);
  bool counting = true;
  std::unique_ptr<Office> office;
  std::string failure;
  try {
    office = std::make_unique<Office>(folder, Witness{.Made = [&] {
                                        if (counting) {
                                          Send(pipe, Tag::Saved, {});
                                        }
                                      }});
    office->Start();
    action.Do(*office);
    failure = office->Halts();
    if (!office->Boxes().empty()) {
      Send(pipe, Tag::LastBox, office->Boxes().back());
    }
  } catch (const std::exception& error) {
    failure = (office ? office->Halts() : "") + error.what();
  }
  counting = false;
  if (failure.empty()) {
    office.reset();
    Send(pipe, Tag::Disk, Encode(EndWatch()));
    return;
  }
  Send(pipe, Tag::Error, failure);
  Send(pipe, Tag::Disk, Encode(EndWatch()));
  if (office) {
    Send(pipe, Tag::Afterwards, BookAfterwards(*office));
  }
}

}  // namespace

Outcome RunApart(const Action& action, const std::string& folder, const Plan& plan) {
  int ends[2];
  if (pipe(ends) != 0) {
    throw std::runtime_error("no pipe");
  }
  const pid_t child = fork();
  if (child == 0) {
    close(ends[0]);
    Work(action, folder, plan, ends[1]);
    _exit(0);
  }
  close(ends[1]);
  Outcome outcome = Decode(ReadAll(ends[0]));
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  outcome.WasKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  if (!outcome.WasKilled && !(WIFEXITED(status) && WEXITSTATUS(status) == 0)) {
    throw std::runtime_error("the program apart crashed");
  }
  return outcome;
}

std::vector<std::string> StatesOf(const Action& action, const ReadyFolder& ready) {
  const TempFolder folder;
  ready.CopyTo(folder.path().string());
  const std::string calendar = folder.File("Calendar.mdb").string();
  std::vector<std::string> states{Contents(calendar)};
  Office office(folder.path().string(), {.Made = [&] { states.push_back(Contents(calendar)); }});
  office.Start();
  action.Do(office);
  return states;
}

}  // namespace veyra::faults
