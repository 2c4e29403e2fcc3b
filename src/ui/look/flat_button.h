#pragma once

#include <QString>

#include <cstdint>

class QToolButton;
class QWidget;

namespace kestor {

enum class Icon : std::uint8_t;

/// Whether a button that opens a menu says so by a chevron.
enum class MenuArrow : std::uint8_t { shown, none };

/// A button without an edge: an icon, to which a text can be added. `name` is its tooltip and accessible
/// name.
QToolButton *flatButton(Icon icon, const QString &name, QWidget *parent, MenuArrow arrow = MenuArrow::shown);

} // namespace kestor
