#include "tests/soak/monkey.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <algorithm>
#include <array>
#include <stdexcept>

#include "data/errors.h"
#include "forms/settings/palette.h"
#include "forms/widgets/qt_text.h"
#include "tests/soak/windows.h"
#include "tests/soak/wrong_windows.h"

namespace veyra::soak {

namespace {

constexpr std::size_t kMostRooms = 6;
constexpr std::size_t kStoryLines = 40;
constexpr QPoint kInsideAList(10, 5);

constexpr std::array kNames{
    "Smith",
    "O'Brien'; DROP TABLE Reserv; --",
    "<b>bold</b> & <img src=x>",
    "\"quoted\" %s%n #3/15/2014#",
    "Łódź, 名前",
    "a guest From  9:00A To 10:30A",
    "A name of more than fifty characters, as some groups have, for instance this one",
};

/// How many days the plan ticks, when it has both dates.
std::ptrdiff_t CountOfPlan() {
  const MultiDayPlan plan = PlanInWindow();
  return plan.Text1[1].empty() ? 0 : std::count(plan.Days.begin(), plan.Days.end(), true);
}

}  // namespace

Monkey::Monkey(unsigned seed) : random_(seed) {
  app_.Write("path.txt", data_.Path() + "\r\n");
  data_.AddRoom("Pool");
  data_.AddRoom("Hall", true);
  data_.AddGuest(std::string("Ann Smith"));
  data_.AddGuest(std::string("<i>Bob</i>"));
  program_ = std::make_unique<Program>(clock_, dialogs_);
  if (!program_->Start(app_.path().string())) {
    throw std::runtime_error("the program does not start");
  }
  model_.AddRoom("Pool");
  model_.AddRoom("Hall");
  model_.ChooseRoom("Hall");
  const std::string today = "-2147483643";
  model_.SaveColors({today, "12582912", "0", "255", today});
  colors_ = stored_colors_ = model_.Colors();
  month_shown_ = MakeDate(2014, 3, 1).value();
}

Monkey::~Monkey() {
  program_.reset();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::string Monkey::Act() {
  using Gesture = void (Monkey::*)(QWidget&);
  constexpr std::array<std::pair<const char*, Gesture>, 6> kWindows{
      {{"frmMultiDay", &Monkey::ActInPlan},
       {"frmDay", &Monkey::ActInDay},
       {"frmDayViewer", &Monkey::ActInViewer},
       {"frmSettings", &Monkey::ActInSettings},
       {"frmAbout", &Monkey::CloseWindow},
       {"frmCalendar", &Monkey::ActInMonth}}};
  try {
    for (const auto& [name, act] : kWindows) {
      if (QWidget* window = Seen(name); TakesInput(window)) {
        (this->*act)(*window);
        break;
      }
    }
    Settle();
  } catch (const std::exception& failure) {
    return failure.what();
  }
  if (std::string fault = StuckWindow(); !fault.empty()) {
    return fault;
  }
  for (std::string (Monkey::*check)() : {&Monkey::WrongTables, &Monkey::WrongDay}) {
    if (std::string fault = (this->*check)(); !fault.empty()) {
      return fault;
    }
  }
  return {};
}

/// Lets everything happen that was put off.
void Monkey::Settle() {
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  for (const MonkeyDialogs::Box& box : dialogs_.TakeBoxes()) {
    Say("box: " + box.Text);
    if (box.Text.find("Calendar.mdb") != std::string::npos) {
      throw std::runtime_error("a failure was reported: " + box.Text);
    }
  }
}

void Monkey::ActInMonth(QWidget& month) {
  switch (Lot(24)) {
    case 0:
    case 1:
      Say("next month");
      Press(month, "Command1");
      month_shown_ = FirstOfNextMonth(month_shown_, 1);
      break;
    case 2:
    case 3:
      Say("previous month");
      Press(month, "Command2");
      month_shown_ = FirstOfNextMonth(month_shown_, -1);
      break;
    case 4:
      AddFacility(month);
      break;
    case 5:
    case 6:
      ChooseFacility(month);
      break;
    case 7:
      DeleteFacility(month);
      break;
    case 8:
      Say("settings");
      In<QAction>(month, QStringLiteral("mnuSettings")).trigger();
      preview_ = colors_;
      role_ = 0;
      break;
    case 9:
      Say("about");
      In<QAction>(month, QStringLiteral("mnuAbout")).trigger();
      break;
    case 10:
    case 11:
    case 12:
      PressDay(month, Qt::RightButton);
      break;
    default:
      PressDay(month, Qt::LeftButton);
  }
}

Date Monkey::FirstOfNextMonth(Date first, int step) {
  const int months = YearOf(first) * 12 + MonthOf(first) - 1 + step;
  return MakeDate(months / 12, months % 12 + 1, 1).value();
}

void Monkey::AddFacility(QWidget& month) {
  if (model_.Rooms().size() >= kMostRooms) {
    return;
  }
  auto& box = In<QComboBox>(month, QStringLiteral("Combo1"));
  const std::string typed = "room " + std::to_string(++rooms_made_) + (Lot(2) == 0 ? " <u>&" : "");
  Say("new facility " + typed);
  Write(*box.lineEdit(), typed);
  QTest::keyClick(box.lineEdit(), Qt::Key_Return);
  const std::string question = "Do you want to add a new Facility called ";
  for (const MonkeyDialogs::Box& one : dialogs_.TakeBoxes()) {
    if (one.Text.starts_with(question) && one.Given == Answer::Yes) {
      model_.AddRoom(one.Text.substr(question.size(), one.Text.size() - question.size() - 1));
    }
  }
}

void Monkey::ChooseFacility(QWidget& month) {
  auto& box = In<QComboBox>(month, QStringLiteral("Combo1"));
  if (box.count() == 0) {
    return;
  }
  const int index = static_cast<int>(Lot(static_cast<unsigned>(box.count())));
  const std::string name = ToUtf8(box.itemText(index));
  Say("choose " + name);
  box.setFocus();
  box.setCurrentIndex(index);
  emit box.activated(index);
  model_.ChooseRoom(name);
}

void Monkey::DeleteFacility(QWidget& month) {
  Say("delete facility " + model_.Current());
  if (model_.Rooms().empty()) {
    return;
  }
  Press(month, "Command4");
  const auto boxes = dialogs_.TakeBoxes();
  if (!boxes.empty() && std::all_of(boxes.begin(), boxes.end(), [](const auto& box) {
        return box.Given == Answer::Yes || box.Given == Answer::Ok;
      })) {
    model_.DeleteRoom();
  }
}

void Monkey::PressDay(QWidget& month, Qt::MouseButton button) {
  const Date last = AddDays(FirstOfNextMonth(month_shown_, 1), -1);
  day_ = AddDays(month_shown_, static_cast<int>(Lot(static_cast<unsigned>(DayOf(last)))));
  for (const Model::Booking& booking : model_.Bookings()) {
    if (booking.Room == model_.Current() && month_shown_ <= booking.Day && booking.Day <= last &&
        Lot(4) == 0) {
      day_ = booking.Day;
    }
  }
  Say((button == Qt::LeftButton ? "open " : "view ") + DateText(day_));
  const int cell = WeekdayNumber(month_shown_) + DayOf(day_) - 1;
  auto& list = In<QListWidget>(month, QStringLiteral("lstDay(%1)").arg(cell));
  QTest::mousePress(list.viewport(), button, {}, kInsideAList);
  QListWidget elsewhere;
  QTest::mouseRelease(elsewhere.viewport(), button);
}

void Monkey::ActInPlan(QWidget& plan) {
  switch (Lot(6)) {
    case 0:
      Say("all days");
      Press(plan, "Command2");
      break;
    case 1:
    case 2: {
      const std::string to = DateText(AddDays(day_, static_cast<int>(Lot(30))));
      Say("to " + to);
      Write(In<QLineEdit>(plan, QStringLiteral("Text1(1)")), Lot(8) == 0 ? "soon" : to);
      break;
    }
    case 3: {
      const int day = 1 + static_cast<int>(Lot(7));
      Say("weekday " + std::to_string(day));
      In<QCheckBox>(plan, QStringLiteral("Days(%1)").arg(day)).click();
      break;
    }
    default:
      if (CountOfPlan() == 0 && Lot(4) != 0) {
        break;
      }
      Say("leave the plan");
      Press(plan, "Command1");
  }
}

void Monkey::ActInViewer(QWidget& viewer) {
  auto& list = In<QListWidget>(viewer, QStringLiteral("lstDay"));
  switch (Lot(4)) {
    case 0:
      Say("a line of the viewer");
      QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, kInsideAList);
      break;
    case 1:
    case 2:
      Say("open from the viewer");
      QTest::mousePress(list.viewport(), Qt::RightButton, {}, kInsideAList);
      break;
    default:
      CloseWindow(viewer);
  }
}

void Monkey::ActInSettings(QWidget& settings) {
  switch (Lot(8)) {
    case 0:
    case 1:
      role_ = static_cast<int>(Lot(5));
      Say("colour of " + std::to_string(role_));
      In<QRadioButton>(settings, QStringLiteral("Option1(%1)").arg(role_)).click();
      break;
    case 2:
    case 3:
      PickColor(settings);
      break;
    case 4:
      Say("save colours");
      Press(settings, "Command1");
      model_.SaveColors(preview_);
      colors_ = preview_;
      break;
    case 5:
      Say("use colours");
      Press(settings, "Command2");
      colors_ = preview_;
      break;
    case 6:
      Say("reset colours");
      Press(settings, "Command3");
      colors_ = stored_colors_;
      break;
    default:
      CloseWindow(settings);
  }
}

void Monkey::PickColor(QWidget& settings) {
  const unsigned index = 1 + Lot(48);
  Say("swatch " + std::to_string(index));
  QTest::mouseClick(&In<QWidget>(settings, QStringLiteral("Colors(%1)").arg(index)),
                    Qt::LeftButton);
  const std::array<std::string*, 5> roles{&preview_.BkGrnd, &preview_.HeaderTxt,
                                          &preview_.DaysTxtColor, &preview_.TodayColor,
                                          &preview_.TodayBColor};
  *roles.at(static_cast<std::size_t>(role_)) = std::to_string(kPalette[index]);
}

void Monkey::CloseWindow(QWidget& window) {
  Say("close " + ToUtf8(window.objectName()));
  window.close();
}

std::string Monkey::WrongTables() {
  const std::string found = TextOfTables(data_.File("Calendar.mdb"));
  return found == model_.Text() ? "" : "the tables hold\n" + found + "but should\n" + model_.Text();
}

/// Looks at one day of the month that is shown.
std::string Monkey::WrongDay() {
  QWidget* month = Seen("frmCalendar");
  if (month == nullptr) {
    return {};
  }
  const Date day = AddDays(month_shown_, static_cast<int>(Lot(28)));
  return WrongLines(*month, day, model_.Lines(day));
}

std::string Monkey::DrawnName() {
  // An Access file holds no name as long as the last one.
  const std::size_t left_out = TestedStoreKind() == StoreKind::Access ? 1 : 0;
  return kNames.at(Lot(static_cast<unsigned>(kNames.size() - left_out)));
}

void Monkey::Say(const std::string& line) {
  story_.push_back(line);
  if (story_.size() > kStoryLines) {
    story_.erase(story_.begin());
  }
}

std::string Monkey::Story() const {
  std::string text;
  for (const std::string& line : story_) {
    text += line + "\n";
  }
  return text;
}

}  // namespace veyra::soak
