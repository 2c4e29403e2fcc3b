#include "model/status_kind.h"

#include <array>

namespace kestor {

namespace {

struct Texts {
    QStringView raw;
    QStringView display;
    char16_t letter;
};

// In enum order. "Conflict" is no participle, and "!" and "?" each stand for two kinds: these are svn's own columns.
constexpr std::array<Texts, 15> texts{{
    {u"added", u"Added", u'A'},
    {u"conflicted", u"Conflict", u'C'},
    {u"deleted", u"Deleted", u'D'},
    {u"external", u"External", u'X'},
    {u"ignored", u"Ignored", u'I'},
    {u"incomplete", u"Incomplete", u'!'},
    {u"merged", u"Merged", u'G'},
    {u"missing", u"Missing", u'!'},
    {u"modified", u"Modified", u'M'},
    {u"none", u"None", u' '},
    {u"normal", u"Normal", u' '},
    {u"obstructed", u"Obstructed", u'~'},
    {u"replaced", u"Replaced", u'R'},
    {u"unversioned", u"Unversioned", u'?'},
    {u"unknown", u"Unknown", u'?'},
}};
static_assert(texts.size() == static_cast<std::size_t>(SVNStatusKind::unknown) + 1);

const Texts &textsOf(SVNStatusKind kind) {
    return texts.at(static_cast<std::size_t>(kind));
}

} // namespace

QStringView rawValue(SVNStatusKind kind) {
    return textsOf(kind).raw;
}

std::optional<SVNStatusKind> statusKindFromRawValue(QStringView text) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i].raw == text)
            return static_cast<SVNStatusKind>(i);
    }
    return std::nullopt;
}

QStringView displayName(SVNStatusKind kind) {
    return textsOf(kind).display;
}

QChar shortName(SVNStatusKind kind) {
    return textsOf(kind).letter;
}

bool isChange(SVNStatusKind kind) {
    return kind != SVNStatusKind::none && kind != SVNStatusKind::normal;
}

} // namespace kestor
