#pragma once

#include <QString>

class QMenu;
class QWidget;

namespace kestor {

/// The menu of a row of the Changes list; `path` is relative to `projectDirectory`. It deletes itself when it closes.
QMenu *changeRowMenu(const QString &path, const QString &projectDirectory, QWidget *parent);

} // namespace kestor
