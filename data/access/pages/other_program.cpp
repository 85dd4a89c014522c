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
Phrase UsersIn(const std::filesystem::path& lock_file) {
  std::ifstream stream(lock_file, std::ios::binary);
  Phrase users;
  std::array<char, kNameBytes> computer{};
  std::array<char, kNameBytes> user{};
  for (int i = 0; i < kMostUsers && stream.read(computer.data(), kNameBytes) &&
                  stream.read(user.data(), kNameBytes);
       ++i) {
    if (NameIn(computer).empty()) {
      continue;
    }
    const Phrase name = Phrase::Tr("%1 on %2", NameIn(user), NameIn(computer));
    users = users.IsEmpty() ? name : Phrase::Tr("%1 and %2", users, name);
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
      const Phrase users = UsersIn(entry.path());
      const std::string name = entry.path().filename().string();
      throw FileProblem(
          users.IsEmpty() ? Phrase::Tr("Another program has the database open.")
                          : Phrase::Tr("Another program has the database open: %1.", users),
          Phrase::Tr("Close it there. When nobody has it open, delete the file %1.", name));
    }
  }
}

}  // namespace veyra::access
