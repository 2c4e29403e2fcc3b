#include "parsers/iso_date.h"
#include "printed_records.h"
#include "support/test.h"

namespace kestor {
namespace {

TEST(DateFromISO8601Test, readsTheTwoFormsOnly) {
    const std::pair<QStringView, QString> dates[] = {
        {u"2024-05-01T10:20:30Z", u"2024-05-01T10:20:30.000Z"_s},
        {u"2024-05-01T10:20:30.5Z", u"2024-05-01T10:20:30.500Z"_s},
        {u"2024-05-01T10:20:30.045678Z", u"2024-05-01T10:20:30.045Z"_s},
        {u"2024-05-01T10:20:30+02:00", u"2024-05-01T08:20:30.000Z"_s},
        {u"2024-12-31T23:50:00.25-05:30", u"2025-01-01T05:20:00.250Z"_s},
        {u"2024-02-29T00:00:00Z", u"2024-02-29T00:00:00.000Z"_s},
        {u"1969-12-31T23:59:59.9Z", u"1969-12-31T23:59:59.900Z"_s},
    };
    for (const auto &[text, expected] : dates)
        EXPECT_EQ(printed(dateFromISO8601(text)), expected) << qPrintable(text.toString());
    for (const QString &text : u"2023-02-29T00:00:00Z|2024-13-01T00:00:00Z|2024-05-01T24:00:00Z|2024-05-01T10:60:00Z|"
                               "2024-05-01T10:20:30|2024-05-01T10:20:30.Z|2024-05-01T10:20:30.1234567890Z|"
                               "2024-05-01T10:20:30,5Z|2024-05-01T10:20:30.5|2024-05-01T10:20:30+0200|"
                               "2024-05-01T10:20:30+24:00|2024-05-01T10:20:30+02:60|2024-05-01T10:20:30Z |"
                               "2024-05-01T10:20:30ZZ|2024-05-01t10:20:30z|2024-05-01 10:20:30Z|2024-05-0110:20:30Z|"
                               "24-05-01T10:20:30Z|+024-05-01T10:20:30Z|2024-05-01|٢٠٢٤-05-01T10:20:30Z|"_list)
        EXPECT_EQ(printed(dateFromISO8601(text)), u"-"_s) << qPrintable(text);
}

} // namespace
} // namespace kestor
