#include "ui/tabs/tab_page.h"

#include "ui/look/line_splitter.h"

#include <QVBoxLayout>

namespace kestor {

namespace {

constexpr int smallestList = 280;
constexpr int smallestDetail = 400;

} // namespace

TabPage::TabPage(QWidget *parent) : QWidget(parent), parts(new LineSplitter(Qt::Horizontal, this)) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(parts);
    connect(parts, &QSplitter::splitterMoved, this, [this] {
        if (sharesListWidth())
            emit listWidthChosen(parts->sizes().first());
    });
}

void TabPage::setColumns(QWidget *column, QWidget *detail) {
    parts->addWidget(column);
    parts->addWidget(detail);
    parts->setStretchFactor(1, 1);
    column->setMinimumWidth(smallestList);
    detail->setMinimumWidth(smallestDetail);
    TabPage::setListWidth(standardListWidth);
}

void TabPage::setListWidth(int width) {
    parts->setSizes({width, smallestDetail});
}

} // namespace kestor
