#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

namespace veyra {

/// How long a program may take to read a help file. It takes some hundredths of a second.
inline constexpr std::chrono::milliseconds kReaderTimeout{5000};

/// Runs `program` with the one argument `argument` and returns all it wrote to its standard output.
/// Nothing when it cannot be started, does not end by itself with 0 within `timeout`, or writes
/// more than `most_bytes`; the process is gone in any case.
std::optional<std::string> OutputOf(const std::filesystem::path& program,
                                    const std::string& argument, std::size_t most_bytes,
                                    std::chrono::milliseconds timeout = kReaderTimeout);

}  // namespace veyra
