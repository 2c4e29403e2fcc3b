#pragma once

#include <QSplitter>

namespace kestor {

/// A splitter whose handles are lines of one pixel with a grip of five. No part collapses.
class LineSplitter final : public QSplitter {
public:
    explicit LineSplitter(Qt::Orientation orientation, QWidget *parent = nullptr);

protected:
    QSplitterHandle *createHandle() override;
};

} // namespace kestor
