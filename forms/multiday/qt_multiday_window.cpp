#include "forms/multiday/qt_multiday_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "forms/multiday/qt_date_field.h"
#include "forms/multiday/qt_date_picker.h"
#include "forms/widgets/qt_colors.h"
#include "forms/widgets/qt_help_item.h"
#include "forms/widgets/qt_notice.h"
#include "forms/widgets/qt_text.h"
#include "forms/widgets/qt_window_place.h"

namespace veyra {
namespace {

constexpr Twips kMargin = 120;
constexpr Twips kWindowWidth = 6000;
constexpr Twips kPickerWidth = 3600;
constexpr Twips kButtonWidth = 1920;
constexpr int kNotePadding = 2;

struct Weekday {
  const char* Caption;
  const char* Plural;
};

constexpr OneBased<Weekday, 7> kWeekdays({{{"&Sun", "Sundays"},
                                           {"&Mon", "Mondays"},
                                           {"T&ue", "Tuesdays"},
                                           {"&Wed", "Wednesdays"},
                                           {"T&hu", "Thursdays"},
                                           {"F&ri", "Fridays"},
                                           {"S&at", "Saturdays"}}});

constexpr std::array<const char*, 2> kFieldLabels = {"&From", "&To"};

QString IndexedName(const char* control, std::size_t index) {
  return QStringLiteral("%1(%2)").arg(QLatin1String(control)).arg(index);
}

/// Gives the label the looks of a notice, or those of any other text.
void Mark(QLabel& label, bool marked) {
  label.setFrameShape(marked ? QFrame::Box : QFrame::NoFrame);
  label.setMargin(marked ? kNotePadding : 0);
  label.setAutoFillBackground(marked);
  const QPalette theme = QGuiApplication::palette();
  SetColor(label, QPalette::Window, theme.color(marked ? QPalette::ToolTipBase : QPalette::Window));
  SetColor(label, QPalette::WindowText,
           theme.color(marked ? QPalette::ToolTipText : QPalette::WindowText));
}

QDate ToQDate(Date date) {
  return {YearOf(date), MonthOf(date), DayOf(date)};
}

Date ToDate(QDate date) {
  return MakeDate(date.year(), date.month(), date.day()).value();
}

}  // namespace

QtMultiDayWindow::QtMultiDayWindow(const HandlerGuard& guard, Neighbour neighbour)
    : guard_(guard), neighbour_(std::move(neighbour)) {
  setObjectName(QStringLiteral("frmMultiDay"));
  setWindowTitle(QStringLiteral("Multiple Day Booking"));
  auto* contents = new QWidget(this);
  setCentralWidget(contents);
  BuildUpperPart();
  auto* column = new QVBoxLayout(contents);
  const int margin = Pixels(kMargin);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(margin);
  column->addWidget(upper_part_);
  auto* fields = new QHBoxLayout;
  fields->setSpacing(2 * margin);
  AddDateField(fields, 0);
  AddDateField(fields, 1);
  column->addLayout(fields);
  AddPlanLine(column);
  AddButtons(column);
  BuildPicker();
  const int width_in_pixels = Pixels(kWindowWidth);
  contents->setFixedSize(width_in_pixels, column->totalHeightForWidth(width_in_pixels));
  layout()->setSizeConstraint(QLayout::SetFixedSize);
  adjustSize();
}

void QtMultiDayWindow::BuildUpperPart() {
  upper_part_ = new QWidget(centralWidget());
  QSizePolicy keeps_place = upper_part_->sizePolicy();
  keeps_place.setRetainSizeWhenHidden(true);
  upper_part_->setSizePolicy(keeps_place);
  auto* Label2 = new QLabel(
      QStringLiteral("You must select at least ONE Day for Bookings and BOTH Dates must be Defined "
                     "before Multiple Bookings can be Scheduled."),
      upper_part_);
  Label2->setObjectName(QStringLiteral("Label2"));
  Label2->setWordWrap(true);
  auto* column = new QVBoxLayout(upper_part_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(Pixels(kMargin));
  column->addWidget(BuildWeekdays(), 1);
  column->addWidget(Label2);
}

QWidget* QtMultiDayWindow::BuildWeekdays() {
  auto* Frame1 = new QGroupBox(QStringLiteral("Days of the Week "), upper_part_);
  Frame1->setObjectName(QStringLiteral("Frame1"));
  auto* grid = new QGridLayout(Frame1);
  for (std::size_t day = 1; day <= kWeekdays.size(); ++day) {
    auto* box = new QCheckBox(QLatin1String(kWeekdays[day].Caption), Frame1);
    box->setObjectName(IndexedName("Days", day));
    box->setToolTip(QStringLiteral("Check to Schedule all %1 between the Dates Below")
                        .arg(QLatin1String(kWeekdays[day].Plural)));
    connect(box, &QCheckBox::clicked, this,
            [this, day](bool checked) { guard_.Run([&] { handler_->Days_Click(day, checked); }); });
    grid->addWidget(box, static_cast<int>(day - 1) / 4, static_cast<int>(day - 1) % 4);
    Days_[day] = box;
  }
  Command2_ = AddButton("Command2", "C&k ALL", "Press to Select ALL Days between the Dates Below",
                        &frmMultiDay::Command2_Click);
  grid->addWidget(Command2_, 1, 3);
  return Frame1;
}

void QtMultiDayWindow::AddDateField(QBoxLayout* row, std::size_t index) {
  auto* Label1 = new QLabel(QLatin1String(kFieldLabels.at(index)), centralWidget());
  Label1->setObjectName(IndexedName("Label1", index));
  auto* field = new QtDateField(centralWidget());
  field->setObjectName(IndexedName("Text1", index));
  field->setAccessibleName(WithoutAltKey(Label1->text()));
  field->setToolTip(QStringLiteral("Double-Click for Calendar"));
  Label1->setBuddy(field);
  connect(field, &QLineEdit::textChanged, this, [this, index](const QString& text) {
    guard_.Run([&] { handler_->Text1_Change(index, ToUtf8(text)); });
  });
  connect(field, &QtDateField::PickerWanted, this, [this, index] {
    edited_field_ = index;
    guard_.Run([&] { handler_->Text1_DblClick(index); });
  });
  auto* column = new QVBoxLayout;
  column->setSpacing(2);
  column->addWidget(Label1);
  column->addWidget(field);
  row->addLayout(column, 1);
  Text1_.at(index) = field;
}

/// Both keep their place when they say nothing.
void QtMultiDayWindow::AddPlanLine(QBoxLayout* column) {
  planLine_ = new QLabel(centralWidget());
  planLine_->setObjectName(QStringLiteral("planLine"));
  planLine_->setTextFormat(Qt::PlainText);
  planNote_ = new QLabel(centralWidget());
  planNote_->setObjectName(QStringLiteral("planNote"));
  planNote_->setTextFormat(Qt::PlainText);
  Mark(*planNote_, true);
  planNote_->setMinimumHeight(planNote_->sizeHint().height());
  Mark(*planNote_, false);
  auto* lines = new QVBoxLayout;
  lines->setSpacing(2);
  lines->addWidget(planLine_);
  lines->addWidget(planNote_);
  column->addLayout(lines);
}

/// "Close" stands in the middle, for "Close Calendar" comes up beside it on either side.
void QtMultiDayWindow::AddButtons(QBoxLayout* column) {
  Command1_ =
      AddButton("Command1", "&Close", "Press to Close this Panel", &frmMultiDay::Command1_Click);
  Command1_->setFixedWidth(Pixels(kWindowWidth - 2 * (kButtonWidth + 2 * kMargin)));
  column->addSpacing(Pixels(kMargin) / 2);
  column->addWidget(Command1_, 0, Qt::AlignHCenter);
}

void QtMultiDayWindow::BuildPicker() {
  Calendar1_ = new QtDatePicker(centralWidget());
  Calendar1_->setObjectName(QStringLiteral("Calendar1"));
  Calendar1_->setAccessibleName(ToQString(Phrase::Tr("Calendar")));
  Calendar1_->setToolTip(QStringLiteral("Double-Click to enter desired Date"));
  Calendar1_->setFont(QFont(QStringLiteral("Arial"), font().pointSize()));
  Calendar1_->setFirstDayOfWeek(Qt::Sunday);
  Calendar1_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  Calendar1_->setDateRange({kFirstYear, 1, 1}, {kLastYear, 12, 31});
  for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
    Calendar1_->setWeekdayTextFormat(day, Calendar1_->weekdayTextFormat(Qt::Monday));
  }
  Calendar1_->setFixedSize(Pixels(kPickerWidth), Calendar1_->sizeHint().height());
  upper_part_->setMinimumHeight(Calendar1_->height());
  Calendar1_->hide();
  connect(Calendar1_, &QtDatePicker::DayTaken, this,
          [this](QDate date) { guard_.Run([&] { handler_->Calendar1_DblClick(ToDate(date)); }); });
  Command3_ = AddButton("Command3", "Close Ca&lendar", "Click to close Calendar",
                        &frmMultiDay::Command3_Click);
  Command3_->setFixedSize(Pixels(kButtonWidth), Command1_->sizeHint().height());
  Command3_->hide();
  auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, &QtMultiDayWindow::DismissPicker);
  AddHelpKey(*this, [this] { Report(&frmMultiDay::HelpKey); });
}

