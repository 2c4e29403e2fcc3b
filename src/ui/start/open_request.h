#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace kestor {

/// What one start of the program asks for: its window in front, with these folders in it.
struct OpenRequest {
    QStringList paths{};          ///< absolute, without duplicates; what they name need not be there
    QByteArray activationToken{}; ///< the desktop's leave to come to the front; "" where it gave none

    friend bool operator==(const OpenRequest &, const OpenRequest &) = default;
};

/// The request of a start with these words behind the program's name, in the folder it was started in. Every word is a
/// path, also one that begins with "-".
OpenRequest openRequest(const QList<QByteArray> &words, const QString &directory, const QByteArray &activationToken);

/// As one start hands it to another; decodedRequest reads it back.
QByteArray encoded(const OpenRequest &request);
/// Nothing as long as the message is not complete, or when it is none.
std::optional<OpenRequest> decodedRequest(const QByteArray &message);

} // namespace kestor
