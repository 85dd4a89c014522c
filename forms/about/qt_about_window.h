#pragma once

#include <QMainWindow>
#include <array>

#include "forms/about/about_view.h"
#include "forms/about/frmAbout.h"
#include "forms/about/maker.h"
#include "forms/handler_guard.h"

namespace veyra {

class QtAboutLabel;

/// The widgets of the about box. They report each gesture to its handler in frmAbout, by way of the
/// guard, and decide nothing.
class QtAboutWindow : public QMainWindow, public AboutView {
  Q_OBJECT

 public:
  /// `guard` must outlive the window.
  explicit QtAboutWindow(const HandlerGuard& guard);

  /// REQUIRES: called before the operator can reach the window. `frmAbout` must outlive it.
  void SetHandler(frmAbout* handler) { handler_ = handler; }

  void CloseWindow() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddLabels();
  QWidget* BuildFrame();
  QWidget* BuildExit();

  const HandlerGuard& guard_;
  frmAbout* handler_ = nullptr;
  std::array<QtAboutLabel*, kAboutLabels.size()> labAbout_{};
};

}  // namespace veyra
