#pragma once

#include <QLabel>

namespace veyra {

/// Makes a label a notice over a window: plain text, framed, in the colours of tooltips, not shown
/// yet. `padding`: around the text, in pixels.
void DressAsNotice(QLabel& label, int padding);

/// Has assistive programs say what the label tells.
void Announce(QLabel& label);

}  // namespace veyra
