#pragma once

#include <cstddef>

#include "forms/about/about_view.h"
#include "forms/browser.h"
#include "forms/windows.h"
#include "logic/dialogs.h"

namespace veyra {

/// What the about box does; what it shows stands in maker.h.
class frmAbout {
 public:
  /// All of them must outlive the window.
  frmAbout(AboutView& view, Windows& windows, Browser& browser, Dialogs& dialogs);

  void Command1_Click();  ///< "Exit"

  /// Only the link label does anything: it opens the maker's site, and says so when no browser can.
  void labAbout_Click(std::size_t index);

  void HelpKey();  ///< F1

  /// The window goes: the month window takes input again.
  void Form_Unload();

 private:
  AboutView& view_;
  Windows& windows_;
  Browser& browser_;
  Dialogs& dialogs_;
};

}  // namespace veyra
