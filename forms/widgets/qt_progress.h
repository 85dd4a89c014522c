#pragma once

#include <QElapsedTimer>
#include <QString>
#include <cstdint>
#include <memory>

#include "logic/dialogs.h"

namespace veyra {

class QtProgressBox;

/// A box over the window in use that counts the steps of a long action. While it is on the screen
/// no other window takes input; before that, in the first half second, no event is looked at.
class QtProgress : public Progress {
 public:
  QtProgress(const std::string& text, BreakOff break_off);
  ~QtProgress() override;

  bool Report(std::int64_t done, std::int64_t total) override;

 private:
  void Show();

  QString text_;
  BreakOff break_off_;
  QElapsedTimer since_start_;
  QElapsedTimer since_look_;
  std::unique_ptr<QtProgressBox> box_;
  bool broken_off_ = false;
};

}  // namespace veyra
