#include "forms/month/qt_month_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/month/qt_desk_menu.h"
#include "forms/month/qt_month_grid.h"
#include "forms/widgets/qt_colors.h"
#include "forms/widgets/qt_elided_label.h"
#include "forms/widgets/qt_keys.h"
#include "forms/widgets/qt_name_box.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr int kEnterKey = 13;
constexpr int kMargin = 10;
constexpr int kGap = 8;
constexpr double kShareOfScreen = 0.9;
constexpr QSize kComfortableSize(1000, 680);
constexpr int kRoomForWindowFrame = 40;
constexpr int kNameCharacters = 14;
constexpr int kWidestControls = 460;

void MakeLarger(QLabel* label, double factor, QFont::Weight weight) {
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * factor);
  font.setWeight(weight);
  label->setFont(font);
}

void SetTextColor(QLabel* label, const QColor& color) {
  QPalette colors = label->palette();
  colors.setColor(QPalette::WindowText, color);
  label->setPalette(colors);
}

/// What is hidden keeps its place, so that nothing else moves.
void KeepPlaceWhenHidden(QWidget* widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

QString NoFacilityYet() {
  return ToQString(Phrase::Tr("There is no facility yet.") + "\n" +
                   Phrase::Tr("Type the name of the first one into the box at the top and press "
                              "Enter."));
}

}  // namespace

QtMonthWindow::QtMonthWindow(const HandlerGuard& guard) : guard_(guard) {
  setObjectName(QStringLiteral("frmCalendar"));
  setWindowTitle(QStringLiteral("Veyra Scheduler Calendar"));
  BuildMenus();
  BuildContents();
  WireFacilityBox();
  WirePageKeys();
  desk_menu_ = new QtDeskMenu(guard_, *this);
}

void QtMonthWindow::SetHandler(frmCalendar* handler, DeskActions* desk) {
  handler_ = handler;
  desk_menu_->SetHandler(desk);
}

void QtMonthWindow::BuildMenus() {
  QMenu* mnuHelp = menuBar()->addMenu(QStringLiteral("&Help"));
  mnuHelp->setObjectName(QStringLiteral("mnuHelp"));
  AddMenuItem(mnuHelp, "mnuContents", "&Contents", &frmCalendar::mnuContents_Click);
  AddMenuItem(mnuHelp, "mnuOver", "&Overview", &frmCalendar::mnuOver_Click);
  AddMenuItem(mnuHelp, "mnuCalendar", "Calendar &Help", &frmCalendar::mnuCalendar_Click)
      ->setShortcut(QKeySequence(Qt::Key_F1));
  AddMenuItem(mnuHelp, "mnuAbout", "&About", &frmCalendar::mnuAbout_Click);
  AddMenuItem(menuBar(), "mnuSettings", "&Settings", &frmCalendar::mnuSettings_Click);
}

QAction* QtMonthWindow::AddMenuItem(QWidget* menu, const char* name, const char* caption,
                                    Handler handler) {
  auto* item = new QAction(QLatin1String(caption), this);
  item->setObjectName(QLatin1String(name));
  item->setMenuRole(QAction::NoRole);
  menu->addAction(item);
  connect(item, &QAction::triggered, this, [this, handler] { Report(handler); });
  return item;
}

QWidget* QtMonthWindow::BuildTitles() {
  auto* titles = new QWidget(this);
  lblMonth_ = new QtElidedLabel(titles);
  lblMonth_->setObjectName(QStringLiteral("lblMonth"));
  MakeLarger(lblMonth_, 2.0, QFont::DemiBold);
  lblMonth_->setMinimumWidth(
      lblMonth_->fontMetrics().horizontalAdvance(QStringLiteral("September 8888 ")));
  lblRoom_ = new QtElidedLabel(titles);
  lblRoom_->setObjectName(QStringLiteral("lblRoom"));
  MakeLarger(lblRoom_, 1.3, QFont::Normal);
  auto* column = new QVBoxLayout(titles);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addStretch();
  column->addWidget(lblMonth_);
  column->addWidget(lblRoom_);
  column->addStretch();
  return titles;
}

