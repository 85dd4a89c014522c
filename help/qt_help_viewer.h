#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "help/qt_help_window.h"
#include "logic/help_viewer.h"

namespace veyra {

/// Shows the help file in a help window, which is made when it is first needed and then kept.
class QtHelpViewer : public HelpViewer {
 public:
  /// The name of the program in the program folder that reads the help file.
  static constexpr const char* kReaderName = "veyra-help-reader";

  /// `help_file` and `reader` are full names.
  QtHelpViewer(std::filesystem::path help_file, std::filesystem::path reader,
               QtHelpWindow::Browser browser);
  ~QtHelpViewer() override;

  void ShowTopic(int topic) override;

 private:
  /// Tells one state of the help file from another.
  struct FileState {
    std::filesystem::file_time_type Written;
    std::uintmax_t Size = 0;

    bool operator==(const FileState&) const = default;
  };

  std::optional<FileState> StateOfFile() const;
  void ReadFile();

  std::filesystem::path help_file_;
  std::filesystem::path reader_;
  QtHelpWindow::Browser browser_;
  std::unique_ptr<QtHelpWindow> window_;
  std::optional<FileState> read_state_;        ///< Of the file that archive_ holds.
  std::shared_ptr<const ChmArchive> archive_;  ///< Null when the file could not be read.
};

}  // namespace veyra
