#pragma once

#include <QHash>
#include <QImage>
#include <QTextBrowser>
#include <QUrl>
#include <memory>

#include "help/chm_archive.h"

namespace veyra {

/// Shows pages of a help file with their pictures. Whatever a page asks for comes from that file,
/// never from the disk or the net. A link within the file is followed; any other is reported. A
/// picture that is wider than the sheet is made to fit it, however wide that becomes.
class QtHelpPage : public QTextBrowser {
  Q_OBJECT

 public:
  explicit QtHelpPage(QWidget* parent = nullptr);

  /// From now on shows pages of this file; the pages seen so far are forgotten.
  void SetArchive(std::shared_ptr<const ChmArchive> archive);

  /// Shows a page of the file; says so when there is none of that reference.
  void ShowPage(const std::string& reference);

  /// The reference of the page shown, with its anchor; empty when there is none.
  std::string ShownPage() const;

  /// Marks every place where one of the words occurs in the page shown.
  void MarkWords(const QStringList& words);

  QVariant loadResource(int type, const QUrl& name) override;

 signals:
  /// The operator clicked a link that leads out of the help file: to a web page or a mail address.
  void OutsideLinkClicked(const QUrl& link);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FollowLink(const QUrl& link);
  /// In pixels of the layout: what is left between the margins.
  int RoomForPictures() const;
  QImage Fitted(const QImage& picture) const;
  void FitPictures();

  std::shared_ptr<const ChmArchive> archive_;
  QUrl loaded_page_;
  /// Those that a page has asked for, in their own size.
  QHash<QUrl, QImage> pictures_;
  int fitted_to_ = 0;
};

}  // namespace veyra
