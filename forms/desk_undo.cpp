#include "forms/desk_undo.h"

#include "logic/desk_undo.h"

namespace veyra {

void DeskUndo::Undo() {
  if (const auto undone = modRes::UndoLastAction(session_, dialogs_)) {
    windows_.ShowWhatIsStored();
    foot_.ShowFootLine(Phrase::Tr("Undone. %1", *undone));
  }
}

void DeskUndo::TellOfChange() {
  if (!session_.ResCon) {
    return;
  }
  if (told_of_ != session_.ResCon.get()) {
    told_of_ = session_.ResCon.get();
    told_ = 0;
  }
  const auto& actions = session_.ResCon->Notes().Actions();
  if (actions.empty() || actions.back().Number <= told_) {
    return;
  }
  told_ = actions.back().Number;
  const Phrase line = modRes::ActionLine(session_, modRes::AsJournalAction(actions.back()));
  if (!line.IsEmpty()) {
    foot_.ShowFootLine(line + "   " + Phrase::Tr("Undo (Ctrl+Z)"));
  }
}

}  // namespace veyra
