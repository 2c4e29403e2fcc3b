#pragma once

#include "ui/start/instance_start.h"

namespace kestor {

/// Tells the user that the running window does not answer, and asks it again until it does, ends, or the user closes
/// the message. Needs a QApplication; returns when that is decided.
InstanceStart::Outcome waitForAnswer(InstanceStart &start);

} // namespace kestor
