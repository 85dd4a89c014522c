#include "forms/month/print/qt_month_pdf.h"

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include "forms/month/print/month_printer.h"
#include "forms/month/print/qt_month_page.h"
#include "forms/widgets/qt_text.h"
#include "logic/dialogs.h"

namespace veyra {
namespace {

constexpr int kResolution = 1200;

PrinterError FileFailure(const QSaveFile& file) {
  return PrinterError({ToUtf8(file.fileName()),
                       "The file cannot be written: " + ToUtf8(file.errorString()) + ".",
                       "See whether the disk is full and whether the folder may be written to. "
                       "Click on the month to get the buttons back, then print again."});
}

}  // namespace

void WriteMonthPdf(const QString& file_name, const QPageLayout& layout, const QtMonthPage& page) {
  QSaveFile file(file_name);
  if (!file.open(QIODevice::WriteOnly)) {
    throw FileFailure(file);
  }
  QPdfWriter writer(&file);
  writer.setResolution(kResolution);
  writer.setPageLayout(layout);
  writer.setTitle(TitleOf(page));
  writer.setCreator(QLatin1String(kApplicationTitle));
  QPainter painter(&writer);
  const QSize size = layout.paintRectPixels(kResolution).size();
  PaintMonthPage(painter, QRectF(QPointF(0, 0), size), page);
  painter.end();
  if (!file.commit()) {
    throw FileFailure(file);
  }
}

}  // namespace veyra
