#pragma once

#include <QProgressDialog>

#include "logic/dialogs.h"

namespace veyra {

/// The box of a QtProgress. Where breaking off is refused nothing closes it but its owner.
class QtProgressBox : public QProgressDialog {
  Q_OBJECT

 public:
  QtProgressBox(BreakOff break_off, QWidget* parent);

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  BreakOff break_off_;
};

}  // namespace veyra
