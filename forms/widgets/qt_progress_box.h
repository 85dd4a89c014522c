#pragma once

#include <QProgressDialog>

#include "logic/dialogs.h"

namespace veyra {

/// The box of a QtProgress. Without a button for an early end nothing closes it but its owner.
class QtProgressBox : public QProgressDialog {
  Q_OBJECT

 public:
  QtProgressBox(EarlyEnd early_end, QWidget* parent);

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  EarlyEnd early_end_;
};

}  // namespace veyra
