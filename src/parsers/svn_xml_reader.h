#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace kestor {

QString fromUtf8(std::string_view utf8);
QString trimmedFromUtf8(std::string_view utf8);

/// Texts that mostly repeat the one before, such as authors and revisions: a repetition shares its characters, which
/// saves an allocation and its memory for each row of a long list.
class RepeatedText {
public:
    const QString &fromUtf8(std::string_view utf8);

private:
    std::string lastUtf8;
    QString last;
};

/// Texts of which many come again somewhere in the output, such as paths of a log: all repetitions share their
/// characters.
class RepeatedTexts {
public:
    const QString &fromUtf8(std::string_view utf8);

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view utf8) const { return std::hash<std::string_view>()(utf8); }
    };

    std::unordered_map<std::string, QString, Hash, std::equal_to<>> texts;
};

struct XmlAttribute {
    std::string_view name{};
    std::string_view value{};
};

/// The attributes of one element. Valid during the call that gets them.
class XmlAttributes {
public:
    explicit XmlAttributes(std::span<const XmlAttribute> attributes) : list(attributes) {}

    std::optional<std::string_view> value(std::string_view name) const;
    std::optional<QString> text(std::string_view name) const;
    std::optional<QString> text(std::string_view name, RepeatedText &shared) const;
    /// Nothing when the attribute is missing or is no decimal integer.
    std::optional<qint64> integer(std::string_view name) const;

private:
    std::span<const XmlAttribute> list;
};

/// Receives what readXml finds. Names are plain names; all texts are UTF-8 and valid during the call.
class XmlHandler {
public:
    XmlHandler() = default;
    XmlHandler(const XmlHandler &) = delete;
    XmlHandler &operator=(const XmlHandler &) = delete;
    virtual ~XmlHandler() = default;

    virtual void startElement(std::string_view name, XmlAttributes attributes) = 0;
    /// `text` is what stood between this end tag and the last tag before it.
    virtual void endElement(std::string_view name, std::string_view text) = 0;
};

/// How far a document was read.
enum class XmlEnd : std::uint8_t { reached, missed };

/// Reads a document to its end, to the first error or to a document type declaration, which no `svn` prints and which
/// could declare entities that expand without bound. Control characters, which XML forbids, are read as they stand:
/// `svn` prints those of file names so.
XmlEnd readXml(QByteArrayView utf8, XmlHandler &handler);

/// The UTF-8 form of `text`; empty when it has none because of a lone surrogate.
QByteArray utf8OrEmpty(QStringView text);

} // namespace kestor
