#pragma once

#include <QIcon>

namespace veyra {

/// The program's icon in every usual size: a sheet of a wall calendar on which an afternoon is
/// booked. Drawn here, so that it needs no file and no image plugin beside the program.
/// REQUIRES: a QApplication.
QIcon ProgramIcon();

}  // namespace veyra
