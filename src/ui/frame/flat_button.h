#pragma once

#include <QString>

#include <cstdint>

class QToolButton;
class QWidget;

namespace kestor {

enum class Icon : std::uint8_t;

/// A button without an edge, 28 px high: an icon, to which a text can be added. `name` is its tooltip and accessible
/// name.
QToolButton *flatButton(Icon icon, const QString &name, QWidget *parent);

} // namespace kestor
