#include "families.h"
#include "support/awaited.h"
#include "support/printers.h"

#include <QRegularExpression>

#include <gtest/gtest.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::awaited;
using testing::Family;
using testing::Fault;
using testing::Session;
using testing::World;

/// What an operation left behind.
struct Outcome {
    QStringList alerts{}; ///< of the operation, in turn, as "TITLE: MESSAGE"
    QStringList asked{};
    QStringList shown{}; ///< the rows that the window has then
    QStringList rows{};  ///< those of the working copy, looked at with everything mended
    QMap<QString, QByteArray> files{};
    int toolRuns = 0;
};

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
        rowsBefore = loaded->rows();
        filesBefore = world.files();
        good = outcomeWith({"nothing is wrong"}, {});
        EXPECT_EQ(good.alerts, QStringList());
    }

    /// Runs the operation with the fault in the run of a tool with that number, in all of them without one.
    Outcome outcomeWith(const Fault &fault, std::optional<int> run);
    void check(const Fault &fault, std::optional<int> run);

    const Family family = GetParam();
    World world{family.kind};
    std::optional<Session> loaded{};
    QStringList rowsBefore{};
    QMap<QString, QByteArray> filesBefore{};
    Outcome good{};
};

Outcome FaultMatrix::outcomeWith(const Fault &fault, std::optional<int> run) {
    world.reset();
    if (fault.inject != nullptr)
        fault.inject(world);
    if (run)
        testing::strikeAt(*run);
    Session session(world);
    EXPECT_EQ(session.app.alert.value().has_value(), (fault.breaks & testing::readablePreferences) != 0);
    session.show(*loaded);
    Outcome outcome;
    const auto alerts = session.app.alert.addNotifier([&] {
        if (const std::optional<AppAlert> alert = session.app.alert)
            outcome.alerts.append(alert->title + u": "_s + alert->message);
    });
    awaited(family.start(session, world));
    EXPECT_EQ(session.app.busyMessage.value(), std::nullopt);
    outcome.toolRuns = world.toolRuns();
    outcome.shown = session.rows();
    outcome.asked = session.user.asked;
    EXPECT_EQ(world.live().entries(u"tmp"_s), QStringList());
    testing::healTools();
    world.repairTools();
    if (fault.heal != nullptr)
        fault.heal(world);
    outcome.files = world.files();
    if (world.live().exists(u"wc"_s))
        outcome.rows = world.rows();
    const QSettings written(session.settings.fileName(), QSettings::IniFormat);
    EXPECT_EQ(written.value(u"old"_s).toString(), u"kept"_s);
    return outcome;
}

/// Each file is as it was or as the operation without any fault leaves it.
void expectNothingLost(const QMap<QString, QByteArray> &before, const Outcome &good, const Outcome &now) {
    QSet<QString> all(before.keyBegin(), before.keyEnd());
    all.unite(QSet<QString>(good.files.keyBegin(), good.files.keyEnd()));
    all.unite(QSet<QString>(now.files.keyBegin(), now.files.keyEnd()));
    const auto in = [](const QMap<QString, QByteArray> &files, const QString &path) {
        return files.contains(path) ? std::optional(files[path]) : std::nullopt;
    };
    for (const QString &path : std::as_const(all)) {
        const auto content = in(now.files, path);
        EXPECT_TRUE(content == in(before, path) || content == in(good.files, path))
            << path.toStdString() << " is " << content.value_or("not there").toStdString();
    }
}

void FaultMatrix::check(const Fault &fault, std::optional<int> run) {
    SCOPED_TRACE(run ? std::string(fault.name) + " in run " + std::to_string(*run) : std::string(fault.name));
    const Outcome outcome = outcomeWith(fault, run);
    const bool breaks = (fault.breaks & family.needs) != 0;
    if (run || fault.breaks == testing::laterRuns) {
        EXPECT_LE(outcome.alerts.size(), 1) << outcome.alerts.join(u'\n').toStdString();
    } else if (!breaks) {
        EXPECT_EQ(outcome.alerts, QStringList());
    } else {
        ASSERT_EQ(outcome.alerts.size(), 1) << outcome.alerts.join(u'\n').toStdString();
    }
    const QRegularExpression clear(u"^"_s + (run ? u".+ Failed"_s : family.alert) + u": .*\\w{3}"_s,
                                   QRegularExpression::UseUnicodePropertiesOption);
    for (const QString &alert : outcome.alerts)
        EXPECT_TRUE(clear.match(alert).hasMatch()) << alert.left(500).toStdString();
    if (!world.live().exists(u"wc"_s))
        return;
    expectNothingLost(filesBefore, good, outcome);
    for (const QString &row : run ? QStringList() : outcome.rows)
        EXPECT_TRUE(rowsBefore.contains(row) || good.rows.contains(row)) << row.toStdString();
    EXPECT_TRUE(outcome.shown == rowsBefore || outcome.shown == outcome.rows || outcome.shown.isEmpty())
        << outcome.shown.join(u'\n').toStdString();
    EXPECT_TRUE(outcome.files == filesBefore || outcome.asked == good.asked) << "not asked before files went";
}

TEST_P(FaultMatrix, EndsWithOneClearAlertAndNothingLost) {
    for (const Fault &fault : testing::allFaults())
        check(fault, std::nullopt);
    // Both double the time.
    const qsizetype faultsOfOneRun = qEnvironmentVariableIsSet("KESTOR_ALL_FAULTS") ? 2 : 1;
    for (const Fault &fault : testing::faultsOfOneRun().first(faultsOfOneRun)) {
        for (int run = 1; run <= good.toolRuns; ++run)
            check(fault, run);
    }
}

INSTANTIATE_TEST_SUITE_P(Families, FaultMatrix, ::testing::ValuesIn(testing::allFamilies()),
                         [](const auto &family) { return QString(family.param.name).remove(u' ').toStdString(); });

} // namespace
} // namespace kestor
