#pragma once

#include <QMainWindow>
#include <QStringList>

#include "forms/board/board_view.h"
#include "forms/board/frmBoard.h"
#include "forms/handler_guard.h"

class QLabel;
class QPushButton;
class QTableWidget;

namespace veyra {

/// The widgets of the day board: a column for each facility, and the times beside them, which stay
/// in sight. Page Down and Page Up turn the days.
class QtBoardWindow : public QMainWindow, public BoardView {
  Q_OBJECT

 public:
  /// The window stays above `owner`. Both must outlive it.
  QtBoardWindow(const HandlerGuard& guard, QWidget& owner);

  /// REQUIRES: called before the operator can reach the window. `handler` must outlive it.
  void SetHandler(frmBoard* handler) { handler_ = handler; }

  void ShowBoard(const Phrase& day, const modRes::DayBoard& board) override;
  void ShowWindow() override;
  void HideWindow() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  using Handler = void (frmBoard::*)();

  void BuildContents();
  QWidget* BuildHead();
  QPushButton* AddButton(const char* name, const Phrase& caption, Handler handler);
  void BuildTable();
  void SetColumns(const modRes::DayBoard& board);
  void ShareOutWidth();
  void Report(Handler handler);
  void ReportChosen(int row, int column);

  const HandlerGuard& guard_;
  QWidget& owner_;
  frmBoard* handler_ = nullptr;
  QTableWidget* Grid1_ = nullptr;
  QLabel* lblDay_ = nullptr;
  QLabel* lblState_ = nullptr;
  QStringList names_;  ///< Of the facilities, whole.
  bool was_shown_ = false;
};

}  // namespace veyra
