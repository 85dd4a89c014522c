#pragma once

#include <QLocalServer>
#include <QObject>
#include <QPointer>
#include <QWindow>
#include <filesystem>

namespace veyra {

/// The one program of a user that has a data folder open on a screen. A later one brings the
/// windows of the first to the front and ends, as whoever clicks an icon twice expects.
class RunningProgram : public QObject {
 public:
  /// How long a later program waits for the first to answer, in ms. One that does not answer for so
  /// long is not there.
  static constexpr int kAnswer = 5'000;

  /// REQUIRES: a QApplication.
  RunningProgram();

  /// Makes this the one of that data folder and returns true. Returns false when another one is,
  /// whose windows are at the front then. Where programs cannot hear of each other (no place for a
  /// socket, a folder that is not there) every one is the first.
  bool Claim(const std::filesystem::path& data_folder);

 private:
  void Answer();

  QLocalServer server_;
  QPointer<QWindow> last_used_;
};

}  // namespace veyra
