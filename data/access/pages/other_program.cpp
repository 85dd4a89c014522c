#include "data/access/pages/other_program.h"

#include <array>
#include <fstream>
#include <string>

#include "data/access/format/bytes.h"
#include "data/access/format/code_page.h"

namespace veyra::access {

namespace {

constexpr std::size_t kNameBytes = 32;
constexpr int kMostUsers = 255;

/// The text up to the first zero byte, blanks and signs that cannot be shown left out.
std::string NameIn(const std::array<char, kNameBytes>& bytes) {
  std::string name;
  for (const char c : bytes) {
    if (c == '\0') {
      break;
    }
    if (static_cast<unsigned char>(c) > ' ') {
      name.push_back(c);
    }
  }
  return CodePage(1252).ToUtf8(
      ByteView(reinterpret_cast<const Byte*>(name.data()), name.size()));  // NOLINT: bytes
}

/// "Admin on FRONTDESK and Admin on OFFICE", or nothing when no name can be read.
std::string UsersIn(const std::filesystem::path& lock_file) {
  std::ifstream stream(lock_file, std::ios::binary);
  std::string users;
  std::array<char, kNameBytes> computer;
  std::array<char, kNameBytes> user;
  for (int i = 0; i < kMostUsers && stream.read(computer.data(), kNameBytes) &&
                  stream.read(user.data(), kNameBytes);
       ++i) {
    if (!NameIn(computer).empty()) {
      users += (users.empty() ? "" : " and ") + NameIn(user) + " on " + NameIn(computer);
    }
  }
  return users;
}

}  // namespace

void CheckNobodyElse(const std::filesystem::path& database) {
  for (const char* extension : {".ldb", ".laccdb"}) {
    std::filesystem::path lock_file = database;
    lock_file.replace_extension(extension);
    std::error_code ignored;
    if (std::filesystem::exists(lock_file, ignored)) {
      const std::string users = UsersIn(lock_file);
      const std::string name = lock_file.filename().string();
      throw FileProblem(
          "Another program has the database open" + (users.empty() ? "" : ": " + users) + ".",
          "Close it there. When nobody has it open, delete the file " + name + ".");
    }
  }
}

}  // namespace veyra::access
