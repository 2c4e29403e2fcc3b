#pragma once

#include <QtGlobal>

#include <unistd.h>

namespace kestor::testing {

/// For its life the process is an ordinary user even when tests run as root, so that permissions count. Folders that it
/// shall write into must let everybody in.
class WithoutPrivileges {
public:
    WithoutPrivileges() {
        if (saved == 0 && ::seteuid(nobody) != 0)
            qFatal("cannot drop privileges");
    }
    ~WithoutPrivileges() {
        if (saved == 0 && ::seteuid(0) != 0)
            qFatal("cannot regain privileges");
    }
    Q_DISABLE_COPY_MOVE(WithoutPrivileges)

private:
    static constexpr uid_t nobody = 65534;
    uid_t saved = ::geteuid();
};

} // namespace kestor::testing
