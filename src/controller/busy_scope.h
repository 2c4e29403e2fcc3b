#pragma once

#include "controller/busy_kind.h"

#include <QList>
#include <QProperty>
#include <QString>
#include <QStringView>
#include <QtGlobal>

#include <algorithm>
#include <optional>

namespace kestor {

/// The busy message, the kind that is held to, and the work behind them.
struct BusyState {
    struct Work {
        quint64 number = 0;
        QString message{};
        BusyKind kind = BusyKind::command;
    };

    QProperty<std::optional<QString>> &message;
    QProperty<BusyKind> &kind;
    quint64 lastNumber = 0;
    QList<Work> running = {}; ///< the latest last: its message shows

    template <typename Predicate>
    void end(Predicate isEnded) {
        running.removeIf(isEnded);
        show();
    }
    bool isLoading(QStringView wanted) const {
        return std::any_of(running.cbegin(), running.cend(), [wanted](const Work &work) {
            return work.kind == BusyKind::load && work.message == wanted;
        });
    }
    void endLoads() {
        end([](const Work &work) { return work.kind == BusyKind::load; });
    }
    /// The kind is true whenever a message shows.
    void show() {
        const auto strictest = std::max_element(
            running.begin(), running.end(), [](const Work &one, const Work &other) { return one.kind < other.kind; });
        if (strictest != running.end())
            kind = strictest->kind;
        message = running.isEmpty() ? std::nullopt : std::optional(running.last().message);
        if (running.isEmpty())
            kind = BusyKind::command;
    }
};

/// Shows a busy message as long as it lives, unless later work shows its own. When that ends, this one shows again.
class BusyScope {
public:
    BusyScope(BusyState &shared, const QString &message, BusyKind kind = BusyKind::command)
        : state(shared), number(++shared.lastNumber) {
        if (kind == BusyKind::load)
            state.running.removeIf(
                [&message](const auto &work) { return work.kind == BusyKind::load && work.message == message; });
        state.running.append({number, message, kind});
        state.show();
    }
    ~BusyScope() {
        state.end([this](const BusyState::Work &work) { return work.number == number; });
    }
    Q_DISABLE_COPY_MOVE(BusyScope)

private:
    BusyState &state;
    quint64 number;
};

} // namespace kestor
