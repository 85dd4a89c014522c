#include "forms/widgets/qt_browser.h"

#include <QDesktopServices>
#include <QUrl>

#include "forms/widgets/qt_text.h"

namespace veyra {

bool QtBrowser::Open(const std::string& address) {
  return QDesktopServices::openUrl(QUrl(ToQString(address)));
}

}  // namespace veyra
