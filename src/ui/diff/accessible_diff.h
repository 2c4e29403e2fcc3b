#pragma once

#include "ui/diff/diff_rows.h"

#include <QString>

namespace kestor {

class DiffView;

/// Lets assistive technology read a DiffView as text: the rows in view, each as "added, line 17, ...".
void installDiffAccessibility();

/// Tells assistive technology that the caret or the current hunk of a view is elsewhere now.
void announceCaret(DiffView &view);

/// A row as it is read out; a very long line is cut.
QString spokenRow(const DiffDocument &document, const DiffRows &rows, const DiffRow &row);

} // namespace kestor
