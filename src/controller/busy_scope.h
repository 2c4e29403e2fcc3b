#pragma once

#include <QProperty>
#include <QString>
#include <QtGlobal>

#include <optional>

namespace kestor {

/// The busy message and whose it is.
struct BusyState {
    QProperty<std::optional<QString>> &message;
    quint64 owner = 0; ///< number of the scope that set the message last
};

/// Shows a busy message as long as it lives, unless a later scope replaced it: each scope takes back its own message
/// and no other's.
class BusyScope {
public:
    BusyScope(BusyState &shared, const QString &message) : state(shared), number(++shared.owner) {
        state.message = message;
    }
    ~BusyScope() {
        if (state.owner == number)
            state.message = std::nullopt;
    }
    Q_DISABLE_COPY_MOVE(BusyScope)

private:
    BusyState &state;
    quint64 number;
};

} // namespace kestor
