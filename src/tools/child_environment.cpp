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
    {u"commit.cleanup", u"verbatim"},
};

void appendGitConfiguration(QProcessEnvironment &environment, const QString &key, const QString &value) {
    const int count = std::max(0, environment.value(u"GIT_CONFIG_COUNT"_s).toInt());
    const QString index = QString::number(count);
    environment.insert(u"GIT_CONFIG_KEY_"_s + index, key);
    environment.insert(u"GIT_CONFIG_VALUE_"_s + index, value);
    environment.insert(u"GIT_CONFIG_COUNT"_s, QString::number(count + 1));
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

QProcessEnvironment gitChildEnvironment(const QProcessEnvironment &inherited, RunPurpose purpose) {
    QProcessEnvironment environment = childEnvironment(inherited);
    for (const auto &[key, value] : gitConfiguration)
        appendGitConfiguration(environment, key.toString(), value.toString());
    // Each path says for itself that it is a name and no pattern. For hooks the variables would hold as well.
    for (const QString &name :
         {u"GIT_LITERAL_PATHSPECS"_s, u"GIT_GLOB_PATHSPECS"_s, u"GIT_NOGLOB_PATHSPECS"_s, u"GIT_ICASE_PATHSPECS"_s})
        environment.remove(name);
    if (purpose == RunPurpose::backgroundRead)
        environment.insert(u"GIT_OPTIONAL_LOCKS"_s, u"0"_s);
    return environment;
}

} // namespace kestor
