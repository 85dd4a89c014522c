#pragma once

#include <QString>

#include "forms/print/qt_sheet_page.h"

class QPageLayout;

namespace veyra {

/// Writes the sheet as a PDF file. A file of that name is replaced when the new one is written to
/// its end, and stays as it is when that fails. Throws PrinterError.
void WriteSheetPdf(const QString& file_name, const QPageLayout& layout, const Sheet& sheet,
                   PrintedBackground background);

}  // namespace veyra
