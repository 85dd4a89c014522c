#include "forms/day/qt_day_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <algorithm>

#include "data/shown_name.h"
#include "forms/day/qt_slot_grid.h"
#include "forms/widgets/qt_escape_key.h"
#include "forms/widgets/qt_help_item.h"
#include "forms/widgets/qt_name_box.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr Twips kWidth = 3885;
constexpr Twips kLeastHeight = 5000;
constexpr Twips kGridShortOfWindow = 2239;
constexpr Twips kButtonAboveBottom = 1034;
constexpr Twips kGuestColumnWidth = 2400;
constexpr Twips kShortOfScreen = 1000;

constexpr int kMargin = 3;
constexpr int kGap = 3;
constexpr int kRoomForMenu = 60;
constexpr int kGuestColumn = 1;
constexpr double kSmallestFont = 6.5;

/// The frame's options stand side by side; a font that is too wide for that is made smaller.
void ShrinkToWidth(QGroupBox* frame, int width) {
  QFont font = frame->font();
  while (frame->minimumSizeHint().width() > width && font.pointSizeF() > kSmallestFont) {
    font.setPointSizeF(font.pointSizeF() - 0.5);
    frame->setFont(font);
    frame->layout()->invalidate();
  }
}

}  // namespace

QtDayWindow::QtDayWindow(const HandlerGuard& guard) : guard_(guard) {
  setObjectName(QStringLiteral("frmDay"));
  BuildMenu();
  BuildContents();
  WireGrid();
  WireNameBox();
  AddEscapeKey(*this, [this] { Report(&frmDay::Command2_Click); });
  AddUndoKey(*this, [this] { Report(&frmDay::UndoKey); });
  connect(Command2_, &QPushButton::clicked, this, [this] { Report(&frmDay::Command2_Click); });
  setFixedWidth(Pixels(kWidth));
  setMinimumHeight(Pixels(kLeastHeight));
}

int QtDayWindow::Pixels(Twips twips) const {
  return PixelsFromTwips(twips, logicalDpiY());
}

void QtDayWindow::BuildMenu() {
  AddHelpItem(*this, [this] { guard_.Run([this] { handler_->mnuHelp_Click(); }); });
  // Not in the bar: assistive programs are told of nothing there but menus.
  heading_ = new QLabel(this);
  heading_->setObjectName(QStringLiteral("heading"));
  heading_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  heading_->setTextFormat(Qt::PlainText);
  heading_->setContentsMargins(0, 0, 2 * kMargin, 0);
  heading_->setGeometry(kRoomForMenu, 0, Pixels(kWidth) - kRoomForMenu,
                        menuBar()->sizeHint().height());
}

void QtDayWindow::BuildContents() {
  auto* contents = new QWidget(this);
  setCentralWidget(contents);
  head_ = BuildHead();
  head_->setParent(contents);
  MSFlexGrid1_ = new QtSlotGrid(contents);
  MSFlexGrid1_->setObjectName(QStringLiteral("MSFlexGrid1"));
  MSFlexGrid1_->setAccessibleName(ToQString(Phrase::Tr("Time slots")));
  MSFlexGrid1_->setColumnWidth(kGuestColumn, Pixels(kGuestColumnWidth));
  Command2_ = new QPushButton(QStringLiteral("&Close"), contents);
  Command2_->setObjectName(QStringLiteral("Command2"));
  Command2_->setAccessibleName(QStringLiteral("Close"));
  Command2_->setAutoDefault(true);
  Combo1_->setFocus();
}

QWidget* QtDayWindow::BuildHead() {
  auto* head = new QWidget(this);
  auto* Label1 = new QLabel(QStringLiteral("&Guest/Event"), head);
  Label1->setObjectName(QStringLiteral("Label1"));
  Combo1_ = new QtNameBox(head);
  Combo1_->setObjectName(QStringLiteral("Combo1"));
  Combo1_->SetSpokenName(QStringLiteral("Guest/Event"));
  Combo1_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  Label1->setBuddy(Combo1_);
  auto* rows = new QGridLayout(head);
  rows->setContentsMargins(kMargin, kGap, kMargin, 0);
  rows->setHorizontalSpacing(2 * kGap);
  rows->setVerticalSpacing(1);
  rows->setColumnStretch(1, 1);
  rows->addWidget(Label1, 0, 0);
  rows->addWidget(Combo1_, 0, 1);
  rows->addWidget(BuildFrame(), 1, 0, 1, 2);
  return head;
}

QGroupBox* QtDayWindow::BuildFrame() {
  auto* Frame1 = new QGroupBox(QStringLiteral("Multiple Day Bookings"), this);
  Frame1->setObjectName(QStringLiteral("Frame1"));
  Book_ = {AddOption(0, "&Single Booking", Frame1), AddOption(1, "&Multiple Booking", Frame1)};
  Book_[1]->setToolTip(QStringLiteral("Click or Double-Click to Set Multiple Bookings"));
  Book_[0]->setChecked(true);
  auto* row = new QHBoxLayout(Frame1);
  row->setContentsMargins(kGap, 0, kGap, 1);
  row->setSpacing(kGap);
  row->addWidget(Book_[0]);
  row->addWidget(Book_[1]);
  ShrinkToWidth(Frame1, Pixels(kWidth) - 2 * kMargin);
  return Frame1;
}

QRadioButton* QtDayWindow::AddOption(int index, const char* caption, QWidget* frame) {
  auto* option = new QRadioButton(QLatin1String(caption), frame);
  option->setObjectName(QStringLiteral("Book(%1)").arg(index));
  option->setAccessibleName(WithoutAltKey(QLatin1String(caption)));
  connect(option, &QRadioButton::clicked, this,
          [this, index] { Report([index](frmDay& day) { day.Book_Click(index); }); });
  option->installEventFilter(this);
  return option;
}

