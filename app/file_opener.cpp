#include "app/file_opener.h"

#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "data/file_name.h"
#include "data/posix_file.h"
#include "data/text.h"

namespace veyra {
namespace {

enum Mode : int { kWrite = 1, kRead = 2, kAppend = 3, kRecords = 4, kBinary = 5 };

struct OpenFailure {
  FileFailure Number;
};

std::ios::openmode StreamModeOf(int mode) {
  switch (mode) {
    case kWrite:
      return std::ios::out | std::ios::trunc;
    case kRead:
      return std::ios::in;
    case kAppend:
      return std::ios::out | std::ios::app;
    default:
      return std::ios::in | std::ios::out;
  }
}

FileFailure MissingOf(const std::filesystem::path& path) {
  std::error_code ignored;
  return std::filesystem::is_directory(path.parent_path(), ignored) ? FileFailure::FileNotFound
                                                                    : FileFailure::PathNotFound;
}

FileFailure FailureOf(int error_number, const std::filesystem::path& path) {
  switch (error_number) {
    case ENOENT:
      return MissingOf(path);
    case ENOTDIR:
      return FileFailure::PathNotFound;
    case ENOSPC:
      return FileFailure::DiskFull;
    case EMFILE:
    case ENFILE:
      return FileFailure::TooManyFiles;
    case ENAMETOOLONG:
      return FileFailure::BadFileName;
    case ELOOP:
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      return FileFailure::PathFileAccess;
    default:
      return FileFailure::DeviceInputOutput;
  }
}

/// What is there under the name must be an ordinary file: to open a pipe could last for ever.
void RequireOrdinaryFile(const std::filesystem::path& path) {
  std::error_code error;
  switch (std::filesystem::status(path, error).type()) {
    case std::filesystem::file_type::not_found:
    case std::filesystem::file_type::regular:
      return;
    case std::filesystem::file_type::none:
    case std::filesystem::file_type::unknown:
      throw OpenFailure{FailureOf(error.value(), path)};
    default:
      throw OpenFailure{FileFailure::PathFileAccess};
  }
}

std::fstream OpenStream(const std::filesystem::path& path, int mode) {
  RequireOrdinaryFile(path);
  std::error_code ignored;
  if (mode >= kRecords && !std::filesystem::exists(path, ignored)) {
    std::ofstream(path, std::ios::app).close();
  }
  errno = 0;
  std::fstream stream(path, StreamModeOf(mode) | std::ios::binary);
  if (!stream) {
    throw OpenFailure{FailureOf(errno, path)};
  }
  return stream;
}

FileError NotAText(const std::string& file_name) {
  return FileError(
      {file_name, Phrase::Tr("The file is not a text that can be read."),
       Phrase::Tr("Its first line must be the name of a folder. Correct it with a text editor.")});
}

FileError LineTooLong(const std::string& file_name) {
  return FileError(
      {file_name, Phrase::Tr("A line of the file is too long to be read."),
       Phrase::Tr("Its first line must be the name of a folder. Correct it with a text editor.")});
}

FileError PastTheEnd(const std::string& file_name) {
  return FileError(
      {file_name, Phrase::Tr("The file ends where another line is needed."),
       Phrase::Tr("Its first line must be the name of a folder. Correct it with a text editor.")});
}

/// The bytes up to the end of the line, which is taken from the stream.
std::string TakeLine(std::fstream& stream, const std::string& file_name) {
  std::string line;
  int byte = stream.get();
  for (; byte != std::fstream::traits_type::eof() && byte != '\r' && byte != '\n';
       byte = stream.get()) {
    if (line.size() == Files::kLongestLine) {
      throw LineTooLong(file_name);
    }
    line.push_back(static_cast<char>(byte));
  }
  if (byte == '\r' && stream.peek() == '\n') {
    stream.get();
  }
  return line;
}

}  // namespace

Files::Files(std::string app_folder, Dialogs& dialogs)
    : app_folder_(std::move(app_folder)), dialogs_(dialogs) {}

int Files::FileOpener(std::string& FileName, int Mode, int RecordLength, bool ConfirmReplace) {
  if (ConfirmReplace && !ConfirmReplacing(FileName, Mode)) {
    return 0;
  }
  if (Mode < kWrite || Mode > kBinary) {
    return 0;
  }
  const std::filesystem::path path = NativePath(FileName);
  try {
    return Open(path, Mode, RecordLength);
  } catch (const OpenFailure& failure) {
    if (failure.Number == FileFailure::FileNotFound) {
      MakeMissingFile(path);
    } else {
      dialogs_.MsgBox(
          {.Text = "FileOpener: Error: " + std::to_string(static_cast<int>(failure.Number))});
    }
    return 0;
  }
}

std::string Files::ReadLine(int handle) {
  OpenFile& file = open_.at(handle);
  if (AtEnd(handle)) {
    throw PastTheEnd(file.Name);
  }
  std::string line = TakeLine(file.Stream, file.Name);
  if (!IsUtf8(line) || line.find('\0') != std::string::npos) {
    throw NotAText(file.Name);
  }
  return line;
}

bool Files::AtEnd(int handle) {
  return open_.at(handle).Stream.peek() == std::fstream::traits_type::eof();
}

void Files::WriteLine(int handle, const std::string& line) {
  OpenFile& file = open_.at(handle);
  if (!(file.Stream << line << "\r\n" << std::flush)) {
    throw FileError(
        {file.Name, Phrase::Tr("The file cannot be written."),
         Phrase::Tr("See whether the disk is full and whether the folder may be written to.")});
  }
}

int Files::RecordLengthOf(int handle) const {
  return open_.at(handle).RecordLength;
}

void Files::Close(int handle) {
  open_.erase(handle);
}

/// Takes the "@" off the name, only when the name with it is that of a file: this order is meant.
/// Returns whether the file may be written, which the operator is asked.
bool Files::ConfirmReplacing(std::string& FileName, int Mode) {
  std::error_code unknown;
  if (!std::filesystem::is_regular_file(NativePath(FileName), unknown)) {
    return true;
  }
  if (FileName.ends_with('@')) {
    FileName.pop_back();
  }
  if (Mode != kWrite) {
    return true;
  }
  return dialogs_.MsgBox({.Text = "Replace contents of " + FileName + "?",
                          .Choice = Buttons::OkCancel,
                          .Sign = Icon::Exclamation,
                          .Title = "Replace File?"}) == Answer::Ok;
}

int Files::Open(const std::filesystem::path& path, int Mode, int RecordLength) {
  std::fstream stream = OpenStream(path, Mode);
  int handle = 1;
  while (open_.contains(handle)) {
    ++handle;
  }
  open_.emplace(handle,
                OpenFile{path.string(), std::move(stream), Mode == kRecords ? RecordLength : 0});
  return handle;
}

std::string Files::AppFolderTwice() const {
  return app_folder_ + "\r\n" + app_folder_ + "\r\n";
}

void Files::MakeMissingFile(const std::filesystem::path& path) const {
  try {
    MakeWholeFile(path, AppFolderTwice());
  } catch (const PosixFileError& failure) {
    throw FileError({path.string(),
                     Phrase::Tr("The file is missing and cannot be made: %1.", failure.Reason()),
                     Phrase::Tr("Make it with a text editor: its first line must be the name of "
                                "the folder that holds the bookings.")});
  }
}

void Files::FillEmptyFile(const std::string& file_name) const {
  const std::filesystem::path path = NativePath(file_name);
  try {
    PutWholeFile(path, AppFolderTwice());
  } catch (const PosixFileError& failure) {
    throw FileError({path.string(),
                     Phrase::Tr("The file is empty and cannot be written: %1.", failure.Reason()),
                     Phrase::Tr("Write it with a text editor: its first line must be the name of "
                                "the folder that holds the bookings.")});
  }
}

}  // namespace veyra
