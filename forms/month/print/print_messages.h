#pragma once

#include <exception>
#include <string>

#include "forms/month/print/month_printer.h"
#include "logic/dialogs.h"

namespace veyra {

/// What the operator is told of a failure before the printing itself, by its number.
Message PrintFailure(const std::exception& failure);

/// The chosen printer has gone.
PrinterError NoSuchPrinter(const std::string& device_name);

}  // namespace veyra
