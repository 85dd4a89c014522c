#include <gtest/gtest.h>

#include <QApplication>
#include <iostream>

#include "forms/widgets/qt_style.h"

namespace {

/// Leaves out what the offscreen platform says that it cannot do.
void ShowMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (!text.startsWith(QLatin1String("This plugin does not support"))) {
    std::cerr << qFormatLogMessage(type, context, text).toStdString() << '\n';
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  testing::InitGoogleTest(&argc, argv);
  qInstallMessageHandler(ShowMessage);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setStyle(new veyra::QtStyle);
  return RUN_ALL_TESTS();
}