void QtDayWindow::WireGrid() {
  connect(this, &QWidget::windowTitleChanged, this, [this] { DescribeGrid(); });
  connect(MSFlexGrid1_, &QtSlotGrid::Pressed, this, [this](int row, int current_row) {
    Report([=](frmDay& day) { day.MSFlexGrid1_MouseDown(row, current_row); });
  });
  MSFlexGrid1_->SetRowHint([this](int row) {
    Phrase hint;
    Report([&hint, row](frmDay& day) { hint = day.RowHint(row); });
    return hint;
  });
  connect(MSFlexGrid1_, &QtSlotGrid::Stretched, this, [this](int anchor, int end) {
    Report([=](frmDay& day) { day.MSFlexGrid1_Stretch(anchor, end); });
  });
  connect(MSFlexGrid1_, &QtSlotGrid::Released, this, [this](int row, int column) {
    Report([=](frmDay& day) { day.MSFlexGrid1_Click(row, column); });
  });
}

void QtDayWindow::WireNameBox() {
  const auto change_name = [this](const std::string& text) {
    Report([&text](frmDay& day) { day.Combo1_Change(text); });
  };
  connect(Combo1_, &QtNameBox::Typed, this, change_name);
  connect(Combo1_, &QtNameBox::Picked, this, change_name);
  connect(Combo1_, &QtNameBox::FocusArrived, this, [this] { Report(&frmDay::Combo1_GotFocus); });
  connect(Combo1_, &QtNameBox::FocusLeft, this, [this] { Report(&frmDay::Combo1_LostFocus); });
}

void QtDayWindow::Report(const std::function<void(frmDay&)>& gesture) {
  if (handler_ != nullptr) {
    guard_.Run([&] { gesture(*handler_); });
  }
}

bool QtDayWindow::IsDragging() const {
  return MSFlexGrid1_->IsDragging();
}

void QtDayWindow::ShowGrid(const DayGrid& grid) {
  MSFlexGrid1_->ShowGuests(grid);
}

/// A long name is cut before the weekday is.
void QtDayWindow::ShowHeading(const std::string& facility, const Phrase& weekday) {
  const QFontMetrics& metrics = heading_->fontMetrics();
  const QString end = QStringLiteral(", ") + ToQString(weekday);
  const int room = heading_->contentsRect().width() - metrics.horizontalAdvance(end) - 1;
  const QString name = OneLine(ShownName(facility));
  heading_->setText(metrics.elidedText(name, Qt::ElideRight, room) + end);
  heading_->setAccessibleName(name + end);
  DescribeGrid();
  heading_->setToolTip(PlainToolTip(facility));
}

/// The facility, the weekday and, from the title, the date.
void QtDayWindow::DescribeGrid() {
  MSFlexGrid1_->setAccessibleDescription(heading_->accessibleName() + QStringLiteral(", ") +
                                         windowTitle().trimmed());
}

void QtDayWindow::ShowNameBox(const NameBox& box) {
  Combo1_->ShowNames(box);
}

void QtDayWindow::ShowName(const std::string& text) {
  Combo1_->ShowText(text);
}

void QtDayWindow::ShowNameHint(const Phrase& hint) {
  Combo1_->ShowHint(ToQString(hint));
}

void QtDayWindow::ShowRangeHint(const Phrase& hint) {
  MSFlexGrid1_->ShowRangeHint(ToQString(hint));
}

void QtDayWindow::ScrollToRow(int row) {
  MSFlexGrid1_->ScrollToRow(row);
}

void QtDayWindow::SetCurrentRow(int row) {
  MSFlexGrid1_->SetCurrentRow(row);
}

void QtDayWindow::ChooseRows(int first, int last) {
  MSFlexGrid1_->ChooseRows(first, last);
}

void QtDayWindow::ShowMode(bool multiple) {
  Book_[multiple ? 1 : 0]->setChecked(true);
}

void QtDayWindow::SelectAllText() {
  Combo1_->SelectAllText();
}

void QtDayWindow::PlaceOnScreen() {
  const QRect whole = screen()->geometry();
  resize(width(), std::max(minimumHeight(), whole.height() - Pixels(kShortOfScreen)));
  move(whole.x() + (whole.width() - width()) / 2, whole.y());
}

void QtDayWindow::CloseWindow() {
  close();
}

bool QtDayWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::MouseButtonDblClick ||
      static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) {
    return QMainWindow::eventFilter(watched, event);
  }
  const int index = watched == Book_[1] ? 1 : 0;
  Report([index](frmDay& day) { day.Book_DblClick(index); });
  return true;
}

void QtDayWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  Report(&frmDay::Form_Unload);
  emit Unloaded();
}

/// The sums are those of the design, measured from below the menu bar. Where a large font makes the
/// head higher than they leave room for, the grid begins lower and gives up what it takes.
void QtDayWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  const int head_height = head_->sizeHint().height();
  const int button_top = height() - Pixels(kButtonAboveBottom);
  const int grid_bottom = button_top - kGap;
  const int room = grid_bottom - head_height - kGap;
  const int grid_height = std::min(height() - Pixels(kGridShortOfWindow), room);
  head_->setGeometry(0, 0, width(), head_height);
  MSFlexGrid1_->setGeometry(kMargin, grid_bottom - grid_height, width() - 2 * kMargin, grid_height);
  const QSize button = Command2_->sizeHint();
  Command2_->setGeometry((width() - button.width()) / 2, button_top, button.width(),
                         button.height());
}

}  // namespace veyra
