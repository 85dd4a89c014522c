#pragma once

#include <exception>
#include <string>

#include "forms/print/sheet.h"
#include "forms/print/sheet_printer.h"
#include "logic/dialogs.h"

namespace veyra {

/// What the operator is told of a failure before the printing itself, by its number.
Message PrintFailure(const std::exception& failure);

/// The chosen printer has gone.
PrinterError NoSuchPrinter(const std::string& device_name, const Sheet& sheet);

/// The printer has not taken the sheet, for a reason without a full stop.
PrinterError JobRefused(const std::string& device_name, const Phrase& reason, const Sheet& sheet);

/// The PDF file cannot be written.
PrinterError FileNotWritten(const std::string& file_name, const std::string& reason,
                            const Sheet& sheet);

}  // namespace veyra
