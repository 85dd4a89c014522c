#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "forms/print/sheet_printer.h"

namespace veyra {

/// Printers of paper and air. The operator confirms `Chosen` in the dialog, unless `DialogFailure`
/// is set.
class FakeSheetPrinter : public SheetPrinter {
 public:
  std::vector<std::string> Names{"Front Desk", "Back Office"};
  std::string Chosen = "Front Desk";
  std::function<void()> DialogFailure;    ///< Throws what the dialog is to throw.
  std::function<void()> WhilePrinting;    ///< What the screen shows then; may throw.
  std::optional<std::string> Current;     ///< The printer in use.
  std::vector<std::string> PagesPrinted;  ///< The printer of each sheet.
  std::vector<Sheet> Sheets;              ///< That were printed.

  std::string AskForPrinter(const Sheet&) override {
    if (DialogFailure) {
      DialogFailure();
    }
    return Chosen;
  }
  std::vector<std::string> PrinterNames() override { return Names; }
  void UsePrinter(const std::string& device_name) override { Current = device_name; }
  void Print(const Sheet& sheet) override {
    if (WhilePrinting) {
      WhilePrinting();
    }
    Sheets.push_back(sheet);
    PagesPrinted.push_back(Current.value_or("no printer"));
  }
};

}  // namespace veyra
