#include "help/qt_help_viewer.h"

#include <system_error>
#include <utility>

#include "data/errors.h"
#include "help/qt_help_file.h"

namespace veyra {
namespace {

Phrase FailureText(const Report& report) {
  return report.Cause + "\n\n" + report.File + "\n\n" + report.Advice;
}

}  // namespace

QtHelpViewer::QtHelpViewer(std::filesystem::path help_file, std::filesystem::path reader,
                           QtHelpWindow::Browser browser)
    : help_file_(std::move(help_file)), reader_(std::move(reader)), browser_(std::move(browser)) {}

QtHelpViewer::~QtHelpViewer() = default;

void QtHelpViewer::ShowTopic(int topic) {
  const std::optional<FileState> state = StateOfFile();
  if (!state) {
    return;
  }
  if (!window_) {
    window_ = std::make_unique<QtHelpWindow>(browser_);
  }
  if (state != read_state_) {
    ReadFile();
    read_state_ = state;
  }
  if (archive_) {
    window_->ShowPage(archive_->Topic(topic).value_or(archive_->FirstPage()));
  }
  window_->BringUp();
}

std::optional<QtHelpViewer::FileState> QtHelpViewer::StateOfFile() const {
  std::error_code failure;
  if (!std::filesystem::is_regular_file(help_file_, failure)) {
    return std::nullopt;
  }
  FileState state;
  state.Written = std::filesystem::last_write_time(help_file_, failure);
  state.Size = failure ? 0 : std::filesystem::file_size(help_file_, failure);
  return state;
}

void QtHelpViewer::ReadFile() {
  archive_.reset();
  try {
    archive_ = std::make_shared<const ChmArchive>(ReadHelpFile(help_file_, reader_));
    window_->ShowFile(archive_);
  } catch (const FileError& failure) {
    window_->ShowFailure(FailureText(failure.report()));
  }
}

}  // namespace veyra
