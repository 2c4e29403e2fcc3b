#include "families.h"
#include "support/awaited.h"
#include "support/test.h"

#include <QRegularExpression>

#include <unistd.h>

namespace kestor {
namespace {

/// What an operation left behind.
struct Outcome {
    QStringList alerts{}; ///< of the operation, in turn, as "TITLE: MESSAGE"
    QStringList asked{};
    std::optional<QStringList> shown{}; ///< the rows that the window has of the working copy, if it has any
    QStringList rows{};                 ///< those that it has, looked at with everything mended
    QMap<QString, QByteArray> files{};
    int toolRuns = 0;
};

/// A list in Latin-1 has no name of a file with other letters than ASCII's.
QStringList withAsciiNames(QStringList rows) {
    rows.removeIf([](const QString &row) { return row.contains(u'é') || row.contains(QChar::ReplacementCharacter); });
    return rows;
}

class FaultMatrix : public ::testing::TestWithParam<Family> {
protected:
    // For root there is no folder without access.
    static void SetUpTestSuite() {
        constexpr uid_t nobody = 65534;
        if (::geteuid() == 0 && ::setresgid(nobody, nobody, nobody) + ::setresuid(nobody, nobody, nobody) != 0)
            qFatal("cannot drop privileges");
    }

    void SetUp() override {
        world.reset();
        loaded.emplace(world);
        awaited(loaded->app.refreshStatus());
        awaited(loaded->app.loadInfo());
        awaited(loaded->app.loadHistory());
        awaited(loaded->app.loadArchives());
        rowsBefore = withAsciiNames(loaded->rows());
        filesBefore = world.files();
        good = outcomeWith({"nothing is wrong"}, {});
        EXPECT_EQ(good.alerts, QStringList());
    }

    /// Runs the operation with the fault, or with a failure of the run of a tool with that number.
    Outcome outcomeWith(const Fault &fault, std::optional<int> failingRun);
    void expectSoundEnd(const Fault &fault, std::optional<int> failingRun);
    void expectClearAlerts(const Fault &fault, std::optional<int> failingRun, const QStringList &alerts);
    void expectNothingLost(const Fault &fault, const Outcome &now);

    const Family family = GetParam();
    World world{family.kind, family.preparation};
    std::optional<Session> loaded{};
    QStringList rowsBefore{};
    QMap<QString, QByteArray> filesBefore{};
    Outcome good{};
};

Outcome FaultMatrix::outcomeWith(const Fault &fault, std::optional<int> failingRun) {
    world.reset();
    if (fault.inject != nullptr)
        fault.inject(world);
    if (failingRun)
        failInRun(*failingRun);
    Session session(world);
    EXPECT_EQ(session.app.alert.value().has_value(), (fault.breaks & readablePreferences) != 0);
    session.show(*loaded);
    Outcome outcome;
    const auto alerts = session.app.alert.addNotifier([&] {
        if (const std::optional<AppAlert> alert = session.app.alert)
            outcome.alerts.append(alert->title + u": "_s + alert->message);
    });
    awaited(family.start(session));
    EXPECT_EQ(session.app.busyMessage.value(), std::nullopt);
    EXPECT_TRUE(family.isShown == nullptr || family.isShown(session.app));
    outcome.toolRuns = world.toolRuns();
    if (session.app.changesLoaded && session.app.selectedProjectID.value() == session.project.id)
        outcome.shown = withAsciiNames(session.rows());
    outcome.asked = session.user.asked;
    EXPECT_EQ(world.live.entries(u"tmp"_s), QStringList());
    healTools();
    world.repairTools();
    if (fault.heal != nullptr)
        fault.heal(world);
    outcome.files = world.files();
    if (world.live.exists(u"wc"_s))
        outcome.rows = withAsciiNames(world.rows());
    const QSettings written(session.settings.fileName(), QSettings::IniFormat);
    EXPECT_EQ(written.value(u"old"_s).toString(), u"kept"_s);
    return outcome;
}

void FaultMatrix::expectClearAlerts(const Fault &fault, std::optional<int> failingRun, const QStringList &alerts) {
    const bool mayFail = failingRun || fault.breaks == laterRuns;
    const qsizetype expected = mayFail ? std::min(alerts.size(), qsizetype(1)) : (fault.breaks & family.needs) != 0;
    EXPECT_EQ(alerts.size(), expected);
    const QRegularExpression clear(u"^"_s + (mayFail ? u"(.+ Failed|"_s + family.alert + u')' : family.alert) +
                                       u": .*\\w{3}"_s,
                                   QRegularExpression::UseUnicodePropertiesOption);
    for (const QString &alert : alerts)
        EXPECT_TRUE(clear.match(alert).hasMatch()) << alert.left(500).toStdString();
}

/// What the operation leaves alone stays as it was. What it changes is changed wholly or not at all, but for what a
/// tool was writing when the disk was full. Files that it makes for the user are whole.
void FaultMatrix::expectNothingLost(const Fault &fault, const Outcome &now) {
    for (auto file = filesBefore.cbegin(); file != filesBefore.cend(); ++file) {
        const bool stays = good.files.contains(file.key()) && good.files[file.key()] == *file;
        const bool asBefore = now.files.contains(file.key()) && now.files[file.key()] == *file;
        const bool asWanted = now.files.contains(file.key()) == good.files.contains(file.key()) &&
                              now.files.value(file.key()) == good.files.value(file.key());
        EXPECT_TRUE(asBefore || (!stays && (asWanted || fault.breaks == disk)))
            << file.key().toStdString() << " is " << now.files.value(file.key(), "not there").toStdString();
    }
    for (auto file = now.files.cbegin(); file != now.files.cend(); ++file) {
        const bool isMadeForUser = file.key().startsWith(u"out/"_s) && file.key().count(u'/') == 1;
        EXPECT_TRUE(!isMadeForUser || good.files.value(file.key(), "not there") == *file) << file.key().toStdString();
    }
}

void FaultMatrix::expectSoundEnd(const Fault &fault, std::optional<int> failingRun) {
    SCOPED_TRACE(failingRun ? "run " + std::to_string(*failingRun) + " fails" : std::string(fault.name));
    const Outcome outcome = outcomeWith(fault, failingRun);
    expectClearAlerts(fault, failingRun, outcome.alerts);
    if (!world.live.exists(u"wc"_s))
        return;
    expectNothingLost(fault, outcome);
    const bool showsOldRows = outcome.shown == rowsBefore && !outcome.alerts.isEmpty();
    EXPECT_TRUE(showsOldRows || outcome.shown.value_or(outcome.rows) == outcome.rows)
        << "shown: " << outcome.shown->join(u'\n').toStdString()
        << "\nthere: " << outcome.rows.join(u'\n').toStdString();
    // Where a tool gave no answer it may ask more.
    EXPECT_TRUE(outcome.files == filesBefore || outcome.asked.mid(0, good.asked.size()) == good.asked)
        << "not asked before files went";
}

TEST_P(FaultMatrix, EndsWithOneClearAlertAndNothingLost) {
    for (const Fault &fault : allFaults())
        expectSoundEnd(fault, std::nullopt);
    // Behind the sixth at the latest come those that load again what is shown, as after any other operation.
    for (int run = 1; run <= std::min(good.toolRuns, 6); ++run)
        expectSoundEnd({}, run);
}

INSTANTIATE_TEST_SUITE_P(Families, FaultMatrix, ::testing::ValuesIn(allFamilies()),
                         [](const auto &family) { return QString(family.param.name).remove(u' ').toStdString(); });

} // namespace
} // namespace kestor