QPushButton* QtMultiDayWindow::AddButton(const char* name, const char* caption, const char* tooltip,
                                         Handler handler) {
  auto* button = new QPushButton(QLatin1String(caption), centralWidget());
  button->setObjectName(QLatin1String(name));
  button->setToolTip(QLatin1String(tooltip));
  button->setAutoDefault(true);
  connect(button, &QPushButton::clicked, this, [this, handler] { Report(handler); });
  return button;
}

/// Escape is only ever the picker's: without one it does nothing.
void QtMultiDayWindow::DismissPicker() {
  if (Calendar1_->isVisible()) {
    Report(&frmMultiDay::Calendar1_Dismiss);
  }
}

void QtMultiDayWindow::Report(Handler handler) {
  frmMultiDay& logic = *handler_;
  guard_.Run([&logic, handler] { (logic.*handler)(); });
}

void QtMultiDayWindow::ShowPlan(const MultiDayPlan& plan) {
  for (std::size_t index = 0; index < Text1_.size(); ++index) {
    const QSignalBlocker quiet(Text1_.at(index));
    const QString text = OneLine(plan.Text1.at(index));
    if (Text1_.at(index)->text() != text) {
      Text1_.at(index)->setText(text);
    }
  }
  for (std::size_t day = 1; day <= Days_.size(); ++day) {
    Days_[day]->setChecked(plan.Days[day]);
  }
}

