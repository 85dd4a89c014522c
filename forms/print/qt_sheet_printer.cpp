#include "forms/print/qt_sheet_printer.h"

#include <cups/cups.h>
#include <langinfo.h>

#include <QBoxLayout>
#include <QCheckBox>
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

#include "forms/print/print_messages.h"
#include "forms/print/qt_sheet_pdf.h"
#include "forms/widgets/qt_text.h"
#include "logic/dialogs.h"

namespace veyra {
namespace {

/// More than a job takes on its way to the printer.
constexpr qsizetype kRoomForJob = 1 << 20;

constexpr qsizetype kLongestFileTitle = 60;

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

void SetUpPage(QPrinter& printer) {
  if (IsPdfFile(printer)) {
    printer.setPageSize(PaperOfCountry());
  }
  printer.setPageLayout(WithMargins(printer.pageLayout()));
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
QString FileTitleOf(const Sheet& sheet) {
  return ToQString(NameOf(sheet))
      .left(kLongestFileTitle)
      .replace(QLatin1Char('/'), QLatin1Char('-'));
}

/// Where the last PDF file went, at first among the operator's documents.
QString FolderFor(const QPrinter* last) {
  if (last != nullptr && !last->outputFileName().isEmpty()) {
    return QFileInfo(last->outputFileName()).absolutePath();
  }
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir(documents).exists() ? documents : QDir::homePath();
}

std::string WithoutFullStop(QString sentence) {
  if (sentence.endsWith(QLatin1Char('.'))) {
    sentence.chop(1);
  }
  return ToUtf8(sentence);
}

PrinterError JobFailure(const QPrinter& printer, const Phrase& reason, const Sheet& sheet) {
  return JobRefused(ToUtf8(printer.printerName()), reason, sheet);
}

/// The toolkit writes a job into the folder for temporary files, and does not notice when the disk
/// is full: half a page would be printed.
void NeedRoomForJob(const QPrinter& printer, const Sheet& sheet) {
  QTemporaryFile probe;
  const QByteArray filling(kRoomForJob, '\0');
  if (!probe.open() || probe.write(filling) != filling.size() || !probe.flush()) {
    throw JobFailure(printer, WithoutFullStop(probe.errorString()), sheet);
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

void PrintToQueue(QPrinter& printer, const Sheet& sheet, PrintedBackground background) {
  NeedRoomForJob(printer, sheet);
  printer.setDocName(ToQString(NameOf(sheet)));
  QPainter painter;
  if (!painter.begin(&printer)) {
    throw JobFailure(printer, Phrase::Tr("it cannot be started"), sheet);
  }
  const QSize size = printer.pageLayout().paintRectPixels(printer.resolution()).size();
  PaintSheet(painter, QRectF(QPointF(0, 0), size), sheet, background, [&] { printer.newPage(); });
  painter.end();
  if (const QString refusal = RefusalOfPrintService(); !refusal.isEmpty()) {
    throw JobFailure(printer, WithoutFullStop(refusal), sheet);
  }
}

PrintedBackground UsualBackground(const Sheet& sheet) {
  return HasDarkBackground(sheet) ? PrintedBackground::White : PrintedBackground::AsShown;
}

/// Puts the box over the dialog's buttons, where it is seen without asking for options.
QCheckBox* AddBackgroundBox(QPrintDialog& dialog) {
  auto* box = new QCheckBox(ToQString(Phrase::Tr("Print background")), &dialog);
  box->setObjectName(QLatin1String(QtSheetPrinter::kBackgroundBox));
  box->setToolTip(ToQString(Phrase::Tr("Without it the paper stays white, and no text is pale")));
  if (auto* column = qobject_cast<QBoxLayout*>(dialog.layout())) {
    column->insertWidget(column->count() - 1, box);
  }
  return box;
}

}  // namespace

QtSheetPrinter::QtSheetPrinter(std::function<QWidget*()> owner) : owner_(std::move(owner)) {}

QtSheetPrinter::~QtSheetPrinter() = default;

std::unique_ptr<QPrinter> QtSheetPrinter::NewPrinter(const Sheet& sheet) const {
  auto choice = std::make_unique<QPrinter>(QPrinter::HighResolution);
  if (current_.Printer) {
    CopySettings(*current_.Printer, *choice);
  } else {
    SetUpPage(*choice);
  }
  if (!current_.Printer || sheet.IsUpright != current_.ForUpright) {
    choice->setPageOrientation(sheet.IsUpright ? QPageLayout::Portrait : QPageLayout::Landscape);
  }
  choice->setDocName(FileTitleOf(sheet));
  if (IsPdfFile(*choice)) {
    const QDir folder(FolderFor(current_.Printer.get()));
    choice->setOutputFileName(folder.filePath(FileTitleOf(sheet) + QLatin1String(".pdf")));
  }
  choice->setCreator(QLatin1String(kApplicationTitle));
  return choice;
}

std::string QtSheetPrinter::AskForPrinter(const Sheet& sheet) {
  auto choice = NewPrinter(sheet);
  const PrintedBackground usual = UsualBackground(sheet);
  QPrintDialog dialog(choice.get(), owner_());
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                    QAbstractPrintDialog::PrintCollateCopies);
  QCheckBox* box = AddBackgroundBox(dialog);
  box->setChecked(background_.value_or(usual) == PrintedBackground::AsShown);
  if (dialog.exec() != QDialog::Accepted) {
    throw PrinterDialogError(PrinterDialogError::kCancelled);
  }
  const auto wanted = box->isChecked() ? PrintedBackground::AsShown : PrintedBackground::White;
  background_ = wanted == usual ? std::nullopt : std::optional(wanted);
  chosen_ = {std::move(choice), sheet.IsUpright};
  return IsPdfFile(*chosen_.Printer) ? kPdfFile : ToUtf8(chosen_.Printer->printerName());
}

std::vector<std::string> QtSheetPrinter::PrinterNames() {
  const QStringList queues = QPrinterInfo::availablePrinterNames();
  std::vector<std::string> names{kPdfFile};
  std::transform(queues.begin(), queues.end(), std::back_inserter(names), ToUtf8);
  return names;
}

void QtSheetPrinter::UsePrinter(const std::string& device_name) {
  current_ = std::move(chosen_);
  if (!IsPdfFile(*current_.Printer)) {
    current_.Printer->setPrinterName(ToQString(device_name));
  }
}

void QtSheetPrinter::Print(const Sheet& sheet) {
  const PrintedBackground background = background_.value_or(UsualBackground(sheet));
  if (IsPdfFile(*current_.Printer)) {
    WriteSheetPdf(current_.Printer->outputFileName(), current_.Printer->pageLayout(), sheet,
                  background);
  } else {
    PrintToQueue(*current_.Printer, sheet, background);
  }
}

}  // namespace veyra
