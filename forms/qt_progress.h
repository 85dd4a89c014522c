#pragma once

#include <QProgressDialog>
#include <cstdint>
#include <string>

#include "logic/dialogs.h"

namespace veyra {

/// A box with a bar, which shows itself when the action takes long. While it is there the windows
/// take no input.
class QtProgress : public QProgressDialog, public Progress {
  Q_OBJECT

 public:
  QtProgress(const std::string& text, BreakOff break_off);

  bool Report(std::int64_t done, std::int64_t total) override;

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  BreakOff break_off_;
};

}  // namespace veyra
