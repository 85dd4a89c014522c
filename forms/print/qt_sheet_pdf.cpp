#include "forms/print/qt_sheet_pdf.h"

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include "forms/print/print_messages.h"
#include "forms/widgets/qt_text.h"
#include "logic/dialogs.h"

namespace veyra {
namespace {

constexpr int kResolution = 1200;

PrinterError FileFailure(const QSaveFile& file, const Sheet& sheet) {
  return FileNotWritten(ToUtf8(file.fileName()), ToUtf8(file.errorString()), sheet);
}

}  // namespace

void WriteSheetPdf(const QString& file_name, const QPageLayout& layout, const Sheet& sheet,
                   PrintedBackground background) {
  QSaveFile file(file_name);
  if (!file.open(QIODevice::WriteOnly)) {
    throw FileFailure(file, sheet);
  }
  QPdfWriter writer(&file);
  writer.setResolution(kResolution);
  writer.setPageLayout(layout);
  writer.setTitle(ToQString(NameOf(sheet)));
  writer.setCreator(QLatin1String(kApplicationTitle));
  QPainter painter(&writer);
  const QSize size = layout.paintRectPixels(kResolution).size();
  PaintSheet(painter, QRectF(QPointF(0, 0), size), sheet, background, [&] { writer.newPage(); });
  painter.end();
  if (!file.commit()) {
    throw FileFailure(file, sheet);
  }
}

}  // namespace veyra
