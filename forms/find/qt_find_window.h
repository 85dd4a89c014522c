#pragma once

#include <QMainWindow>

#include "forms/find/find_view.h"
#include "forms/find/frmFind.h"
#include "forms/handler_guard.h"
#include "forms/widgets/qt_piecework.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace veyra {

/// The widgets of the find window. Up and Down choose a line while the text is typed.
class QtFindWindow : public QMainWindow, public FindView {
  Q_OBJECT

 public:
  /// `guard` must outlive the window.
  explicit QtFindWindow(const HandlerGuard& guard);

  /// REQUIRES: called before the operator can reach the window. `handler` must outlive it.
  void SetHandler(frmFind* handler) { handler_ = handler; }

  void ShowFound(const FindPicture& picture) override;
  void KeepWorking(bool working) override;
  void CloseWindow() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildContents();
  void AddLines(const std::vector<Phrase>& lines, int first);
  void AddDivider();
  void ReportChosen();

  const HandlerGuard& guard_;
  frmFind* handler_ = nullptr;
  QLineEdit* Text1_ = nullptr;
  QListWidget* List1_ = nullptr;
  QLabel* lblState_ = nullptr;
  QtPiecework work_{[this] { guard_.Run([this] { handler_->Work(); }); }};
};

}  // namespace veyra