/// It is said aloud when it has been counted, and at once when it looks like a slip of the hand.
void QtMultiDayWindow::ShowPlanLine(const PlanLine& line) {
  const QString text = ToQString(line.Text);
  const QString note = ToQString(line.Note);
  const bool is_new = planLine_->text() != text || planNote_->text() != note;
  planLine_->setText(text);
  planNote_->setText(note);
  Mark(*planNote_, line.IsOdd);
  if (is_new && !text.isEmpty()) {
    Announce(line.IsOdd ? *planNote_ : *planLine_);
  }
}

void QtMultiDayWindow::KeepWorking(bool working) {
  work_.KeepWorking(working);
}

void QtMultiDayWindow::ShowPicker(const PickerPlace& place, Date selected) {
  Calendar1_->setSelectedDate(ToQDate(selected));
  Calendar1_->move(Pixels(place.PickerLeft), Pixels(place.PickerTop));
  Command3_->move(Pixels(place.CloseLeft), Command1_->y());
  upper_part_->hide();
  Calendar1_->show();
  Command3_->show();
  Calendar1_->setFocus(Qt::OtherFocusReason);
}

void QtMultiDayWindow::HidePicker(bool keep_close_button) {
  Text1_.at(edited_field_)->setFocus(Qt::OtherFocusReason);
  Calendar1_->hide();
  Command3_->setVisible(keep_close_button);
  upper_part_->show();
}

void QtMultiDayWindow::ShowWindow() {
  Days_[1]->setFocus(Qt::OtherFocusReason);
  ShowBeside(*this, neighbour_());
}

void QtMultiDayWindow::HideWindow() {
  hide();
  if (QWidget* neighbour = neighbour_()) {
    neighbour->activateWindow();
  }
}

/// The day window waits without input for this one's "Close".
void QtMultiDayWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  Report(&frmMultiDay::Command1_Click);
}

int QtMultiDayWindow::Pixels(Twips twips) const {
  return PixelsFromTwips(twips, logicalDpiX());
}

}  // namespace veyra
