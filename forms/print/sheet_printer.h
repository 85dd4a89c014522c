#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/errors.h"
#include "forms/print/sheet.h"

namespace veyra {

/// The printer dialog has ended without a choice. `Number` says why.
class PrinterDialogError : public std::runtime_error {
 public:
  /// The number of the operator's own cancelling.
  static constexpr int kCancelled = 32755;

  explicit PrinterDialogError(int number)
      : std::runtime_error("printer dialog: " + std::to_string(number)), Number(number) {}

  const int Number;
};

/// A page cannot be printed.
class PrinterError : public Error {
 public:
  using Error::Error;
};

/// The printers of this computer, as the windows reach them.
class SheetPrinter {
 public:
  virtual ~SheetPrinter() = default;

  /// Shows the printer dialog over the window in use, filled in with the settings of the current
  /// printer, and returns the device name that the operator has chosen for this sheet. The current
  /// printer stays as it is. Throws PrinterDialogError, with kCancelled when the operator has
  /// cancelled.
  virtual std::string AskForPrinter(const Sheet& sheet) = 0;

  /// The device names of the printers that there are now.
  virtual std::vector<std::string> PrinterNames() = 0;

  /// Makes this printer the current one, with the settings chosen in the dialog.
  /// REQUIRES: one of PrinterNames(), and AskForPrinter has returned.
  virtual void UsePrinter(const std::string& device_name) = 0;

  /// Prints the sheet, as one job, on the current printer. Throws PrinterError when the job has not
  /// been taken.
  virtual void Print(const Sheet& sheet) = 0;
};

/// The name among `names` that equals `device_name`, whatever the case of the letters; where names
/// differ in nothing else, the one spelled exactly so, or the first. Nothing when there is none.
std::optional<std::string> PrinterNamed(const std::vector<std::string>& names,
                                        const std::string& device_name);

}  // namespace veyra
