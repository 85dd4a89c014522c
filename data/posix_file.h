#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "data/phrase.h"

namespace veyra {

/// What an error number of the system means, without a full stop: "the disk is full". Words that
/// an operator understands for what he meets, else the system's own.
Phrase SystemErrorText(int error_number);

/// A call to the system for a file failed. It names no file and gives no advice: the caller, who
/// knows what the file is for, turns it into a report. what() is Reason() in English.
class PosixFileError : public std::runtime_error {
 public:
  explicit PosixFileError(int error_number);

  int Number() const { return number_; }
  Phrase Reason() const { return SystemErrorText(number_); }

 private:
  int number_;
};

/// An open file, addressed by bytes. Every member is carried out whole or throws PosixFileError;
/// interrupted calls are taken up again.
///
/// What holds on the disk: nothing that was written is safe from a loss of power before Flush has
/// returned, and what was written before a Flush may reach the disk in any order. The name of a
/// file that was made, renamed or removed is safe after FlushFolder only. When Flush throws, what
/// was written since the last one may or may not be on the disk, and a second Flush that succeeds
/// proves nothing: write it again.
///
/// REQUIRES: not a file that SQLite has open in this process, whose locks go when any handle on the
/// file is closed.
class PosixFile {
 public:
  enum class Use {
    Read,       ///< For reading. The file must be there.
    ReadWrite,  ///< For reading and writing. The file must be there.
    Append,     ///< For writing at its end. It is made when it is not there.
    Empty,      ///< For writing. It is made, or emptied.
    MakeNew,    ///< For writing. It must not be there: EEXIST, also for a broken link.
  };

  /// Opens a file, which is closed again in programs that this one starts. A pipe or device in its
  /// place never blocks: throws with EINVAL unless it is an ordinary file, EISDIR for a folder.
  PosixFile(const std::filesystem::path& path, Use use);
  ~PosixFile();
  PosixFile(PosixFile&& other) noexcept;
  PosixFile& operator=(PosixFile&&) = delete;

  int Descriptor() const { return descriptor_; }
  std::uint64_t Size() const;

  /// Fills `bytes` from `offset` on, as far as the file goes; returns how many were read.
  std::size_t ReadAt(std::span<unsigned char> bytes, std::uint64_t offset) const;
  void WriteAt(std::span<const unsigned char> bytes, std::uint64_t offset) const;

  /// Writes after what was written last; for Append at the end of the file.
  void Write(std::span<const unsigned char> bytes) const;
  void Write(std::string_view text) const;

  void Flush() const;
  void Truncate(std::uint64_t size) const;

 private:
  int descriptor_;
};

/// The whole of an ordinary file. Throws PosixFileError, with EFBIG when it has more than
/// `most_bytes`.
std::string ReadWholeFile(const std::filesystem::path& path, std::size_t most_bytes);

/// Makes a file that appears under its name whole and safe from a loss of power, or not at all; a
/// kill can leave a file ".NAME.unfinished-XXXXXX" beside it, which the next call for that name
/// removes. Throws PosixFileError, with EEXIST when something bears the name already, which stays
/// as it is.
void MakeWholeFile(const std::filesystem::path& path, std::string_view contents);

/// Puts a file in its place in the same way: whoever looks sees the old contents, or no file where
/// there was none, or the new contents. A file that was there leaves its rights to the new one.
void PutWholeFile(const std::filesystem::path& path, std::string_view contents);

/// Flushes a file, or the names in a folder, that nobody needs open. Where a file system has
/// nothing to flush for a folder this does nothing.
void FlushByName(const std::filesystem::path& path);

/// Flushes the names of the folder that `file` is in.
void FlushFolderOf(const std::filesystem::path& file);

/// Renames within one disk. Replaces what is named `to`.
void Rename(const std::filesystem::path& from, const std::filesystem::path& to);

/// Renames within one disk, and returns 0 or the error number: EEXIST when there is something named
/// `to` already, a broken link included.
int RenameWithoutReplacing(const std::filesystem::path& from, const std::filesystem::path& to);

/// Removes a file; one that is not there is not a failure.
void RemoveFile(const std::filesystem::path& path);

}  // namespace veyra
