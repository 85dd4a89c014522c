#pragma once

#include <QMainWindow>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "data/phrase.h"
#include "help/chm_archive.h"
#include "help/topic_search.h"

class QLineEdit;
class QListWidget;
class QStackedWidget;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

namespace veyra {

class QtHelpPage;

/// The help window: contents at the side, the page beside it, and a box that searches all pages.
/// It stands beside the other windows, blocks none, and closing it does not end the program.
/// Escape closes it.
class QtHelpWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// Opens a web page or a mail address outside the program.
  using Browser = std::function<void(const QUrl&)>;

  explicit QtHelpWindow(Browser browser);

  /// Shows the contents of this help file, and none of its pages yet.
  void ShowFile(std::shared_ptr<const ChmArchive> archive);

  /// Shows a page of the file.
  void ShowPage(const std::string& reference);

  /// Shows nothing but this text: why the help file cannot be shown.
  void ShowFailure(const Phrase& text);

  /// Brings the window to the front, on the screen if it was closed.
  void BringUp();

 private:
  QToolBar* MakeToolBar();
  QWidget* MakeSide();
  void AddShortcuts();
  void FillContents();
  void FollowShownPage();
  void Search(const QString& words);
  void ShowFoundPage(int row);
  QStringList SearchedWords() const;

  std::shared_ptr<const ChmArchive> archive_;
  std::optional<TopicSearch> search_;  ///< Made when first asked.
  QtHelpPage* page_;
  QLineEdit* search_box_;
  QTreeWidget* contents_;
  QListWidget* results_;
  QStackedWidget* side_;  ///< Contents, or results while the search box holds a word.
};

}  // namespace veyra
