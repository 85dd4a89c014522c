#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QImage>
#include <QLabel>
#include <QRadioButton>
#include <algorithm>
#include <string>
#include <vector>

#include "forms/month/qt_day_list.h"
#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

constexpr int kMostStops = 200;

void PressInMonth(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(QApplication::activeWindow()->focusWidget(), key, modifiers);
}

void Trigger(const QString& action) {
  QApplication::activeWindow()->findChild<QAction*>(action)->trigger();
}

void OpenDay(QWidget* month) {
  auto* cell = month->findChild<QListWidget*>(QStringLiteral("lstDay(21)"));
  QTest::keyClick(cell, Qt::Key_Return);
}

/// What the Tab key does in each window.
class TabOrderTest : public ProgramFixture, public testing::WithParamInterface<const char*> {
 protected:
  void Open(const std::string& name) {
    data_.AddBooking(hall_, "2014-03-15", 19, 21, "Smith");
    Start();
    if (name == "frmFind") {
      PressInMonth(Qt::Key_F, Qt::ControlModifier);
    } else if (name == "frmFree") {
      PressInMonth(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    } else if (name == "frmBoard") {
      PressInMonth(Qt::Key_B, Qt::ControlModifier);
    } else if (name == "frmSettings") {
      Trigger(QStringLiteral("mnuSettings"));
    } else if (name == "frmDayViewer") {
      RightPressDay(21);
    } else if (name != "frmCalendar") {
      OpenDay(Month());
      if (name == "frmMultiDay") {
        ASSERT_TRUE(IsInUse(Day()));
        In<QRadioButton>(Day(), "Book(1)").click();
      }
    }
    ASSERT_NE(nullptr, Window(name.c_str())) << name;
    window_ = Window(name.c_str());
    ASSERT_TRUE(IsInUse(window_));
    AwaitLines();
  }

  /// Two of the windows look for what they show while they stand.
  void AwaitLines() const {
    if (window_ == Window("frmFind")) {
      QTest::keyClicks(window_->focusWidget(), QStringLiteral("smith"));
    }
    const auto* found = window_->findChild<QListWidget*>(QStringLiteral("List1"));
    ASSERT_TRUE(QTest::qWaitFor([found] { return found == nullptr || found->count() > 0; }));
  }

  /// The controls at which the key stops, from the one that has the focus until it has it again.
  std::vector<QWidget*> Walk(Qt::Key key) const {
    std::vector<QWidget*> stops{window_->focusWidget()};
    while (stops.size() < kMostStops) {
      QTest::keyClick(window_->focusWidget(), key);
      if (window_->focusWidget() == stops.front()) {
        return stops;
      }
      stops.push_back(window_->focusWidget());
    }
    ADD_FAILURE() << "the key does not come back to where it began";
    return stops;
  }

  static std::string NameOf(const QWidget* control) {
    return control->objectName().toStdString() + " (" + control->metaObject()->className() + ")";
  }

  /// The list of a day is marked by a frame around the day.
  static const QWidget* MarkedWith(const QWidget* stop) {
    return qobject_cast<const QtDayList*>(stop) == nullptr ? stop : stop->parentWidget();
  }

  QRect Place(const QWidget* control) const {
    return {control->mapTo(window_, QPoint()), control->size()};
  }

  QWidget* window_ = nullptr;
};

TEST_P(TabOrderTest, StopsOnlyAtWhatIsSeenAndHasAName) {
  Open(GetParam());
  for (QWidget* stop : Walk(Qt::Key_Tab)) {
    EXPECT_FALSE(stop->visibleRegion().isEmpty()) << NameOf(stop);
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(stop);
    ASSERT_NE(nullptr, spoken) << NameOf(stop);
    EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << NameOf(stop);
  }
}

TEST_P(TabOrderTest, ReachesEveryControlThatTakesTheFocus) {
  Open(GetParam());
  const std::vector<QWidget*> stops = Walk(Qt::Key_Tab);
  for (QWidget* control : window_->findChildren<QWidget*>()) {
    const bool is_stop = control->isVisible() && control->isEnabled() &&
                         (control->focusPolicy() & Qt::TabFocus) != 0;
    auto* button = qobject_cast<QAbstractButton*>(control);
    const bool is_in_group = button != nullptr && button->autoExclusive() && !button->isChecked();
    const bool is_part = control->focusProxy() != nullptr ||
                         qobject_cast<QComboBox*>(control->parentWidget()) != nullptr;
    if (is_stop && !is_in_group && !is_part) {
      EXPECT_NE(stops.end(), std::find(stops.begin(), stops.end(), control)) << NameOf(control);
    }
  }
}

TEST_P(TabOrderTest, TheWayBackIsTheSameWay) {
  Open(GetParam());
  std::vector<QWidget*> there = Walk(Qt::Key_Tab);
  const std::vector<QWidget*> back = Walk(Qt::Key_Backtab);
  std::reverse(there.begin() + 1, there.end());
  EXPECT_EQ(there, back);
}

TEST_P(TabOrderTest, GoesDownOneColumnAfterTheOther) {
  Open(GetParam());
  const std::vector<QWidget*> stops = Walk(Qt::Key_Tab);
  std::vector<std::string> goes_back;
  for (std::size_t i = 0; i < stops.size(); ++i) {
    const QRect here = Place(stops[i]);
    const QRect next = Place(stops[(i + 1) % stops.size()]);
    if (next.top() <= here.center().y() && next.left() <= here.right()) {
      goes_back.push_back("from " + NameOf(stops[i]));
    }
  }
  EXPECT_EQ(1, goes_back.size()) << testing::PrintToString(goes_back);
}

TEST_P(TabOrderTest, WhereTheKeyStopsCanBeSeen) {
  Open(GetParam());
  const std::vector<QWidget*> stops = Walk(Qt::Key_Tab);
  if (stops.size() == 1) {
    return;  // It has the focus always.
  }
  for (QWidget* stop : stops) {
    ASSERT_EQ(stop, window_->focusWidget());
    const QRect around = Place(MarkedWith(stop));
    const QImage with = window_->grab(around).toImage();
    QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(with != window_->grab(around).toImage()) << NameOf(stop);
  }
}

INSTANTIATE_TEST_SUITE_P(Windows, TabOrderTest,
                         testing::Values("frmCalendar", "frmDay", "frmMultiDay", "frmDayViewer",
                                         "frmSettings", "frmFind", "frmFree", "frmBoard"),
                         [](const auto& name) { return std::string(name.param); });

}  // namespace
}  // namespace veyra
