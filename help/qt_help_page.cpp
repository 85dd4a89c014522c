#include "help/qt_help_page.h"

#include <QList>
#include <QPalette>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <optional>

#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr const char* kScheme = "chm";
constexpr qreal kSheetMargin = 14;

/// The URL by which the widget knows a page.
QUrl UrlOf(const std::string& reference) {
  const QString plain = QString::fromStdString(PlainReference(reference));
  const qsizetype anchor = plain.indexOf('#');
  QUrl url;
  url.setScheme(kScheme);
  url.setPath("/" + plain.left(anchor));
  if (anchor >= 0) {
    url.setFragment(plain.mid(anchor + 1));
  }
  return url;
}

/// The reference that a URL stands for, or nothing when it leads out of the help file. Links from
/// one compiled file to another ("ms-its:other.chm::/page.htm") count as links within it.
std::optional<std::string> ReferenceOf(const QUrl& url) {
  const QString scheme = url.scheme().toLower();
  if (scheme != kScheme && scheme != "ms-its" && scheme != "its" && scheme != "mk") {
    return std::nullopt;
  }
  const QString anchor = url.hasFragment() ? "#" + url.fragment() : QString();
  return PlainReference(url.path(QUrl::FullyEncoded).toStdString() + anchor.toStdString());
}

QString NoSuchPage(const std::string& reference) {
  const QString text = ToQString(Phrase::Tr("This page is not in the help file: %1", reference));
  return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

/// Pages of help files take a white sheet for granted, whatever the desktop's colours are.
QPalette SheetPalette(QPalette palette) {
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  palette.setColor(QPalette::Link, QColor(0x00, 0x4C, 0xB3));
  return palette;
}

}  // namespace

QtHelpPage::QtHelpPage(QWidget* parent) : QTextBrowser(parent) {
  setPalette(SheetPalette(palette()));
  document()->setDocumentMargin(kSheetMargin);
  // A page takes the colour of its links from the desktop's palette, not from this one.
  document()->setDefaultStyleSheet(
      QStringLiteral("a { color: %1 }").arg(palette().link().color().name()));
  setOpenLinks(false);
  connect(this, &QTextBrowser::anchorClicked, this, &QtHelpPage::FollowLink);
}

void QtHelpPage::SetArchive(std::shared_ptr<const ChmArchive> archive) {
  archive_ = std::move(archive);
  pictures_.clear();
  document()->clear();
  clearHistory();
}

void QtHelpPage::ShowPage(const std::string& reference) {
  setExtraSelections({});
  setSource(UrlOf(reference), QTextDocument::HtmlResource);
}

std::string QtHelpPage::ShownPage() const {
  return ReferenceOf(source()).value_or("");
}

void QtHelpPage::MarkWords(const QStringList& words) {
  QList<QTextEdit::ExtraSelection> marks;
  for (const QString& word : words) {
    for (QTextCursor found = document()->find(word); !found.isNull();
         found = document()->find(word, found)) {
      QTextEdit::ExtraSelection mark;
      mark.cursor = found;
      mark.format.setBackground(QColor(0xFF, 0xEB, 0x8A));
      marks.append(mark);
    }
  }
  setExtraSelections(marks);
}

QVariant QtHelpPage::loadResource(int type, const QUrl& name) {
  // The widget's source() is still the page before while a page is being loaded.
  if (type == QTextDocument::HtmlResource) {
    loaded_page_ = name;
  }
  const std::optional<std::string> reference = ReferenceOf(loaded_page_.resolved(name));
  if (!archive_ || !reference) {
    return {};
  }
  if (type == QTextDocument::HtmlResource) {
    const std::optional<std::string> html = archive_->Page(*reference);
    return html ? ToQString(*html) : NoSuchPage(*reference);
  }
  const std::string* bytes = archive_->Object(*reference);
  if (bytes == nullptr) {
    return {};
  }
  const QByteArray content = QByteArray::fromStdString(*bytes);
  if (type != QTextDocument::ImageResource) {
    return content;
  }
  return Fitted(pictures_[name] = QImage::fromData(content));
}

int QtHelpPage::RoomForPictures() const {
  return std::max(1, static_cast<int>(viewport()->width() - 2 * document()->documentMargin()));
}

/// On a screen of more pixels than the layout has, none of the picture's own are given away.
QImage QtHelpPage::Fitted(const QImage& picture) const {
  if (picture.width() <= RoomForPictures()) {
    return picture;
  }
  const qreal scale = devicePixelRatioF();
  const int width = std::min(picture.width(), static_cast<int>(RoomForPictures() * scale));
  QImage fitted = picture.scaledToWidth(width, Qt::SmoothTransformation);
  fitted.setDevicePixelRatio(static_cast<qreal>(width) / RoomForPictures());
  return fitted;
}

void QtHelpPage::FitPictures() {
  fitted_to_ = RoomForPictures();
  for (auto picture = pictures_.cbegin(); picture != pictures_.cend(); ++picture) {
    document()->addResource(QTextDocument::ImageResource, picture.key(), Fitted(picture.value()));
  }
  document()->markContentsDirty(0, document()->characterCount());
}

void QtHelpPage::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  if (RoomForPictures() != fitted_to_ && !pictures_.isEmpty()) {
    FitPictures();
  }
}

void QtHelpPage::FollowLink(const QUrl& link) {
  const QString scheme = link.scheme().toLower();
  if (const std::optional<std::string> reference = ReferenceOf(link)) {
    ShowPage(*reference);
  } else if (scheme == "http" || scheme == "https" || scheme == "mailto") {
    emit OutsideLinkClicked(link);
  }
}

}  // namespace veyra
