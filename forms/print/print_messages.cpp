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
  return PrinterError({"", Phrase::Tr("The printer \"%1\" is no longer there.", device_name),
                       Phrase::Tr("%1 on another printer, or into a PDF file.", sheet.Again)});
}

PrinterError JobRefused(const std::string& device_name, const Phrase& reason, const Sheet& sheet) {
  return PrinterError(
      {"", Phrase::Tr("The printer \"%1\" has not taken the page: %2.", device_name, reason),
       Phrase::Tr("%1, perhaps on another printer.", sheet.Again)});
}

PrinterError FileNotWritten(const std::string& file_name, const std::string& reason,
                            const Sheet& sheet) {
  return PrinterError(
      {file_name, Phrase::Tr("The file cannot be written: %1.", reason),
       Phrase::Tr("See whether the disk is full and whether the folder may be written to. %1.",
                  sheet.Again)});
}

}  // namespace veyra
