#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <filesystem>
#include <optional>

#include "help/chm_archive.h"

namespace veyra {

/// How long a program may take to read a help file. It takes some hundredths of a second.
inline constexpr std::chrono::milliseconds kReaderTimeout{5000};

/// Reads a help file by way of the program `reader` (veyra-help-reader). Throws FileError when the
/// file cannot be read whole or holds no page.
ChmArchive ReadHelpFile(const std::filesystem::path& file, const std::filesystem::path& reader);

/// Runs `program` with the one argument `argument` and returns all it wrote to its standard output.
/// Nothing when it cannot be started, does not end by itself with 0 within `timeout`, or writes
/// more than `most_bytes`; the process is gone in any case.
std::optional<QByteArray> OutputOf(const QString& program, const QString& argument,
                                   qsizetype most_bytes,
                                   std::chrono::milliseconds timeout = kReaderTimeout);

}  // namespace veyra
