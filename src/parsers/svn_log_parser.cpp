#include "model/text_table.h"
#include "model/trimmed.h"
#include "parsers/iso_date.h"
#include "parsers/svn_xml_parsers.h"
#include "parsers/svn_xml_reader.h"

#include <algorithm>

namespace kestor {

namespace {

enum class LogElement : std::uint8_t { logentry, author, date, msg, path };
constexpr std::array<std::string_view, 5> logElementNames{"logentry", "author", "date", "msg", "path"};
static_assert(logElementNames.size() == static_cast<std::size_t>(LogElement::path) + 1);

constexpr QByteArrayView entryEnd = "</logentry>";

bool isLater(const LogEntry &left, const LogEntry &right) {
    return left.revision > right.revision;
}

} // namespace

class SvnLogReader::Handler final : public XmlHandler {
public:
    const QList<LogEntry> &sortedEntries() {
        if (!std::is_sorted(entries.cbegin(), entries.cend(), isLater))
            std::stable_sort(entries.begin(), entries.end(), isLater);
        return entries;
    }
    qsizetype endedEntries() const { return ended; }

    void startElement(std::string_view name, XmlAttributes attributes) override {
        const std::optional<LogElement> element = enumFromText<LogElement>(logElementNames, name);
        if (element == LogElement::logentry) {
            revision = attributes.integer("revision");
            entry = LogEntry();
        } else if (element == LogElement::path) {
            pathAction = attributes.text("action", actions).value_or(QString());
            pathKind = attributes.text("kind", kinds);
        }
    }

    void endElement(std::string_view name, std::string_view text) override {
        const std::optional<LogElement> element = enumFromText<LogElement>(logElementNames, name);
        if (element)
            endKnownElement(*element, text);
    }

private:
    void endKnownElement(LogElement element, std::string_view text) {
        switch (element) {
        case LogElement::author:
            entry.author = authors.fromUtf8(text).trimmed();
            break;
        case LogElement::date:
            entry.date = dateFromISO8601(trimmedFromUtf8(text));
            break;
        case LogElement::msg: // blanks at the ends of a message are the author's and stay
            entry.message = withoutOuterLineBreaks(fromUtf8(text)).toString();
            break;
        case LogElement::path:
            entry.paths.append(SVNPathChange{pathAction, paths.fromUtf8(text).trimmed(), pathKind});
            break;
        case LogElement::logentry:
            endEntry();
            break;
        }
    }

    void endEntry() {
        ++ended;
        if (!revision)
            return;
        entry.revision = *revision;
        entries.append(entry);
    }

    QList<LogEntry> entries;
    qsizetype ended = 0; ///< those without a number, too
    LogEntry entry;
    std::optional<qint64> revision;
    QString pathAction;
    std::optional<QString> pathKind;
    RepeatedText actions;
    RepeatedText kinds;
    RepeatedText authors;
    RepeatedTexts paths;
};

SvnLogReader::SvnLogReader() : handler(std::make_unique<Handler>()) {}

SvnLogReader::~SvnLogReader() = default;

void SvnLogReader::read(QByteArrayView utf8) {
    if (!isIntact())
        return;
    // The root element was opened in the first piece.
    if (expected == 0)
        readXml(utf8, *handler);
    else
        readXml("<log>" + utf8.toByteArray(), *handler);
    expected += utf8.count(entryEnd);
}

bool SvnLogReader::isIntact() const {
    return handler->endedEntries() == expected;
}

QList<LogEntry> SvnLogReader::entries() const {
    return handler->sortedEntries();
}

qsizetype SvnLogReader::wholeEntries(QByteArrayView printed) {
    const qsizetype last = printed.lastIndexOf(entryEnd);
    return last < 0 ? 0 : last + entryEnd.size();
}

QList<LogEntry> LogParser::parse(QByteArrayView utf8) {
    SvnLogReader reader;
    reader.read(utf8);
    return reader.entries();
}

QList<LogEntry> LogParser::parse(QStringView text) {
    return parse(utf8OrEmpty(text));
}

} // namespace kestor
