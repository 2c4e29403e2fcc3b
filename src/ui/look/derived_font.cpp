#include "ui/look/derived_font.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace kestor {

namespace {

/// Watches the parent: a widget with a font of its own is told of no other one.
class DerivedFont final : public QObject {
public:
    DerivedFont(QWidget &target, QFont (*rule)(const QFont &)) : QObject(&target), widget(target), derive(rule) {
        widget.installEventFilter(this);
        followParent();
    }

    bool eventFilter(QObject *watched, QEvent *event) override {
        if (watched == &widget && event->type() == QEvent::ParentChange)
            followParent();
        if (watched == parent && event->type() == QEvent::FontChange)
            apply();
        return QObject::eventFilter(watched, event);
    }

private:
    void followParent() {
        if (parent)
            parent->removeEventFilter(this);
        parent = widget.parentWidget();
        if (parent)
            parent->installEventFilter(this);
        apply();
    }
    void apply() { widget.setFont(derive(parent ? parent->font() : QApplication::font())); }

    QWidget &widget;
    QFont (*derive)(const QFont &);
    QPointer<QWidget> parent{};
};

} // namespace

void setDerivedFont(QWidget &widget, QFont (*derive)(const QFont &)) {
    new DerivedFont(widget, derive);
}

} // namespace kestor