QWidget* QtMonthWindow::BuildControls() {
  auto* controls = new QWidget(this);
  Label1_ = new QLabel(QStringLiteral("&Facility"), controls);
  Label1_->setObjectName(QStringLiteral("Label1"));
  KeepPlaceWhenHidden(Label1_);
  Combo1_ = new QtNameBox(controls);
  Combo1_->setObjectName(QStringLiteral("Combo1"));
  Combo1_->SetSpokenName(QStringLiteral("Facility"));
  Combo1_->setMinimumContentsLength(kNameCharacters);
  Combo1_->setToolTip(
      QStringLiteral("Select the Facility to Review | Enter New Facility and Press Enter | Or "
                     "enter a New Facility and press Enter"));
  KeepPlaceWhenHidden(Combo1_);
  Label1_->setBuddy(Combo1_);
  Command4_ =
      AddButton("Command4", "&Delete Facility", "Delete the Selected Facility and All its Bookings",
                &frmCalendar::Command4_Click);
  Command2_ = AddButton("Command2", "<= &Previous", "Go To the Previous Month",
                        &frmCalendar::Command2_Click);
  Command1_ =
      AddButton("Command1", "&Next =>", "Go To the Next Month", &frmCalendar::Command1_Click);
  Command3_ = AddButton("Command3", "P&rint", "Print this Month's Calendar on your Default Printer",
                        &frmCalendar::Command3_Click);
  Command1_->setAutoRepeat(true);
  Command2_->setAutoRepeat(true);

  auto* upper = new QHBoxLayout;
  upper->setSpacing(kGap);
  upper->addWidget(Label1_);
  upper->addWidget(Combo1_, 1);
  upper->addWidget(Command4_);
  auto* lower = new QHBoxLayout;
  lower->setSpacing(kGap);
  lower->addWidget(Command2_);
  lower->addWidget(Command1_);
  lower->addStretch();
  lower->addWidget(Command3_);
  auto* rows = new QVBoxLayout(controls);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(kGap - 2);
  controls->setMaximumWidth(kWidestControls);
  rows->addLayout(upper);
  rows->addLayout(lower);
  return controls;
}

/// A button without a handler stands there disabled.
QPushButton* QtMonthWindow::AddButton(const char* name, const char* caption, const char* tooltip,
                                      Handler handler) {
  auto* button = new QPushButton(QLatin1String(caption), this);
  button->setObjectName(QLatin1String(name));
  button->setAccessibleName(WithoutAltKey(QLatin1String(caption)));
  button->setToolTip(QLatin1String(tooltip));
  button->setAutoDefault(true);
  button->setEnabled(handler != nullptr);
  KeepPlaceWhenHidden(button);
  connect(button, &QPushButton::clicked, this, [this, handler] {
    // A button that is held down goes on repeating under a box that its handler has opened.
    if (QApplication::activeModalWidget() == nullptr) {
      Report(handler);
    }
  });
  return button;
}

void QtMonthWindow::BuildContents() {
  auto* contents = new QWidget(this);
  contents->setAutoFillBackground(true);
  auto* head = new QHBoxLayout;
  head->setSpacing(2 * kGap);
  head->addWidget(BuildTitles(), 3);
  head->addWidget(BuildControls(), 2);
  grid_ = new QtMonthGrid(contents);
  auto* column = new QVBoxLayout(contents);
  column->setContentsMargins(kMargin, kGap, kMargin, kMargin);
  column->setSpacing(kGap);
  column->addLayout(head);
  column->addWidget(grid_, 1);
  setCentralWidget(contents);
  connect(grid_, &QtMonthGrid::DayPressed, this, [this](int index, MouseButton button) {
    guard_.Run([&] { handler_->lstDay_MouseDown(index, button); });
  });
}

void QtMonthWindow::WireFacilityBox() {
  connect(Combo1_, &QtNameBox::Typed, this,
          [this](const std::string& text) { guard_.Run([&] { handler_->Combo1_Change(text); }); });
  connect(Combo1_, &QtNameBox::Picked, this,
          [this](const std::string& text) { guard_.Run([&] { handler_->Combo1_Click(text); }); });
  connect(Combo1_, &QtNameBox::EnterPressed, this,
          [this] { guard_.Run([this] { handler_->Combo1_KeyPress(kEnterKey); }); });
  connect(Combo1_, &QtNameBox::FocusArrived, this,
          [this] { Report(&frmCalendar::Combo1_GotFocus); });
  connect(Combo1_, &QtNameBox::FocusLeft, this, [this] { Report(&frmCalendar::Combo1_LostFocus); });
}

void QtMonthWindow::WirePageKeys() {
  auto* next = new QShortcut(QKeySequence(Qt::Key_PageDown), this);
  connect(next, &QShortcut::activated, this, [this] { Report(&frmCalendar::Command1_Click); });
  auto* previous = new QShortcut(QKeySequence(Qt::Key_PageUp), this);
  connect(previous, &QShortcut::activated, this, [this] { Report(&frmCalendar::Command2_Click); });
}

void QtMonthWindow::Report(Handler handler) {
  frmCalendar& calendar = *handler_;
  guard_.Run([&calendar, handler] { (calendar.*handler)(); });
}

void QtMonthWindow::ShowMonth(const modRes::MonthPicture& picture) {
  QWidget* contents = centralWidget();
  shown_.ShowMonth(picture);
  if (picture.Title) {
    lblMonth_->setText(ToQString(*picture.Title));
  }
  grid_->ShowCells(picture.Cells);
  contents->layout()->activate();
  contents->repaint();
}

