#pragma once

#include <QString>
#include <QWidget>

namespace kestor {

class DetailPane;
class RevisionHead;

/// The detail of a revision: its head, and below it the diff.
class RevisionDiff final : public QWidget {
    Q_OBJECT

public:
    explicit RevisionDiff(QWidget *parent = nullptr);

    RevisionHead &head() { return *revisionHead; }
    DetailPane &pane() { return *detailPane; }

    /// No head, and `explanation` in the middle.
    void showNothing(const QString &explanation);

private:
    RevisionHead *revisionHead;
    DetailPane *detailPane;
};

} // namespace kestor
