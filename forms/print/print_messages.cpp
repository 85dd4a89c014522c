#include "forms/print/print_messages.h"

#include <new>

namespace veyra {
namespace {

/// Error numbers of the classic runtime.
constexpr int kOutOfMemory = 7;
constexpr int kInternalError = 51;

int ErrorNumber(const std::exception& failure) {
  if (const auto* dialog = dynamic_cast<const PrinterDialogError*>(&failure)) {
    return dialog->Number;
  }
  return dynamic_cast<const std::bad_alloc*>(&failure) != nullptr ? kOutOfMemory : kInternalError;
}

}  // namespace

Message PrintFailure(const std::exception& failure) {
  const int number = ErrorNumber(failure);
  if (number == PrinterDialogError::kCancelled) {
    return {.Text = "Calendar Printing Canceled", .Sign = Icon::Exclamation};
  }
  return {.Text = "A nonCancel Error Occured - " + std::to_string(number),
          .Sign = Icon::Exclamation};
}

PrinterError NoSuchPrinter(const std::string& device_name, const Sheet& sheet) {
  return PrinterError({"", "The printer \"" + device_name + "\" is no longer there.",
                       sheet.Again + " on another printer, or into a PDF file."});
}

PrinterError JobRefused(const std::string& device_name, const std::string& reason,
                        const Sheet& sheet) {
  return PrinterError({"",
                       "The printer \"" + device_name + "\" has not taken the page: " + reason +
                           (reason.ends_with('.') ? "" : "."),
                       sheet.Again + ", perhaps on another printer."});
}

PrinterError FileNotWritten(const std::string& file_name, const std::string& reason,
                            const Sheet& sheet) {
  return PrinterError({file_name, "The file cannot be written: " + reason + ".",
                       "See whether the disk is full and whether the folder may be written to. " +
                           sheet.Again + "."});
}

}  // namespace veyra
