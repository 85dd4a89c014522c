#include "app/first_start.h"

#include <QProcess>
#include <filesystem>
#include <system_error>

#include "data/errors.h"
#include "data/posix_file.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

void MakeFolder(const std::string& folder) {
  std::error_code failure;
  fs::create_directories(folder, failure);
  if (failure) {
    throw FileError(
        {folder,
         "The folder for your calendar cannot be made: " + SystemErrorText(failure.value()) + ".",
         "Check the rights of the folders above it, and start the calendar again."});
  }
}

void MakeEmptyCalendar(const std::string& folder, const std::string& program_folder) {
  std::error_code unreachable;
  if (fs::exists(folder + "/Calendar.mdb", unreachable)) {
    return;
  }
  QProcess companion;
  companion.start(ToQString(program_folder + "/veyra-data"),
                  {QStringLiteral("new"), ToQString(folder)});
  if (!companion.waitForFinished() || companion.exitCode() != 0) {
    throw FileError({folder,
                     "An empty calendar could not be made there. " +
                         companion.readAllStandardError().trimmed().toStdString(),
                     "Check that the disk has room, and start the calendar again."});
  }
}

}  // namespace

bool MakeApplicationFolder(const std::string& app_folder, const std::string& program_folder) {
  std::error_code unreachable;
  const std::string path_file = app_folder + "/path.txt";
  if (app_folder == program_folder || fs::exists(path_file, unreachable)) {
    return false;
  }
  MakeFolder(app_folder);
  MakeEmptyCalendar(app_folder, program_folder);
  try {
    MakeWholeFile(path_file, app_folder + "\r\n" + app_folder + "\r\n");
  } catch (const PosixFileError& error) {
    throw FileError({path_file, std::string("The file cannot be made: ") + error.what() + ".",
                     "Check that the disk has room, and start the calendar again."});
  }
  return true;
}

std::string WelcomeText(const std::string& app_folder) {
  return "Welcome to Veyra Calendar.\r\n\r\n"
         "Your calendar is still empty. To add the first facility, a room for instance, type its "
         "name into the box at the top right and press Enter.\r\n\r\n"
         "The calendar lies in " +
         app_folder +
         ".\r\n\r\n"
         "To try a sample first, run\r\n"
         "veyra-data new ~/calendar-sample --sample\r\n"
         "and write the name of that folder into the first line of\r\n" +
         app_folder + "/path.txt.";
}

}  // namespace veyra
