#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "data/errors.h"
#include "logic/dialogs.h"

namespace veyra {

/// The classic numbers by which a failure of a file is reported.
enum class FileFailure : int {
  BadFileName = 52,
  DiskFull = 61,
  ReadPastEnd = 62,
  FileNotFound = 53,
  TooManyFiles = 67,
  PathFileAccess = 75,
  PathNotFound = 76,
  DeviceInputOutput = 57,
};

/// The files that the program has open, by handle.
class Files {
 public:
  /// `app_folder` is what FileOpener writes into a file that it makes anew.
  Files(std::string app_folder, Dialogs& dialogs);

  /// Opens a file and returns its handle, 1 or more, or 0 when nothing was opened. `Mode` is 1 for
  /// writing (the file is made, or emptied), 2 for reading by lines, 3 for appending, 4 for records
  /// of `RecordLength` bytes, 5 for bytes; any other opens nothing.
  ///
  /// With `ConfirmReplace`: when a file of that name is there and the name ends in "@", that
  /// character is taken from `FileName`; and before a file that is there is emptied the operator is
  /// asked.
  ///
  /// A file that is missing is made, with the application's folder on two lines, and 0 returned: it
  /// appears whole or not at all. Any other failure is shown to the operator by its number, a pipe
  /// or device in the file's place too. Throws FileError when the missing file cannot be made.
  int FileOpener(std::string& FileName, int Mode, int RecordLength, bool ConfirmReplace);

  /// Writes what FileOpener would have made into a file that is there without contents: what is
  /// left of one that was made by halves. Throws FileError.
  void FillEmptyFile(const std::string& file_name) const;

  /// The next line of an open file, without its end, CR LF, CR or LF. Throws FileError at the end
  /// of the file, and when the line is longer than kLongestLine bytes or no text.
  std::string ReadLine(int handle);

  /// Whether an open file has nothing more to be read.
  bool AtEnd(int handle);

  /// Writes a line and its end, CR LF. Throws FileError when that fails.
  void WriteLine(int handle, const std::string& line);

  /// The record length with which the file was opened; 0 in the other modes.
  int RecordLengthOf(int handle) const;

  void Close(int handle);

  static constexpr std::size_t kLongestLine = 4096;

 private:
  struct OpenFile {
    std::string Name;
    std::fstream Stream;
    int RecordLength = 0;
  };

  bool ConfirmReplacing(std::string& FileName, int Mode);
  int Open(const std::filesystem::path& path, int Mode, int RecordLength);
  std::string AppFolderTwice() const;
  void MakeMissingFile(const std::filesystem::path& path) const;

  std::string app_folder_;
  Dialogs& dialogs_;
  std::map<int, OpenFile> open_;
};

}  // namespace veyra
