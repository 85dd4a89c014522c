#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "app/program.h"
#include "data/create_store.h"
#include "data/schema.h"
#include "forms/widgets/qt_gesture_guard.h"
#include "forms/widgets/qt_style.h"
#include "tests/bench/desk.h"

namespace veyra {
namespace {

constexpr int kBookingsADay = 5;
constexpr int kDays = 61;
constexpr int kGuests = 50'000;
constexpr int kSlotRows = 48;
constexpr int kStarts = 40;
const Date kFirstDay = DateFromIsoText("2014-03-01").value();

std::string GuestName(int number) {
  return "Guest number " + std::to_string(number);
}

/// Paints at once what is due to be painted; the toolkit would wait some milliseconds.
void Paint(QWidget& window) {
  QCoreApplication::processEvents();
  QEvent due(QEvent::UpdateRequest);
  QCoreApplication::sendEvent(&window, &due);
}

/// A folder with March and April 2014 booked, five bookings a day, and so many guests in a file of
/// the host product's kind.
class BookedFolder {
 public:
  explicit BookedFolder(int guests = 0) {
    app_.Write("path.txt", data_.path().string() + "\r\n");
    const auto calendar = Make("Calendar.mdb", {RoomsTable(), ReservTable()}, FileKind::Sqlite);
    calendar->Insert("Rooms", {{"Name", "Hall"}, {"Active", std::int64_t{1}}});
    std::vector<FieldValues> bookings;
    for (int i = 0; i < kDays * kBookingsADay; ++i) {
      bookings.push_back({{"RmID", std::int64_t{1}},
                          {"Event", GuestName(i)},
                          {"DateOfRes", AddDays(kFirstDay, i / kBookingsADay)},
                          {"TimeFrom", std::int64_t{16 + 2 * (i % kBookingsADay)}},
                          {"TimeTo", std::int64_t{17 + 2 * (i % kBookingsADay)}}});
    }
    calendar->InsertAll("Reserv", bookings);
    std::vector<FieldValues> names;
    for (int i = 0; i < guests; ++i) {
      names.push_back({{"Name", GuestName(i)}});
    }
    Make("Veyra.mdb", {GuestTable()}, FileKind::Access)->InsertAll("Guest", names);
  }

  std::string App() const { return app_.path().string(); }

 private:
  std::unique_ptr<Store> Make(const std::string& name, const std::vector<TableDefinition>& tables,
                              FileKind kind) const {
    auto store = CreateStore(data_.File(name).string(), Durability::WhenAsked, kind);
    for (const TableDefinition& table : tables) {
      store->CreateTable(table);
    }
    return store;
  }

  TempFolder app_;
  TempFolder data_;
};

/// The program on the screen, in March 2014.
class RunningCalendar {
 public:
  explicit RunningCalendar(const std::string& app_folder) : program_(clock_, operator_) {
    if (!program_.Start(app_folder)) {
      throw std::runtime_error("the calendar did not start: " + operator_.LastBox());
    }
    Paint(Window("frmCalendar"));
  }

  /// Leaves nothing behind that the next start has to look at.
  void Leave() { program_.CloseDatabases(); }

  static QWidget& Window(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->objectName() == QLatin1String(name)) {
        return *window;
      }
    }
    throw std::runtime_error(std::string("no window ") + name);
  }

 private:
  QtGestureGuard gestures_;
  FakeClock clock_{2014, 3, 15};
  PatientOperator operator_;
  Program program_;
};

/// The page turned forth and back, read from the file and painted.
void PageTurn(benchmark::State& state) {
  const BookedFolder folder;
  const RunningCalendar calendar(folder.App());
  QWidget& month = RunningCalendar::Window("frmCalendar");
  bool forth = false;
  for (auto _ : state) {
    forth = !forth;
    QTest::keyClick(month.focusWidget(), forth ? Qt::Key_PageDown : Qt::Key_PageUp);
    Paint(month);
  }
}

/// 42 lists and nothing else, in a window as large and a font as large as the calendar's.
class BareMonth {
 public:
  explicit BareMonth(const QWidget& month) {
    auto* grid = new QGridLayout(&window_);
    for (int cell = 0; cell < 42; ++cell) {
      auto* list = new QListWidget(&window_);
      list->setFont(month.findChild<QListWidget*>(QStringLiteral("lstDay(7)"))->font());
      grid->addWidget(list, cell / 7, cell % 7);
      lists_.push_back(list);
    }
    window_.resize(month.size());
    window_.show();
    QCoreApplication::processEvents();
  }

  void Show(int first_cell, int days) {
    for (QListWidget* list : lists_) {
      list->clear();
    }
    for (int day = 0; day < days; ++day) {
      for (int i = 0; i < kBookingsADay; ++i) {
        lists_.at(static_cast<std::size_t>(first_cell + day))
            ->addItem(QStringLiteral(" 8:00A- 9:00A Guest number %1").arg(day * kBookingsADay + i));
      }
    }
    Paint(window_);
  }

 private:
  QWidget window_;
  std::vector<QListWidget*> lists_;
};

/// The yardstick: the same number of lines shown in bare lists.
void PageTurnOfBareLists(benchmark::State& state) {
  const BookedFolder folder;
  const RunningCalendar calendar(folder.App());
  BareMonth month(RunningCalendar::Window("frmCalendar"));
  bool forth = false;
  for (auto _ : state) {
    forth = !forth;
    if (forth) {
      month.Show(2, 30);
    } else {
      month.Show(6, 31);
    }
  }
}

