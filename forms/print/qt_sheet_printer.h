#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/print/qt_sheet_page.h"
#include "forms/print/sheet_printer.h"

class QPrinter;
class QWidget;

namespace veyra {

/// The printers of the desktop, and the PDF file that its printer dialog offers beside them.
class QtSheetPrinter : public SheetPrinter {
 public:
  /// The name that the PDF file bears among the printers.
  static constexpr const char* kPdfFile = "Print to File (PDF)";

  /// Its dialog adds a box to what the desktop's asks for: "Print background".
  static constexpr const char* kBackgroundBox = "printBackground";

  /// `owner` tells the window that the dialog is shown over.
  explicit QtSheetPrinter(std::function<QWidget*()> owner);
  ~QtSheetPrinter() override;

  std::string AskForPrinter(const Sheet& sheet) override;
  std::vector<std::string> PrinterNames() override;
  void UsePrinter(const std::string& device_name) override;
  void Print(const Sheet& sheet) override;

 private:
  /// A printer as the dialog left it.
  struct Choice {
    std::unique_ptr<QPrinter> Printer;
    bool ForUpright = false;  ///< Whether upright paper suits the sheet it was chosen for.
  };

  std::unique_ptr<QPrinter> NewPrinter(const Sheet& sheet) const;

  std::function<QWidget*()> owner_;
  Choice chosen_;                                ///< No printer before the first choice.
  Choice current_;                               ///< No printer before the first print.
  std::optional<PrintedBackground> background_;  ///< Where the operator wants another than usual.
};

}  // namespace veyra
