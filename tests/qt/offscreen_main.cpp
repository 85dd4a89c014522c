#include <gtest/gtest.h>

#include <QApplication>

#include "forms/qt_style.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setStyle(new veyra::QtStyle);
  return RUN_ALL_TESTS();
}
