#pragma once

#include <QByteArray>
#include <QtGlobal>

namespace kestor::testing {

/// A variable of the environment that has that value as long as the object lives.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char *variable, const QByteArray &value) : name(variable), before(qgetenv(variable)) {
        qputenv(name, value);
    }
    ~EnvironmentVariable() { before.isNull() ? qunsetenv(name) : qputenv(name, before); }
    Q_DISABLE_COPY_MOVE(EnvironmentVariable)

private:
    const char *name;
    QByteArray before;
};

} // namespace kestor::testing
