#pragma once

#include <memory>
#include <string>
#include <vector>

#include "forms/month/print/month_printer.h"

class QPrinter;

namespace veyra {

class QtMonthWindow;

/// The printers of the desktop, and the PDF file that its printer dialog offers beside them.
class QtMonthPrinter : public MonthPrinter {
 public:
  /// The name that the PDF file bears among the printers.
  static constexpr const char* kPdfFile = "Print to File (PDF)";

  /// Prints what `window` shows; it must outlive the printer.
  explicit QtMonthPrinter(QtMonthWindow& window);
  ~QtMonthPrinter() override;

  std::string AskForPrinter() override;
  std::vector<std::string> PrinterNames() override;
  void UsePrinter(const std::string& device_name) override;
  void PrintMonth() override;

 private:
  std::unique_ptr<QPrinter> NewChoice() const;

  QtMonthWindow& window_;
  std::unique_ptr<QPrinter> chosen_;   ///< As the dialog left it; none before the first choice.
  std::unique_ptr<QPrinter> current_;  ///< None before the first print.
};

}  // namespace veyra
