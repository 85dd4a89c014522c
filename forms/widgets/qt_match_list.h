#pragma once

#include <QListWidget>
#include <string>
#include <vector>

namespace veyra {

/// The names that match what is being typed into a box, right below it, over what lies there. The
/// box keeps the focus and hands on the keys.
class QtMatchList : public QListWidget {
  Q_OBJECT

 public:
  /// Hidden at first. `box` must outlive the list.
  explicit QtMatchList(QWidget& box);

  /// Shows these names, none of them chosen; hides when there is none.
  void ShowMatches(const std::vector<std::string>& names);

  /// Whether the key was for the list: Up and Down choose a name or, above the first one, none;
  /// Enter picks the chosen one; Escape hides the list. While it is hidden no key is.
  bool TakesKey(int key);

 signals:
  void NamePicked(const std::string& name);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();
  void Step(int step);
  void Pick(int row);

  QWidget& box_;
  std::vector<std::string> names_;
};

}  // namespace veyra
