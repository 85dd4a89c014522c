#include "app/daily_backup.h"

#include <QCoreApplication>
#include <QEvent>
#include <QProcess>
#include <QString>
#include <QTimer>
#include <filesystem>
#include <system_error>
#include <utility>

#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr const char* kCompanion = "veyra-data";

}  // namespace

FirstPaint::FirstPaint(QWidget& window, std::function<void()> then)
    : QObject(&window), then_(std::move(then)) {
  window.installEventFilter(this);
}

/// The painting itself comes after the filter, so the call waits for its end.
bool FirstPaint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Paint && then_) {
    QTimer::singleShot(0, qApp, std::exchange(then_, nullptr));
    deleteLater();
  }
  return QObject::eventFilter(watched, event);
}

void StartDailyBackup(const std::filesystem::path& program_folder,
                      const std::filesystem::path& data_folder) {
  std::error_code unreachable;
  if (!std::filesystem::is_directory(data_folder / "backups", unreachable)) {
    return;
  }
  QProcess companion;
  companion.setProgram(ToQString((program_folder / kCompanion).string()));
  companion.setArguments({QStringLiteral("backup"), QStringLiteral("--rolling"),
                          QStringLiteral("--once"), ToQString(data_folder.string())});
  companion.setStandardOutputFile(QProcess::nullDevice());
  companion.setStandardErrorFile(QProcess::nullDevice());
  companion.startDetached();
}

}  // namespace veyra
