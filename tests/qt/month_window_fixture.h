#pragma once

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <string>

#include "tests/qt/program_fixture.h"

namespace veyra {

/// The month window of the program, and the look at its parts.
class MonthWindowFixture : public ProgramFixture {
 protected:
  using ProgramFixture::ProgramFixture;

  template <typename Control>
  static Control& Find(const QString& name) {
    return In<Control>(Month(), name);
  }
  static QLabel& Label(const QString& name) { return Find<QLabel>(name); }
  static QLabel& Number(int cell) { return Label(QStringLiteral("lblDate(%1)").arg(cell)); }
  static QComboBox& Facility() { return Names(Month()); }

  static std::string Title() { return Label("lblMonth").text().toStdString(); }

  static std::string Lines(int cell) {
    std::string lines;
    for (int i = 0; i < List(cell).count(); ++i) {
      lines += List(cell).item(i)->text().toStdString() + "\n";
    }
    return lines;
  }

  static std::string FocusName() {
    const QWidget* focus = Month()->focusWidget();
    return focus == nullptr ? "" : focus->objectName().toStdString();
  }

  static void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(Month()->focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }

  static QColor Background(int cell) {
    return List(cell).viewport()->palette().color(QPalette::Base);
  }
};

}  // namespace veyra
