#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace kestor {

class AppState;

/// Adds the folders that the desktop hands to the program, as if they were dropped on the window, but never refuses
/// one: it waits until no command runs and no dialog is open. What is no folder is told in one alert.
class ArrivingFolders final : public QObject {
    Q_OBJECT

public:
    /// `state` must outlive it. From now on it takes the folders of file open events, too.
    explicit ArrivingFolders(AppState &state);

    /// `paths` are absolute.
    void add(const QStringList &paths);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addWhenFree();

    AppState &state;
    QStringList waiting{};
    QTimer retry{};
};

} // namespace kestor
