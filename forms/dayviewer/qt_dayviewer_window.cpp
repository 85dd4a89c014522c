#include "forms/dayviewer/qt_dayviewer_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "forms/dayviewer/qt_viewer_list.h"
#include "forms/widgets/qt_colors.h"
#include "forms/widgets/qt_help_item.h"
#include "forms/widgets/qt_text.h"
#include "forms/widgets/qt_whole_rows.h"

namespace veyra {
namespace {

constexpr int kMargin = 14;
constexpr QSize kComfortableSize(760, 540);
constexpr double kShareOfScreen = 0.85;
constexpr int kDaySize = 22;
constexpr int kDateSize = 40;

QLabel* MakeLabel(const char* name, const QFont& font, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  label->setFont(font);
  return label;
}

}  // namespace

QtDayViewerWindow::QtDayViewerWindow(const HandlerGuard& guard) : guard_(guard) {
  setObjectName(QStringLiteral("frmDayViewer"));
  BuildMenu();
  BuildContents();
  auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, &QWidget::close);
  AddUndoKey(*this, [this] { Report(&frmDayViewer::UndoKey); });
  AddKey(*this, Qt::CTRL | Qt::Key_P, [this] { Report(&frmDayViewer::PrintKey); });
  AddKey(*this, Qt::CTRL | Qt::SHIFT | Qt::Key_P, [this] { Report(&frmDayViewer::PrintWeekKey); });
  resize(kComfortableSize.boundedTo(screen()->availableSize() * kShareOfScreen));
}

void QtDayViewerWindow::BuildMenu() {
  AddHelpItem(*this, [this] { Report(&frmDayViewer::mnuHelp_Click); });
}

void QtDayViewerWindow::BuildContents() {
  auto* contents = new QWidget(this);
  contents->setAutoFillBackground(true);
  lblDay_ = MakeLabel("lblDay", {QStringLiteral("MS Sans Serif"), kDaySize}, contents);
  lblDate_ = MakeLabel("lblDate", {QStringLiteral("Arial"), kDateSize, QFont::Bold}, contents);
  lstDay_ = new QtViewerList(contents);
  lstDay_->setObjectName(QStringLiteral("lstDay"));
  connect(lstDay_, &QtViewerList::Pressed, this, [this](MouseButton button) {
    guard_.Run([&] { handler_->lstDay_MouseDown(button, lstDay_->SelectedLines()); });
  });
  auto* head = new QHBoxLayout;
  head->addWidget(lblDay_, 1, Qt::AlignBottom);
  head->addWidget(lblDate_, 0, Qt::AlignBottom);
  auto* column = new QVBoxLayout(contents);
  column->setContentsMargins(kMargin, kMargin / 2, kMargin, kMargin);
  column->setSpacing(kMargin / 2);
  column->addLayout(head);
  column->addWidget(new QtWholeRows(lstDay_, [this] { return lstDay_->sizeHintForRow(0); }), 1);
  setCentralWidget(contents);
}

void QtDayViewerWindow::Report(void (frmDayViewer::*handler)()) {
  frmDayViewer& viewer = *handler_;
  guard_.Run([&viewer, handler] { (viewer.*handler)(); });
}

void QtDayViewerWindow::SetCaption(const std::string& caption, const std::string& facility,
                                   Date day) {
  setWindowTitle(ToQString(caption));
  lstDay_->setAccessibleDescription(OneLine(facility));
  lstDay_->setAccessibleName(ToQString(Phrase::Tr("Bookings on %1", DateText(day))));
}

void QtDayViewerWindow::ShowDay(const DayViewerPicture& picture) {
  const QPalette theme = QGuiApplication::palette();
  lblDay_->setText(ToQString(picture.lblDay));
  lblDate_->setText(ToQString(picture.lblDate));
  SetColor(*centralWidget(), QPalette::Window, ToQColor(picture.BackColor, theme));
  SetColor(*lblDay_, QPalette::WindowText, TextColorOn(picture.BackColor, picture.DayColor, theme));
  SetColor(*lblDate_, QPalette::WindowText,
           TextColorOn(picture.BackColor, picture.DateColor, theme));
  const QColor list =
      picture.ListColor ? ToQColor(*picture.ListColor, theme) : theme.color(QPalette::Base);
  SetColor(*lstDay_, QPalette::Base, list);
  SetColor(*lstDay_, QPalette::Text, ReadableOn(list, theme.color(QPalette::Text)));
}

void QtDayViewerWindow::ShowDayList(const modRes::DayLines& lines) {
  lstDay_->ShowLines(lines);
}

void QtDayViewerWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  guard_.Run([this] { handler_->Form_Unload(); });
}

}  // namespace veyra
