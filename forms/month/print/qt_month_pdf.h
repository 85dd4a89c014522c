#pragma once

#include <QString>

class QPageLayout;

namespace veyra {

struct QtMonthPage;

/// Writes the page as a PDF file of one page. A file of that name is replaced when the new one is
/// written to its end, and stays as it is when that fails. Throws PrinterError.
void WriteMonthPdf(const QString& file_name, const QPageLayout& layout, const QtMonthPage& page);

}  // namespace veyra
