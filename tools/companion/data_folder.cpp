#include "tools/companion/data_folder.h"

#include <CLI/CLI.hpp>
#include <fstream>

#include "data/errors.h"
#include "data/file_name.h"
#include "data/text.h"
#include "tools/companion/parser_words.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::streamsize kLongestLine = 4096;

FileError NoFolderNamed(const fs::path& path_file, const Phrase& cause) {
  return FileError(
      {path_file.string(), cause,
       Phrase::Tr("Name the data folder on the command line, or write it into that file.")});
}

/// A pipe of that name would be waited for in vain.
void RequireTextFile(const fs::path& path_file) {
  std::error_code error;
  if (!fs::is_regular_file(path_file, error)) {
    throw NoFolderNamed(path_file,
                        Phrase::Tr("No data folder was named, and there is no such file."));
  }
}

std::string FirstLine(const fs::path& path_file) {
  RequireTextFile(path_file);
  std::string line(static_cast<std::size_t>(kLongestLine), '\0');
  std::ifstream file(path_file, std::ios::binary);
  file.read(line.data(), kLongestLine);
  line.resize(static_cast<std::size_t>(file.gcount()));
  line.resize(std::min(line.find_first_of("\r\n"), line.size()));
  if (line.starts_with(kByteOrderMark)) {
    line.erase(0, 3);
  }
  line.erase(line.find_last_not_of(" \t") + 1);
  if (line.empty() || !IsUtf8(line) || line.find('\0') != std::string::npos) {
    throw NoFolderNamed(path_file, Phrase::Tr("The first line of the file names no folder."));
  }
  return line;
}

}  // namespace

void AddDataFolder(CLI::App& app, std::string& folder) {
  app.add_option("FOLDER", folder,
                 Meaning(Phrase::Tr(
                     "the data folder; else the one that path.txt beside the program names")))
      ->type_name("");
}

fs::path CalendarFile(const std::string& folder, const std::string& app_folder) {
  const std::string named = folder.empty() ? FirstLine(fs::path(app_folder) / "path.txt") : folder;
  return fs::absolute(NativePath(named)) / "Calendar.mdb";
}

}  // namespace veyra
