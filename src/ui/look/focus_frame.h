#pragma once

class QWidget;

namespace kestor {

/// Paints the frame of a pane that has the focus along the edge of `surface`: the pane itself or its viewport. To be
/// called while `surface` is being painted.
void paintFocusFrame(QWidget &surface);

} // namespace kestor
