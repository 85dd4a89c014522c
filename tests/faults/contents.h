#pragma once

#include <string>

namespace veyra::faults {

/// Every row of every table of a calendar, a line each, as a program that opens it now finds them;
/// but for the table in which an Access file keeps whether it has a journal, which SQLite needs
/// not. Opening completes or drops what an earlier program left undone. Throws Error when the file
/// cannot be opened.
std::string Contents(const std::string& calendar);

/// What the kind of file's own check finds wrong with a calendar; empty when it is sound. Nobody
/// may have it open.
std::string Damage(const std::string& calendar);

}  // namespace veyra::faults
