#pragma once

#include <QMenu>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "forms/handler_guard.h"
#include "forms/month/desk_actions.h"

class QAction;

namespace veyra {

/// The keys of the month window beside its fixed controls, and the menu of its background, which
/// names them.
class QtDeskMenu : public QMenu {
  Q_OBJECT

 public:
  /// The keys work in `window`, which owns the menu. `guard` must outlive it.
  QtDeskMenu(const HandlerGuard& guard, QWidget& window);

  /// REQUIRES: called before the operator can reach the window. `desk` must outlive the menu.
  void SetHandler(DeskActions* desk) { desk_ = desk; }

  /// Names the facilities; only the first of them have keys.
  void ShowFacilities(const std::vector<std::string>& names);

 private:
  using Work = std::function<void(DeskActions& desk)>;

  QAction* AddEntry(QMenu& menu, const char* name, const Phrase& caption,
                    const QList<QKeySequence>& keys, const Work& work);

  const HandlerGuard& guard_;
  QWidget& window_;
  DeskActions* desk_ = nullptr;
  QMenu* facilities_;
  std::array<QAction*, DeskActions::kFacilityKeys> facility_{};
};

}  // namespace veyra
