#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "data/errors.h"
#include "data/file_store.h"

namespace veyra {

/// Whether a journal lies beside a database that is closed here: then it is not whole without it.
bool HasJournal(const std::filesystem::path& file);

/// A calendar that nobody has open, and that is about to be replaced by another file.
class UnusedFile {
 public:
  /// Makes what an interrupted program left undone. Throws DatabaseBusyError when somebody has it
  /// open, and as OpenStore does.
  explicit UnusedFile(const std::filesystem::path& file);

  /// The calendar, which nobody else can open for writing meanwhile. Throws as the constructor.
  std::unique_ptr<FileStore> Open() const;

  /// Throws DatabaseBusyError when the file is another than it was when this was made. REQUIRES: it
  /// is not open here, unless it is a link.
  void RequireUnchanged() const;

  /// What is to be told, once, of the state in which it was found.
  std::optional<Report> TakeNotice() { return std::exchange(notice_, std::nullopt); }

 private:
  /// What changes in a file when it is written to.
  struct State {
    std::uintmax_t Size = 0;
    std::filesystem::file_time_type Changed;

    bool operator==(const State&) const = default;
  };

  State Look() const;

  std::filesystem::path file_;
  std::optional<Report> notice_;
  State before_;
};

}  // namespace veyra
