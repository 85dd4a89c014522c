#include "help/qt_help_file.h"

#include <QDeadlineTimer>
#include <QProcess>
#include <utility>

#include "data/errors.h"

namespace veyra {
namespace {

// Each object comes with two counts of four bytes and its name.
constexpr qsizetype kMostStreamBytes = kMostArchiveBytes + (16U << 20U);

FileError Unreadable(const std::filesystem::path& file) {
  return FileError({file.string(), Phrase::Tr("The help file cannot be read."),
                    Phrase::Tr("Install Veyra Calendar again to get a good one.")});
}

QString NameOf(const std::filesystem::path& file) {
  return QString::fromStdString(file.string());
}

}  // namespace

ChmArchive ReadHelpFile(const std::filesystem::path& file, const std::filesystem::path& reader) {
  const auto stream = OutputOf(NameOf(reader), NameOf(file), kMostStreamBytes);
  auto objects =
      stream ? ObjectsOfStream({stream->constData(), std::size_t(stream->size())}) : std::nullopt;
  if (!objects) {
    throw Unreadable(file);
  }
  ChmArchive archive(std::move(*objects));
  if (archive.Pages().empty()) {
    throw Unreadable(file);
  }
  return archive;
}

std::optional<QByteArray> OutputOf(const QString& program, const QString& argument,
                                   qsizetype most_bytes, std::chrono::milliseconds timeout) {
  const QDeadlineTimer deadline(timeout);
  const auto time_left = [&] { return static_cast<int>(deadline.remainingTime()); };
  // Kills the process, if it still runs, when it goes.
  QProcess process;
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(program, {argument}, QIODevice::ReadOnly);
  QByteArray output;
  while (output.size() <= most_bytes && process.waitForReadyRead(time_left())) {
    output += process.readAllStandardOutput();
  }
  if (output.size() > most_bytes) {
    process.closeReadChannel(QProcess::StandardOutput);
    return std::nullopt;
  }
  const bool ended =
      process.state() == QProcess::NotRunning || process.waitForFinished(time_left());
  if (!ended || process.error() == QProcess::FailedToStart ||
      process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
    return std::nullopt;
  }
  output += process.readAllStandardOutput();
  return output;
}

}  // namespace veyra
