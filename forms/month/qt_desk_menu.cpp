#include "forms/month/qt_desk_menu.h"

#include <QAction>

#include "data/shown_name.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr int kWidestName = 320;

/// An ampersand in a caption would underline the letter that follows it.
QString Caption(const std::string& name, const QFontMetrics& metrics) {
  return metrics.elidedText(OneLine(ShownName(name)), Qt::ElideRight, kWidestName)
      .replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace

QtDeskMenu::QtDeskMenu(const HandlerGuard& guard, QWidget& window)
    : QMenu(&window), guard_(guard), window_(window) {
  setObjectName(QStringLiteral("mnuDesk"));
  setAccessibleName(ToQString(Phrase::Tr("Calendar")));
  AddEntry(*this, "mnuToday", Phrase::Tr("Today"),
           {QKeySequence(Qt::CTRL | Qt::Key_T), QKeySequence(Qt::Key_Home)},
           &DeskActions::ShowToday);
  AddEntry(*this, "mnuGoToDate", Phrase::Tr("Go to Date..."), {QKeySequence(Qt::CTRL | Qt::Key_G)},
           &DeskActions::GoToDate);
  AddEntry(*this, "mnuFind", Phrase::Tr("Find..."), {QKeySequence(Qt::CTRL | Qt::Key_F)},
           &DeskActions::Find);
  AddEntry(*this, "mnuFreeTime", Phrase::Tr("Free Time..."),
           {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)}, &DeskActions::FindFreeTime);
  AddEntry(*this, "mnuDayBoard", Phrase::Tr("Day Board"), {QKeySequence(Qt::CTRL | Qt::Key_B)},
           &DeskActions::ShowDayBoard);
  AddEntry(*this, "mnuUndo", Phrase::Tr("Undo..."), {QKeySequence(Qt::CTRL | Qt::Key_Z)},
           &DeskActions::Undo);
  AddEntry(*this, "mnuPrintMonth", Phrase::Tr("Print Month..."),
           {QKeySequence(Qt::CTRL | Qt::Key_P)}, &DeskActions::PrintMonth);
  AddEntry(*this, "mnuPrintWeek", Phrase::Tr("Print Week..."),
           {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P)}, &DeskActions::PrintWeek);
  facilities_ = addMenu(ToQString(Phrase::Tr("Facility")));
  facilities_->setObjectName(QStringLiteral("mnuFacility"));
  for (std::size_t place = 0; place < facility_.size(); ++place) {
    const auto number = static_cast<int>(place) + 1;
    const std::string name = "mnuFacility(" + std::to_string(number) + ")";
    facility_.at(place) =
        AddEntry(*facilities_, name.c_str(), "", {QKeySequence(Qt::CTRL | (Qt::Key_0 + number))},
                 [place](DeskActions& desk) { desk.PickFacility(place + 1); });
  }
  ShowFacilities({});
}

/// The first of the keys is the one that the menu names.
QAction* QtDeskMenu::AddEntry(QMenu& menu, const char* name, const Phrase& caption,
                              const QList<QKeySequence>& keys, const Work& work) {
  auto* entry = new QAction(ToQString(caption), &window_);
  entry->setObjectName(QLatin1String(name));
  entry->setMenuRole(QAction::NoRole);
  entry->setShortcuts(keys);
  entry->setAutoRepeat(false);
  entry->setShortcutVisibleInContextMenu(true);
  window_.addAction(entry);
  menu.addAction(entry);
  connect(entry, &QAction::triggered, this, [this, work] { guard_.Run([&] { work(*desk_); }); });
  return entry;
}

/// An entry that is not to be seen has no key either.
void QtDeskMenu::ShowFacilities(const std::vector<std::string>& names) {
  for (std::size_t place = 0; place < facility_.size(); ++place) {
    QAction& entry = *facility_.at(place);
    entry.setVisible(place < names.size());
    entry.setText(place < names.size() ? Caption(names[place], fontMetrics()) : QString());
  }
  facilities_->menuAction()->setVisible(!names.empty());
}

}  // namespace veyra
