#pragma once

class QWidget;

namespace veyra {

/// The window that a box is to stand over: the one in use. For the moment in which none is, because
/// a box has just gone, that of the program's windows that takes input; the help, which stands
/// beside them, is none of these. Null when there is no such window.
QWidget* WindowInUse();

}  // namespace veyra
