#pragma once

#include <QFont>

class QWidget;

namespace kestor {

/// Gives the widget what `derive` makes of the font around it, and again whenever that changes. To be called once.
void setDerivedFont(QWidget &widget, QFont (*derive)(const QFont &));

} // namespace kestor
