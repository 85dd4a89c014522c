#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "forms/month/print/month_printer.h"

namespace veyra {

/// Printers of paper and air. The operator confirms `Chosen` in the dialog, unless `DialogFailure`
/// is set.
class FakeMonthPrinter : public MonthPrinter {
 public:
  std::vector<std::string> Names{"Front Desk", "Back Office"};
  std::string Chosen = "Front Desk";
  std::function<void()> DialogFailure;    ///< Throws what the dialog is to throw.
  std::function<void()> WhilePrinting;    ///< What the screen shows then; may throw.
  std::optional<std::string> Current;     ///< The printer in use.
  std::vector<std::string> PagesPrinted;  ///< The printer of each page.

  std::string AskForPrinter() override {
    if (DialogFailure) {
      DialogFailure();
    }
    return Chosen;
  }
  std::vector<std::string> PrinterNames() override { return Names; }
  void UsePrinter(const std::string& device_name) override { Current = device_name; }
  void PrintMonth() override {
    if (WhilePrinting) {
      WhilePrinting();
    }
    PagesPrinted.push_back(Current.value_or("no printer"));
  }
};

}  // namespace veyra
