#include "forms/month/print/qt_month_printer.h"

#include <cups/cups.h>
#include <langinfo.h>

#include <QDir>
#include <QFileInfo>
#include <QPageSize>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <algorithm>
#include <iterator>
#include <utility>

#include "forms/month/print/qt_month_page.h"
#include "forms/month/print/qt_month_pdf.h"
#include "forms/month/qt_month_window.h"
#include "forms/widgets/qt_text.h"
#include "logic/dialogs.h"

namespace veyra {
namespace {

/// More than a job takes on its way to the printer.
constexpr qsizetype kRoomForJob = 1 << 20;

constexpr qsizetype kLongestFileTitle = 60;

constexpr const char* kHowToGoOn =
    "Click on the month to get the buttons back, then print again, perhaps on another printer.";

/// The paper of the country the program runs in: Letter is 279 mm high.
QPageSize PaperOfCountry() {
  constexpr int kHeightOfLetter = 279;
  // The C library hands this number out in place of the address of a text.
  const auto height = static_cast<int>(
      reinterpret_cast<std::intptr_t>(nl_langinfo(static_cast<nl_item>(_NL_PAPER_HEIGHT))));
  return QPageSize(height == kHeightOfLetter ? QPageSize::Letter : QPageSize::A4);
}

bool IsPdfFile(const QPrinter& printer) {
  return printer.outputFormat() == QPrinter::PdfFormat;
}

void SetUpPage(QPrinter& printer, const QtMonthPage& page) {
  if (IsPdfFile(printer)) {
    printer.setPageSize(PaperOfCountry());
  }
  printer.setPageLayout(LayoutFor(page, printer.pageLayout()));
}

void CopySettings(const QPrinter& from, QPrinter& to) {
  to.setOutputFormat(from.outputFormat());
  if (!IsPdfFile(from)) {
    to.setPrinterName(from.printerName());
  }
  to.setPageLayout(from.pageLayout());
  to.setCopyCount(from.copyCount());
  to.setCollateCopies(from.collateCopies());
  to.setDuplex(from.duplex());
  to.setColorMode(from.colorMode());
}

/// What the page is called, so that a file may be called so; the dialog does that.
QString FileTitleOf(const QtMonthPage& page) {
  return TitleOf(page).left(kLongestFileTitle).replace(QLatin1Char('/'), QLatin1Char('-'));
}

/// Where the last PDF file went, at first among the operator's documents.
QString FolderFor(const QPrinter* last) {
  if (last != nullptr && !last->outputFileName().isEmpty()) {
    return QFileInfo(last->outputFileName()).absolutePath();
  }
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir(documents).exists() ? documents : QDir::homePath();
}

PrinterError JobFailure(const QString& printer, const QString& reason) {
  const QString words = reason.endsWith(QLatin1Char('.')) ? reason.chopped(1) : reason;
  return PrinterError(
      {"", "The printer \"" + ToUtf8(printer) + "\" has not taken the page: " + ToUtf8(words) + ".",
       kHowToGoOn});
}

/// The toolkit writes a job into the folder for temporary files, and does not notice when the disk
/// is full: half a page would be printed.
void NeedRoomForJob(const QPrinter& printer) {
  QTemporaryFile probe;
  const QByteArray filling(kRoomForJob, '\0');
  if (!probe.open() || probe.write(filling) != filling.size() || !probe.flush()) {
    throw JobFailure(printer.printerName(), probe.errorString());
  }
}

/// What the print service said to the last request of this thread when it has refused it; empty
/// when it has not. The toolkit sends the job by way of this library, and tells nobody its answer.
QString RefusalOfPrintService() {
  constexpr int kFirstError = 0x0400;  // RFC 8011, 4.1.6: below it, status codes are successes.
  if (cupsLastError() < kFirstError) {
    return {};
  }
  return QString::fromUtf8(cupsLastErrorString());
}

void PrintToQueue(QPrinter& printer, const QtMonthPage& page) {
  NeedRoomForJob(printer);
  printer.setDocName(TitleOf(page));
  QPainter painter;
  if (!painter.begin(&printer)) {
    throw JobFailure(printer.printerName(), QStringLiteral("it cannot be started"));
  }
  const QSize size = printer.pageLayout().paintRectPixels(printer.resolution()).size();
  PaintMonthPage(painter, QRectF(QPointF(0, 0), size), page);
  painter.end();
  if (const QString refusal = RefusalOfPrintService(); !refusal.isEmpty()) {
    throw JobFailure(printer.printerName(), refusal);
  }
}

}  // namespace

QtMonthPrinter::QtMonthPrinter(QtMonthWindow& window) : window_(window) {}

QtMonthPrinter::~QtMonthPrinter() = default;

std::unique_ptr<QPrinter> QtMonthPrinter::NewChoice() const {
  auto choice = std::make_unique<QPrinter>(QPrinter::HighResolution);
  const QtMonthPage page = window_.InSight();
  if (current_) {
    CopySettings(*current_, *choice);
  } else {
    SetUpPage(*choice, page);
  }
  choice->setDocName(FileTitleOf(page));
  if (IsPdfFile(*choice)) {
    const QDir folder(FolderFor(current_.get()));
    choice->setOutputFileName(folder.filePath(FileTitleOf(page) + QLatin1String(".pdf")));
  }
  choice->setCreator(QLatin1String(kApplicationTitle));
  return choice;
}

std::string QtMonthPrinter::AskForPrinter() {
  auto choice = NewChoice();
  QPrintDialog dialog(choice.get(), &window_);
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                    QAbstractPrintDialog::PrintCollateCopies);
  if (dialog.exec() != QDialog::Accepted) {
    throw PrinterDialogError(PrinterDialogError::kCancelled);
  }
  chosen_ = std::move(choice);
  return IsPdfFile(*chosen_) ? kPdfFile : ToUtf8(chosen_->printerName());
}

std::vector<std::string> QtMonthPrinter::PrinterNames() {
  const QStringList queues = QPrinterInfo::availablePrinterNames();
  std::vector<std::string> names{kPdfFile};
  std::transform(queues.begin(), queues.end(), std::back_inserter(names), ToUtf8);
  return names;
}

void QtMonthPrinter::UsePrinter(const std::string& device_name) {
  current_ = std::move(chosen_);
  if (!IsPdfFile(*current_)) {
    current_->setPrinterName(ToQString(device_name));
  }
}

void QtMonthPrinter::PrintMonth() {
  const QtMonthPage page = window_.InSight();
  if (IsPdfFile(*current_)) {
    WriteMonthPdf(current_->outputFileName(), current_->pageLayout(), page);
  } else {
    PrintToQueue(*current_, page);
  }
}

}  // namespace veyra
