#pragma once

#include <QMainWindow>

#include "data/date.h"
#include "forms/dayviewer/dayviewer_view.h"
#include "forms/dayviewer/frmDayViewer.h"
#include "forms/handler_guard.h"

class QLabel;

namespace veyra {

class QtViewerList;

/// The widgets of the day viewer. They report each gesture to its handler in frmDayViewer, by way
/// of the guard, and decide nothing.
class QtDayViewerWindow : public QMainWindow, public DayViewerView {
  Q_OBJECT

 public:
  /// `guard` must outlive the window.
  explicit QtDayViewerWindow(const HandlerGuard& guard);

  /// REQUIRES: called before the operator can reach the window. `frmDayViewer` must outlive it.
  void SetHandler(frmDayViewer* handler) { handler_ = handler; }

  /// The caption, and the day by which the list is announced to those who cannot see it.
  void SetCaption(const std::string& caption, const std::string& facility, Date day);

  void ShowDay(const DayViewerPicture& picture) override;
  void ShowDayList(const modRes::DayLines& lines) override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildMenu();
  void BuildContents();
  void Report(void (frmDayViewer::*handler)());

  const HandlerGuard& guard_;
  frmDayViewer* handler_ = nullptr;
  QLabel* lblDay_ = nullptr;
  QLabel* lblDate_ = nullptr;
  QtViewerList* lstDay_ = nullptr;
};

}  // namespace veyra
