#include "forms/widgets/qt_pointer_hint.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

#include "forms/widgets/qt_notice.h"

namespace veyra {
namespace {

constexpr int kPadding = 3;

/// So far beside and below the place, so that the pointer covers none of it.
constexpr QPoint kOffset(16, 18);

}  // namespace

QtPointerHint::QtPointerHint(QWidget& owner)
    : QLabel(&owner, Qt::ToolTip | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus) {
  setObjectName(QStringLiteral("pointerHint"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  DressAsNotice(*this, kPadding);
}

void QtPointerHint::ShowBeside(const QPoint& place, const QString& text) {
  setText(text);
  if (text.isEmpty()) {
    hide();
    return;
  }
  adjustSize();
  const QScreen* there = QGuiApplication::screenAt(place);
  const QRect room = (there != nullptr ? there : screen())->availableGeometry();
  const QPoint wanted = place + kOffset;
  move(std::max(room.left(), std::min(wanted.x(), room.right() + 1 - width())),
       std::max(room.top(), std::min(wanted.y(), room.bottom() + 1 - height())));
  show();
  raise();
}

}  // namespace veyra