void QtMonthWindow::ShowDayCell(int cell_index, const modRes::DayLines& lines) {
  shown_.ShowLines(cell_index, lines);
  grid_->ShowLines(cell_index, lines);
}

void QtMonthWindow::ShowFacilityBox(const NameBox& box) {
  Combo1_->ShowNames(box);
  desk_menu_->ShowFacilities(box.Items);
  grid_->ShowHint(box.Items.empty() ? NoFacilityYet() : QString());
}

void QtMonthWindow::ShowFacilityHint(const Phrase& hint) {
  Combo1_->ShowHint(ToQString(hint));
}

void QtMonthWindow::ShowRoom(const std::string& room) {
  lblRoom_->setText(OneLine(room));
  grid_->ShowFacility(OneLine(room));
}

void QtMonthWindow::ShowColors(std::int32_t background, std::int32_t header) {
  const QPalette theme = QGuiApplication::palette();
  QPalette colors = centralWidget()->palette();
  const QColor back = ToQColor(background, theme);
  colors.setColor(QPalette::Window, back);
  centralWidget()->setPalette(colors);
  const QColor head = TextColorOn(background, header, theme);
  SetTextColor(lblMonth_, head);
  SetTextColor(lblRoom_, head);
  SetTextColor(Label1_, ReadableOn(back, theme.color(QPalette::WindowText)));
  grid_->SetColors(background, head);
}

void QtMonthWindow::ShowControls(bool visible) {
  for (QWidget* control : std::initializer_list<QWidget*>{Command1_, Command2_, Command4_,
                                                          Command3_, Combo1_, Label1_}) {
    control->setVisible(visible);
  }
}

void QtMonthWindow::SelectAllText() {
  Combo1_->SelectAllText();
}

void QtMonthWindow::FocusPrintButton() {
  Command3_->setFocus(Qt::OtherFocusReason);
}

void QtMonthWindow::ChooseDay(int cell_index) {
  grid_->Choose(cell_index);
}

int QtMonthWindow::ChosenDay() const {
  return grid_->Chosen();
}

void QtMonthWindow::PlaceAtTopCentre() {
  const QRect room = screen()->availableGeometry();
  const QSize most(room.width(), room.height() - kRoomForWindowFrame);
  resize((room.size() * kShareOfScreen).expandedTo(kComfortableSize).boundedTo(most));
  move(room.x() + (room.width() - width()) / 2, room.y());
}

/// A press comes here when no control has taken it; so does then its release.
void QtMonthWindow::mousePressEvent(QMouseEvent* event) {
  event->accept();
}

void QtMonthWindow::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  ReportClickAt(event->position().toPoint());
}

void QtMonthWindow::ReportClickAt(const QPoint& place) {
  const QWidget* clicked = childAt(place);
  if (clicked == lblMonth_) {
    Report(&frmCalendar::lblMonth_Click);
  } else if (clicked == lblRoom_) {
    Report(&frmCalendar::lblRoom_Click);
  } else if (grid_->IsHeader(clicked)) {
    Report(&frmCalendar::Label2_Click);
  } else {
    Report(&frmCalendar::Form_Click);
  }
}

/// The open menu takes the release of the button, so the click is over with the press.
void QtMonthWindow::contextMenuEvent(QContextMenuEvent* event) {
  const QWidget* clicked = childAt(event->pos());
  const bool is_control = clicked == nullptr || clicked == menuBar() || Combo1_ == clicked ||
                          Combo1_->isAncestorOf(clicked) ||
                          qobject_cast<const QPushButton*>(clicked) != nullptr;
  if (event->reason() == QContextMenuEvent::Mouse && !is_control) {
    ReportClickAt(event->pos());
    desk_menu_->popup(event->globalPos());
  }
}

/// Keys that no control has wanted.
void QtMonthWindow::keyPressEvent(QKeyEvent* event) {
  if (IsMenuKey(*event) && !event->isAutoRepeat() && !Combo1_->hasFocus()) {
    desk_menu_->popup(focusWidget()->mapToGlobal(focusWidget()->rect().bottomLeft()));
  } else {
    QMainWindow::keyPressEvent(event);
  }
}

/// Any key brings the controls back after a print, as a click on the window does. It is asked for
/// before it is known to be a shortcut.
bool QtMonthWindow::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && Command3_->isHidden() &&
      !IsModifier(*static_cast<QKeyEvent*>(event))) {
    Report(&frmCalendar::Form_Click);
  }
  return QMainWindow::event(event);
}

void QtMonthWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  Report(&frmCalendar::Form_Unload);
}

}  // namespace veyra
