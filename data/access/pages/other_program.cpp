#include "data/access/pages/other_program.h"

#include <array>
#include <fstream>
#include <string>

#include "data/access/format/bytes.h"
#include "data/access/format/code_page.h"
#include "data/names.h"

namespace veyra::access {

namespace {

constexpr std::size_t kNameBytes = 32;
constexpr int kMostUsers = 255;

/// The text up to the first zero byte, without blanks around it and signs that cannot be shown.
std::string NameIn(const std::array<char, kNameBytes>& bytes) {
  std::string name;
  for (const char c : bytes) {
    if (c == '\0') {
      break;
    }
    if (static_cast<unsigned char>(c) >= ' ' && (c != ' ' || !name.empty())) {
      name.push_back(c);
    }
  }
  name.erase(name.find_last_not_of(' ') + 1);
  return CodePage(1252).ToUtf8(
      ByteView(reinterpret_cast<const Byte*>(name.data()), name.size()));  // NOLINT: bytes
}

/// "Admin on FRONTDESK and Admin on OFFICE", or nothing when no name can be read.
std::string UsersIn(const std::filesystem::path& lock_file) {
  std::ifstream stream(lock_file, std::ios::binary);
  std::string users;
  std::array<char, kNameBytes> computer{};
  std::array<char, kNameBytes> user{};
  for (int i = 0; i < kMostUsers && stream.read(computer.data(), kNameBytes) &&
                  stream.read(user.data(), kNameBytes);
       ++i) {
    if (!NameIn(computer).empty()) {
      users += (users.empty() ? "" : " and ") + NameIn(user) + " on " + NameIn(computer);
    }
  }
  return users;
}

bool IsLockFileOf(const std::filesystem::path& database, const std::filesystem::path& file) {
  const std::string extension = file.extension().string();
  return (SameName(extension, ".ldb") || SameName(extension, ".laccdb")) &&
         SameName(file.stem().string(), database.stem().string());
}

}  // namespace

void CheckNobodyElse(const std::filesystem::path& database) {
  std::error_code unreadable;
  const std::filesystem::path folder = database.parent_path();
  for (const auto& entry :
       std::filesystem::directory_iterator(folder.empty() ? "." : folder, unreadable)) {
    if (IsLockFileOf(database, entry.path())) {
      const std::string users = UsersIn(entry.path());
      const std::string name = entry.path().filename().string();
      throw FileProblem(
          "Another program has the database open" + (users.empty() ? "" : ": " + users) + ".",
          "Close it there. When nobody has it open, delete the file " + name + ".");
    }
  }
}

}  // namespace veyra::access
