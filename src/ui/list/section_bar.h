#pragma once

#include "ui/look/bar.h"

#include <QString>

namespace kestor {

class ToneLabel;

/// The bar above a part of a column: a bold title and what it is about.
class SectionBar final : public Bar {
    Q_OBJECT

public:
    /// More for large fonts.
    static constexpr int standardHeight = 32;

    explicit SectionBar(QWidget *parent = nullptr);

    void setTexts(const QString &title, const QString &subject);

private:
    ToneLabel *titleLabel;
    ToneLabel *subjectLabel;
};

} // namespace kestor
