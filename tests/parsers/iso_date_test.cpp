#include "parsers/iso_date.h"
#include "printed_records.h"
#include "support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

TEST(DateFromISO8601Test, readsTheTwoFormsOnly) {
    struct Row {
        QStringView text;
        QString expected; ///< in UTC, "-" for none
    };
    const Row rows[] = {
        {u"2024-05-01T10:20:30Z", u"2024-05-01T10:20:30.000Z"_s},
        {u"2024-05-01T10:20:30.5Z", u"2024-05-01T10:20:30.500Z"_s},
        {u"2024-05-01T10:20:30.045678Z", u"2024-05-01T10:20:30.045Z"_s},
        {u"2024-05-01T10:20:30.999999999Z", u"2024-05-01T10:20:30.999Z"_s},
        {u"2024-05-01T10:20:30+02:00", u"2024-05-01T08:20:30.000Z"_s},
        {u"2024-12-31T23:50:00.25-05:30", u"2025-01-01T05:20:00.250Z"_s},
        {u"2024-02-29T00:00:00Z", u"2024-02-29T00:00:00.000Z"_s},
        {u"1969-12-31T23:59:59.9Z", u"1969-12-31T23:59:59.900Z"_s},
        {u"2023-02-29T00:00:00Z", u"-"_s},
        {u"2024-13-01T00:00:00Z", u"-"_s},
        {u"2024-05-01T24:00:00Z", u"-"_s},
        {u"2024-05-01T10:60:00Z", u"-"_s},
        {u"2024-05-01T10:20:30", u"-"_s},
        {u"2024-05-01T10:20:30.Z", u"-"_s},
        {u"2024-05-01T10:20:30.1234567890Z", u"-"_s},
        {u"2024-05-01T10:20:30,5Z", u"-"_s},
        {u"2024-05-01T10:20:30.5", u"-"_s},
        {u"2024-05-01T10:20:30+0200", u"-"_s},
        {u"2024-05-01T10:20:30+24:00", u"-"_s},
        {u"2024-05-01T10:20:30+02:60", u"-"_s},
        {u"2024-05-01T10:20:30Z ", u"-"_s},
        {u"2024-05-01T10:20:30ZZ", u"-"_s},
        {u"2024-05-01t10:20:30z", u"-"_s},
        {u"2024-05-01 10:20:30Z", u"-"_s},
        {u"2024-05-0110:20:30Z", u"-"_s},
        {u"24-05-01T10:20:30Z", u"-"_s},
        {u"+024-05-01T10:20:30Z", u"-"_s},
        {u"2024-05-01", u"-"_s},
        {u"٢٠٢٤-05-01T10:20:30Z", u"-"_s},
        {u"", u"-"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.text.toUtf8().constData());
        EXPECT_EQ(testing::printed(dateFromISO8601(row.text)), row.expected);
    }
}

} // namespace
} // namespace kestor
