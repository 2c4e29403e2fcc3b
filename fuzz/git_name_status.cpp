#include "fuzz/input_text.h"
#include "fuzz/name_status.h"
#include "fuzz/property.h"

namespace kestor::fuzz {

void check(QByteArrayView input) {
    const QString line = exactText(input);
    const std::optional<SVNPathChange> change = GitParsers::parseNameStatusLine(line);
    require(change == plainChange(line), "the change is that of the plain rules");
    if (change)
        require(GitParsers::parseNameStatusLine(printedChange(*change)) == change, "printing loses nothing");
}

} // namespace kestor::fuzz
