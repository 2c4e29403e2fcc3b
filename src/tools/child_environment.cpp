#include "tools/child_environment.h"

#include <algorithm>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

#ifdef Q_OS_MACOS
constexpr QStringView untranslatedLocale = u"C";
#else
// With plain "C", svn refuses every path and message that is not ASCII.
constexpr QStringView untranslatedLocale = u"C.UTF-8";
#endif

// What the parsers need, and messages that arrive as they were typed, whatever the user's own configuration says.
constexpr std::pair<QStringView, QStringView> gitConfiguration[] = {
    {u"core.quotePath", u"false"},    {u"color.ui", u"false"},      {u"color.diff", u"false"},
    {u"color.status", u"false"},      {u"diff.noprefix", u"false"}, {u"diff.mnemonicPrefix", u"false"},
    {u"commit.cleanup", u"verbatim"}, {u"log.showRoot", u"true"},   {u"log.showSignature", u"false"},
};

// What only looks starts no program that the repository's own configuration names, as far as Git can do without.
constexpr std::pair<QStringView, QStringView> readingConfiguration[] = {
    {u"core.fsmonitor", u"false"},
    {u"core.hooksPath", u"/dev/null"},
};

// Each project is the repository that its folder says, also where the program was started by a hook or an alias of Git.
constexpr QStringView repositoryVariables[] = {
    u"GIT_DIR",        u"GIT_WORK_TREE",        u"GIT_INDEX_FILE",
    u"GIT_COMMON_DIR", u"GIT_OBJECT_DIRECTORY", u"GIT_ALTERNATE_OBJECT_DIRECTORIES",
    u"GIT_PREFIX",     u"GIT_NAMESPACE",        u"GIT_SHALLOW_FILE",
    u"GIT_GRAFT_FILE",
};

// Each path says for itself that it is a name and no pattern. For hooks the variables would hold as well.
constexpr QStringView pathspecVariables[] = {
    u"GIT_LITERAL_PATHSPECS",
    u"GIT_GLOB_PATHSPECS",
    u"GIT_NOGLOB_PATHSPECS",
    u"GIT_ICASE_PATHSPECS",
};

void appendGitConfiguration(QProcessEnvironment &environment, const QString &key, const QString &value) {
    const int count = std::max(0, environment.value(u"GIT_CONFIG_COUNT"_s).toInt());
    const QString index = QString::number(count);
    environment.insert(u"GIT_CONFIG_KEY_"_s + index, key);
    environment.insert(u"GIT_CONFIG_VALUE_"_s + index, value);
    environment.insert(u"GIT_CONFIG_COUNT"_s, QString::number(count + 1));
}

/// Git then does not go on to the folders above. It follows the links in what it is told itself.
void keepInFolder(QProcessEnvironment &environment, const QString &directory) {
    const QString key = u"GIT_CEILING_DIRECTORIES"_s;
    const QString others = environment.value(key);
    environment.insert(key, directory + u"/.."_s + (others.isEmpty() ? others : u':' + others));
}

} // namespace

QProcessEnvironment childEnvironment(QProcessEnvironment inherited) {
    inherited.insert(u"LC_ALL"_s, untranslatedLocale.toString());
    // Only the locale "C" itself makes the C library ignore this; with "C.UTF-8" it would translate the messages.
    inherited.remove(u"LANGUAGE"_s);
    return inherited;
}

QProcessEnvironment svnChildEnvironment(const QProcessEnvironment &inherited) {
    QProcessEnvironment environment = childEnvironment(inherited);
    environment.insert(u"SVN_EDITOR"_s, u"echo There is no terminal for an editor. >&2; false"_s);
    return environment;
}

QProcessEnvironment gitChildEnvironment(const QProcessEnvironment &inherited, RunPurpose purpose,
                                        const QString &directory) {
    QProcessEnvironment environment = childEnvironment(inherited);
    for (const auto &[key, value] : gitConfiguration)
        appendGitConfiguration(environment, key.toString(), value.toString());
    for (const QStringView name : repositoryVariables)
        environment.remove(name.toString());
    for (const QStringView name : pathspecVariables)
        environment.remove(name.toString());
    if (purpose != RunPurpose::repositorySearch && !directory.isEmpty())
        keepInFolder(environment, directory);
    if (purpose != RunPurpose::userCommand) {
        environment.insert(u"GIT_OPTIONAL_LOCKS"_s, u"0"_s);
        for (const auto &[key, value] : readingConfiguration)
            appendGitConfiguration(environment, key.toString(), value.toString());
    }
    return environment;
}

} // namespace kestor
