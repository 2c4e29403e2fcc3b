#include "ui/list/language_rows.h"

#include "model/size_text.h"
#include "ui/list/language_texts.h"

namespace kestor {

void LanguageRows::publish(const QList<LanguageDistributionEntry> &published) {
    if (shares == published)
        return;
    replaceRecords([&] {
        shares = published;
        total = totalBytes(published);
    });
}

RowContent LanguageRows::content(int record, const Theme &) const {
    const LanguageDistributionEntry &entry = shares.at(record);
    return LanguageRow{.color = languageColor(entry.name, entry.colorHex),
                       .name = entry.name,
                       .size = sizeText(entry.bytes),
                       .share = shareText(entry.bytes, total)};
}

QString LanguageRows::copiedText(int record) const {
    return accessibleText(std::get<LanguageRow>(content(record, Theme())));
}

} // namespace kestor
