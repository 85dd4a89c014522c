#include "forms/widgets/qt_escape_key.h"

#include <QApplication>
#include <QShortcut>
#include <QWidget>
#include <QWindow>

namespace veyra {
namespace {

/// Knows whether a list was open when the key was pressed. The list may close between the two
/// things that a press is, the question who wants the key and the shortcut, so the question counts.
class ListWatch : public QObject {
 public:
  explicit ListWatch(QWidget& window) : QObject(&window) { window.installEventFilter(this); }

  bool WasOpen() const { return was_open_; }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* window = qobject_cast<QWidget*>(watched);
    if (window != nullptr && event->type() == QEvent::Show) {
      window->windowHandle()->installEventFilter(this);
    } else if (window == nullptr && event->type() == QEvent::ShortcutOverride) {
      was_open_ = QApplication::activePopupWidget() != nullptr;
    }
    return false;
  }

 private:
  bool was_open_ = false;
};

}  // namespace

void AddEscapeKey(QWidget& window, const std::function<void()>& pressed) {
  const auto* lists = new ListWatch(window);
  auto* key = new QShortcut(QKeySequence(Qt::Key_Escape), &window);
  key->setAutoRepeat(false);
  QObject::connect(key, &QShortcut::activated, &window, [lists, pressed] {
    if (QWidget* list = QApplication::activePopupWidget()) {
      list->close();
    } else if (!lists->WasOpen()) {
      pressed();
    }
  });
}

}  // namespace veyra
