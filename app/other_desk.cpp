#include "app/other_desk.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "data/date.h"
#include "data/open_note.h"

namespace veyra {
namespace {

constexpr std::size_t kIsoDate = 10;
constexpr std::size_t kTimeToTheMinute = 6;

/// "11/21/2026 18:30" of "2026-11-21 18:30:12".
std::string SinceText(const std::string& since) {
  const auto day = DateFromIsoText(since);
  return day ? DateText(*day) + since.substr(kIsoDate, kTimeToTheMinute) : since;
}

std::vector<OpenUser> UsersElsewhere(const std::filesystem::path& calendar) {
  std::error_code error;
  const auto file = std::filesystem::canonical(calendar, error);
  const auto note = error ? std::nullopt : ReadOpenNote(file.string());
  std::vector<OpenUser> users = note ? note->Users : std::vector<OpenUser>();
  std::erase_if(users, [](const OpenUser& user) { return !IsOfAnotherMachine(user); });
  return users;
}

}  // namespace

bool MayShareCalendar(const std::filesystem::path& calendar, Dialogs& dialogs) {
  const std::vector<OpenUser> users = UsersElsewhere(calendar);
  if (users.empty()) {
    return true;
  }
  std::vector<Phrase> others;
  for (const OpenUser& user : users) {
    others.push_back(
        Phrase::Tr("%1 on %2, since %3", user.User, user.Machine, SinceText(user.Since)));
  }
  const std::string blank_line = std::string(kLineBreak) + kLineBreak;
  return dialogs.MsgBox(
             {.Text = Phrase::Tr("This calendar is open on another computer:") + blank_line +
                      JoinedLines(others, kLineBreak) + blank_line +
                      Phrase::Tr("Open it here as well?"),
              .Choice = Buttons::YesNo,
              .Sign = Icon::Exclamation,
              .Details = Phrase::Tr("Two computers that write to one calendar file in a shared "
                                    "folder can damage it. If the other one was switched off "
                                    "without closing its calendar, answer Yes."),
              .Default = Answer::No}) == Answer::Yes;
}

}  // namespace veyra
