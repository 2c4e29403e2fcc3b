#pragma once

#include <QList>
#include <QProperty>
#include <QString>
#include <QtGlobal>

#include <cstdint>
#include <optional>

namespace kestor {

/// A load reads what is shown; a newer one with the same message stands in for it, as does another project.
enum class BusyKind : std::uint8_t { command, load };

/// The busy message and the work behind it.
struct BusyState {
    struct Work {
        quint64 number = 0;
        QString message{};
        BusyKind kind = BusyKind::command;
    };

    QProperty<std::optional<QString>> &message;
    quint64 lastNumber = 0;
    QList<Work> running = {}; ///< the latest last: its message shows

    template <typename Predicate>
    void end(Predicate isEnded) {
        running.removeIf(isEnded);
        message = running.isEmpty() ? std::nullopt : std::optional(running.last().message);
    }
    void endLoads() {
        end([](const Work &work) { return work.kind == BusyKind::load; });
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
        state.message = message;
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
