#pragma once

#include <QComboBox>
#include <string>
#include <vector>

#include "logic/name_box.h"
#include "logic/name_matches.h"

class QStringListModel;

namespace veyra {

class QtHint;
class QtMatchList;

/// An editable drop-down box of names, made for very long lists. What is put into it by the program
/// is never reported; the gestures of the operator are, each once, and so is what an assistive
/// program writes for him. Only the entry shown last, picked again over another text, is reported
/// as typed before it is as picked. While a name is typed those that match are offered below the
/// box; the text is the operator's until he chooses one of them. A name that is longer than the box
/// shows its beginning but while it is edited.
class QtNameBox : public QComboBox {
  Q_OBJECT

 public:
  explicit QtNameBox(QWidget* parent = nullptr);

  /// The name by which assistive programs know the box and the line that is typed in.
  void SetSpokenName(const QString& name);

  /// Shows the list and the text. The cursor and the selection stay when the text is the same.
  void ShowNames(const NameBox& box);

  /// Shows the text; the list stays.
  void ShowText(const std::string& text);

  /// Shows below the box what is wrong with its text, until the hint is empty or the program shows
  /// another text. What lies there is covered meanwhile.
  void ShowHint(const QString& hint);

  /// Selects the whole text. When it is a mouse click that has brought the focus, the selection
  /// outlasts this click.
  void SelectAllText();

 signals:
  void Typed(const std::string& text);   ///< The operator has changed the text.
  void Picked(const std::string& text);  ///< An entry of the list, exactly as the list has it.
  void EnterPressed();
  void FocusArrived();  ///< From another control; not when the whole window had been left.
  void FocusLeft();     ///< For another control.

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FillList(const std::vector<std::string>& names);
  void ReportText(const QString& text);
  void OfferMatches(const QString& text);
  void SelectKeepingTheBeginningInSight();

  std::vector<std::string> names_;
  QStringListModel* list_;
  QtHint* hint_;
  QtMatchList* match_list_;
  modRes::NameMatches matches_;
  int index_ = -1;  ///< Of the entry shown last.
  bool silent_ = false;
  bool has_focus_ = false;
  bool focused_by_click_ = false;
  bool select_after_click_ = false;
};

}  // namespace veyra
