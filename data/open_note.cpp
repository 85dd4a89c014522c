#include "data/open_note.h"

#include <fcntl.h>
#include <pwd.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string_view>
#include <thread>

#include "data/posix_file.h"

namespace veyra {

namespace {

constexpr std::string_view kUsedBy = "used by";
constexpr std::string_view kPage = "page ";
constexpr int kHexadecimal = 16;
constexpr std::chrono::seconds kLongestWait{5};
constexpr std::chrono::milliseconds kPause{5};

/// A text on one line, so that no name can pass for another line of the note.
std::string OneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](unsigned char c) { return c < ' '; }, ' ');
  return text;
}

std::string MachineName() {
  std::array<char, 256> name{};
  gethostname(name.data(), name.size() - 1);
  return OneLine(name.data());
}

std::string UserName() {
  const passwd* entry = getpwuid(geteuid());
  return entry != nullptr ? OneLine(entry->pw_name) : "user " + std::to_string(geteuid());
}

std::string LocalTime() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm parts{};
  localtime_r(&now, &parts);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts);
  return text.data();
}

std::string Hexadecimal(std::uint64_t number) {
  std::ostringstream text;
  text << std::hex << number;
  return text.str();
}

std::string LineOf(const OpenUser& user) {
  return user.User + " on " + user.Machine + ", process " + std::to_string(user.Process) +
         ", since " + user.Since;
}

std::string TextOf(const std::string& file, const OpenNote& note) {
  std::ostringstream text;
  text << OneLine(std::filesystem::path(file).filename().string())
       << " is in use. The calendar removes this note when it is closed.\n\n";
  for (const OpenUser& user : note.Users) {
    text << kUsedBy << ": " << LineOf(user) << '\n';
  }
  text << "\nfile: " << note.Mark.Number << "\nsize: " << note.Mark.Size
       << "\nwritten: " << note.Mark.Written << "\ncontent: " << Hexadecimal(note.Mark.Content)
       << "\nlog: " << note.Mark.LogNumber
       << "\nlog is being put into the file: " << (note.Mark.IsTakingLog ? "yes" : "no") << '\n';
  for (const auto& [page, digests] : note.Mark.PagesBefore) {
    text << kPage << page << ':';
    for (const std::uint64_t digest : digests) {
      text << ' ' << Hexadecimal(digest);
    }
    text << '\n';
  }
  return text.str();
}

/// Takes what follows the last `mark` off the end of a text; empty when the mark is not in it.
std::string TakeAfter(std::string& text, std::string_view mark) {
  const std::size_t at = text.rfind(mark);
  if (at == std::string::npos) {
    return {};
  }
  std::string rest = text.substr(at + mark.size());
  text.erase(at);
  return rest;
}

template <typename Number>
bool ReadNumber(const std::string& text, Number& number, int base = 10) {
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number, base);
  return read.ec == std::errc() && read.ptr == end;
}

OpenUser UserFrom(std::string line) {
  OpenUser user;
  user.Since = TakeAfter(line, ", since ");
  ReadNumber(TakeAfter(line, ", process "), user.Process);
  user.Machine = TakeAfter(line, " on ");
  user.User = line;
  return user;
}

std::vector<std::uint64_t> DigestsFrom(const std::string& text) {
  std::vector<std::uint64_t> digests;
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    ReadNumber(word, digests.emplace_back(), kHexadecimal);
  }
  return digests;
}

std::optional<FileMark> MarkFrom(const std::map<std::string, std::string>& entries) {
  const auto entry = [&](const char* name) {
    const auto found = entries.find(name);
    return found == entries.end() ? std::string() : found->second;
  };
  FileMark mark;
  const std::string taking = entry("log is being put into the file");
  const bool is_whole =
      ReadNumber(entry("file"), mark.Number) && ReadNumber(entry("size"), mark.Size) &&
      ReadNumber(entry("written"), mark.Written) &&
      ReadNumber(entry("content"), mark.Content, kHexadecimal) &&
      ReadNumber(entry("log"), mark.LogNumber) && (taking == "yes" || taking == "no");
  mark.IsTakingLog = taking == "yes";
  for (const auto& [name, value] : entries) {
    std::uint32_t page = 0;
    if (name.starts_with(kPage) && ReadNumber(name.substr(kPage.size()), page)) {
      mark.PagesBefore[page] = DigestsFrom(value);
    }
  }
  return is_whole ? std::optional(mark) : std::nullopt;
}

}  // namespace

std::string OpenNoteName(const std::string& file) {
  return file + "-open";
}

std::optional<OpenNote> ReadOpenNote(const std::string& file) {
  std::ifstream stream(OpenNoteName(file), std::ios::binary);
  OpenNote note;
  std::map<std::string, std::string> entries;
  for (std::string line; std::getline(stream, line);) {
    const std::size_t colon = line.find(": ");
    if (colon == std::string::npos) {
      continue;
    }
    const std::string name = line.substr(0, colon);
    if (name == kUsedBy) {
      note.Users.push_back(UserFrom(line.substr(colon + 2)));
    } else {
      entries[name] = line.substr(colon + 2);
    }
  }
  const auto mark = MarkFrom(entries);
  if (!mark) {
    return std::nullopt;
  }
  note.Mark = *mark;
  return note;
}

void WriteOpenNote(const std::string& file, const OpenNote& note) {
  PutWholeFile(OpenNoteName(file), TextOf(file, note));
}

void RemoveOpenNote(const std::string& file) {
  unlink(OpenNoteName(file).c_str());
}

OpenUser ThisUser() {
  return {UserName(), MachineName(), getpid(), LocalTime()};
}

bool MayBeRunning(const OpenUser& user) {
  return IsOfAnotherMachine(user) || IsRunningHere(user);
}

bool IsOfAnotherMachine(const OpenUser& user) {
  return user.Machine != MachineName();
}

bool IsRunningHere(const OpenUser& user) {
  return !IsOfAnotherMachine(user) && user.Process > 0 &&
         (kill(static_cast<pid_t>(user.Process), 0) == 0 || errno == EPERM);
}

OpenNoteLock::OpenNoteLock(const std::string& file)
    : folder_(open(std::filesystem::path(file).parent_path().c_str(),
                   O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  const auto give_up = std::chrono::steady_clock::now() + kLongestWait;
  while (folder_ >= 0 && flock(folder_, LOCK_EX | LOCK_NB) != 0 &&
         (errno == EINTR || errno == EWOULDBLOCK) && std::chrono::steady_clock::now() < give_up) {
    std::this_thread::sleep_for(kPause);
  }
}

OpenNoteLock::~OpenNoteLock() {
  if (folder_ >= 0) {
    close(folder_);
  }
}

}  // namespace veyra
