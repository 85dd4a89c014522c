#pragma once

#include <QObject>
#include <QWidget>
#include <filesystem>
#include <functional>

namespace veyra {

/// Calls once when a window has been painted for the first time, and then goes.
class FirstPaint : public QObject {
 public:
  FirstPaint(QWidget& window, std::function<void()> then);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void()> then_;
};

/// Lets the companion program make the day's first copy of the calendar when the data folder has a
/// folder "backups": in a process of its own, which is not waited for. Nothing is said when that
/// fails; the companion's "check" says so when copies are no longer made.
void StartDailyBackup(const std::filesystem::path& program_folder,
                      const std::filesystem::path& data_folder);

}  // namespace veyra