/// The day of 15 March is opened, painted and closed, with so many guests to offer.
void DayOpened(benchmark::State& state) {
  const BookedFolder folder(static_cast<int>(state.range(0)));
  const RunningCalendar calendar(folder.App());
  for (auto _ : state) {
    QWidget& month = RunningCalendar::Window("frmCalendar");
    auto* list = month.findChild<QListWidget*>(QStringLiteral("lstDay(21)"));
    QTest::keyClick(list, Qt::Key_Return);
    Paint(RunningCalendar::Window("frmDay"));
    QTest::keyClick(&RunningCalendar::Window("frmDay"), Qt::Key_Escape);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

/// The yardstick: a window with a table and a box of names that are at hand already.
void BareDayOpened(benchmark::State& state) {
  QStringList names;
  for (int i = 0; i < state.range(0); ++i) {
    names << QString::fromStdString(GuestName(i));
  }
  for (auto _ : state) {
    QWidget window;
    auto* rows = new QVBoxLayout(&window);
    auto* box = new QComboBox(&window);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setEditable(true);
    box->addItems(names);
    auto* table = new QTableWidget(kSlotRows, 2, &window);
    for (int row = 0; row < kSlotRows; ++row) {
      table->setItem(row, 0, new QTableWidgetItem(QStringLiteral("8:00A")));
      table->setItem(row, 1, new QTableWidgetItem());
    }
    rows->addWidget(box);
    rows->addWidget(table);
    window.resize(480, 600);
    window.show();
    Paint(window);
  }
}

/// A window with the widgets of the month window and nothing to show in them.
void ShowBareWindow() {
  auto* window = new QWidget;
  auto* grid = new QGridLayout(window);
  auto* menu = new QMenuBar(window);
  for (const char* title : {"File", "Desk", "Help"}) {
    menu->addMenu(QString::fromLatin1(title));
  }
  grid->setMenuBar(menu);
  auto* box = new QComboBox(window);
  box->setEditable(true);
  grid->addWidget(box, 0, 5, 1, 2);
  grid->addWidget(new QLabel(QStringLiteral("March 2014"), window), 0, 0, 1, 3);
  const QFont fixed(QStringLiteral("Courier New"), 9);
  const QFont heads(QStringLiteral("MS Sans Serif"), 9);
  for (int column = 0; column < 7; ++column) {
    auto* head = new QLabel(QStringLiteral("Sunday"), window);
    head->setFont(heads);
    grid->addWidget(head, 1, column);
  }
  for (int cell = 0; cell < 42; ++cell) {
    auto* list = new QListWidget(window);
    list->setFont(fixed);
    for (int i = 0; i < kBookingsADay && cell >= 6 && cell < 37; ++i) {
      list->addItem(QStringLiteral(" 8:00A- 9:00A Guest number %1").arg(i));
    }
    grid->addWidget(new QLabel(QString::number(cell), window), 2 + 2 * (cell / 7), cell % 7);
    grid->addWidget(list, 3 + 2 * (cell / 7), cell % 7);
  }
  for (int i = 0; i < 4; ++i) {
    grid->addWidget(new QPushButton(QStringLiteral("Previous"), window), 20, i);
  }
  window->resize(1000, 700);
  window->show();
  Paint(*window);
}

/// One start, from main() to the first month painted, in a program that has loaded nothing yet.
int StartOnce(int argc, char** argv) {
  QApplication application(argc, argv);
  if (std::strcmp(argv[1], "--bare") == 0) {
    ShowBareWindow();
  } else {
    QApplication::setStyle(new QtStyle);
    RunningCalendar calendar(argv[2]);
    calendar.Leave();
    _exit(EXIT_SUCCESS);
  }
  _exit(EXIT_SUCCESS);
}

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// The processor time of whole starts.
void MeasureStarts(benchmark::State& state, const char* what) {
  const BookedFolder folder;
  for (auto _ : state) {
    const pid_t child = fork();
    if (child == 0) {
      execl("/proc/self/exe", "window_bench", what, folder.App().c_str(), nullptr);
      _exit(EXIT_FAILURE);
    }
    int status = 0;
    rusage used{};
    wait4(child, &status, 0, &used);
    if (status != EXIT_SUCCESS) {
      state.SkipWithError("the program did not start");
      return;
    }
    state.SetIterationTime(Seconds(used.ru_utime) + Seconds(used.ru_stime));
  }
}

BENCHMARK(PageTurnOfBareLists)->Unit(benchmark::kMillisecond);
BENCHMARK(PageTurn)->Unit(benchmark::kMillisecond);
BENCHMARK(BareDayOpened)->Arg(0)->Arg(kGuests)->Unit(benchmark::kMillisecond);
BENCHMARK(DayOpened)->Arg(0)->Arg(kGuests)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MeasureStarts, Bare, "--bare")
    ->Name("BareStart")
    ->UseManualTime()
    ->Iterations(kStarts)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MeasureStarts, Calendar, "--calendar")
    ->Name("Start")
    ->UseManualTime()
    ->Iterations(kStarts)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace veyra

int main(int argc, char** argv) {
  // The offscreen platform says of every window what it cannot do.
  qputenv("QT_LOGGING_RULES", "default.warning=false");
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  if (argc > 2 &&
      (std::strcmp(argv[1], "--bare") == 0 || std::strcmp(argv[1], "--calendar") == 0)) {
    return veyra::StartOnce(argc, argv);
  }
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setStyle(new veyra::QtStyle);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
