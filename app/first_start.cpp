#include "app/first_start.h"

#include <QProcess>
#include <filesystem>
#include <system_error>

#include "data/errors.h"
#include "data/posix_file.h"
#include "forms/widgets/qt_text.h"
#include "logic/dialogs.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

void MakeFolder(const std::string& folder) {
  std::error_code failure;
  fs::create_directories(folder, failure);
  if (failure) {
    throw FileError(
        {folder,
         Phrase::Tr("The folder for your calendar cannot be made: %1.",
                    SystemErrorText(failure.value())),
         Phrase::Tr("Check the rights of the folders above it, and start the calendar again.")});
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
                     Phrase::Tr("An empty calendar could not be made there. %1",
                                companion.readAllStandardError().trimmed().toStdString()),
                     Phrase::Tr("Check that the disk has room, and start the calendar again.")});
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
    throw FileError({path_file, Phrase::Tr("The file cannot be made: %1.", error.Reason()),
                     Phrase::Tr("Check that the disk has room, and start the calendar again.")});
  }
  return true;
}

Phrase WelcomeText(const std::string& app_folder) {
  const std::string blank_line = std::string(kLineBreak) + kLineBreak;
  return Phrase::Tr("Welcome to Veyra Calendar.") + blank_line +
         Phrase::Tr(
             "Your calendar is still empty. To add the first facility, a room for instance, "
             "type its name into the box at the top right and press Enter.") +
         blank_line + Phrase::Tr("The calendar lies in %1.", app_folder) + blank_line +
         JoinedLines(
             {Phrase::Tr("To try a sample first, run"), "veyra-data new ~/calendar-sample --sample",
              Phrase::Tr("and write the name of that folder into the first line of"),
              app_folder + "/path.txt."},
             kLineBreak);
}

}  // namespace veyra
