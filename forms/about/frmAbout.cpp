#include "forms/about/frmAbout.h"

#include <string>

#include "forms/about/maker.h"
#include "logic/help_viewer.h"

namespace veyra {

frmAbout::frmAbout(AboutView& view, Windows& windows, Browser& browser, Dialogs& dialogs)
    : view_(view), windows_(windows), browser_(browser), dialogs_(dialogs) {}

void frmAbout::Command1_Click() {
  view_.CloseWindow();
}

void frmAbout::labAbout_Click(std::size_t index) {
  const std::string address = kAboutLabels.at(kLinkLabel);
  if (index != kLinkLabel || address.empty()) {
    return;
  }
  if (!browser_.Open(address)) {
    dialogs_.MsgBox(
        {.Text = Phrase::Tr("There is no web browser on this machine that can open %1", address),
         .Sign = Icon::Exclamation});
  }
}

void frmAbout::HelpKey() {
  windows_.ShowHelp(kHelpFile);
}

void frmAbout::Form_Unload() {
  windows_.EnableMonthWindow(true);
}

}  // namespace veyra
