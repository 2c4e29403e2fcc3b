#pragma once

#include <QString>

#include <cstdint>

namespace kestor {

/// The `svn` that runs, and why it is that one.
struct SVNExecutable {
    enum class Source : std::uint8_t {
        chosen,
        chosenUnusable, ///< the user's choice is no file that can be run
        found,
        missing,
    };
    QString path{}; ///< "" when it is missing
    Source source = Source::missing;

    friend bool operator==(const SVNExecutable &, const SVNExecutable &) = default;
};

/// What running `svn` takes now when the user chose `chosen` ("" for none). Looks at a few files.
SVNExecutable svnExecutableInUse(const QString &chosen);

} // namespace kestor
