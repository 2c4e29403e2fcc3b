#include "support/awaited.h"
#include "support/temp_tree.h"
#include "support/without_privileges.h"
#include "ui/start/instance_start.h"
#include "ui/start/request_server.h"

#include <chrono>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::TempTree;
using testing::waitUntil;
using testing::WithoutPrivileges;

TEST(RequestServer, TakesWholeRequestsAndSurvivesEverythingElse) {
    const TempTree tree;
    const QByteArray path = tree.path(u"socket"_s).toUtf8();
    const FileDescriptor listening = listenAt(path);
    QList<OpenRequest> taken;
    bool takes = true;
    const RequestServer server(listening, [&](const OpenRequest &request) {
        taken.append(request);
        return takes;
    });
    struct Row {
        const char *name;
        QList<QByteArray> sent;
        bool takes;
        bool taken;
    };
    const OpenRequest request{{u"/a"_s, u"/b c"_s}, "token"};
    const QByteArray message = encoded(request);
    EXPECT_EQ(decodedRequest(encoded({})), OpenRequest());
    for (qsizetype size = 0; size < message.size(); ++size)
        EXPECT_EQ(decodedRequest(message.left(size)), std::nullopt) << size;
    const Row rows[] = {
        {"whole", {message}, true, true},
        {"in pieces", {message.left(9), message.mid(9)}, true, true},
        {"refused", {message}, false, true},
        {"half of one", {message.chopped(5)}, true, false},
        {"something else", {QByteArray(200000, 'x')}, true, false},
        {"nothing", {}, true, false},
    };
    const FileDescriptor silent = connectTo(path);
    {
        const FileDescriptor hungUp = connectTo(path);
        sendSome(hungUp, message);
    }
    const FileDescriptor later = connectTo(path);
    sendSome(later, message);
    EXPECT_TRUE(waitUntil([&] { return !receiveSome(later).data.isEmpty(); }));
    EXPECT_EQ(taken.size(), 1) << "who hung up wants nothing any more";
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        taken.clear();
        takes = row.takes;
        FileDescriptor caller = connectTo(path);
        for (const QByteArray &piece : row.sent) {
            sendSome(caller, piece);
            QCoreApplication::processEvents();
        }
        ::shutdown(caller.get(), SHUT_WR);
        Received answer;
        EXPECT_TRUE(waitUntil([&] {
            const Received next = receiveSome(caller);
            answer.data += next.data;
            return next.ended;
        }));
        EXPECT_EQ(taken, row.taken ? QList{request} : QList<OpenRequest>());
        EXPECT_EQ(!answer.data.isEmpty(), row.taken && row.takes);
    }
}

TEST(RequestServer, TrustsNoOtherUser) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs a second user";
    const TempTree tree;
    ::chmod(tree.path().toUtf8().constData(), 0777);
    const QByteArray path = tree.path(u"socket"_s).toUtf8();
    FileDescriptor theirs;
    {
        const WithoutPrivileges other;
        theirs = listenAt(path);
    }
    ASSERT_TRUE(theirs.isOpen());
    EXPECT_FALSE(connectTo(path).isOpen());
    const FileDescriptor own = listenAt(path);
    ::chmod(path.constData(), 0777);
    {
        const WithoutPrivileges other;
        EXPECT_FALSE(connectTo(path).isOpen());
    }
    EXPECT_FALSE(acceptFrom(own).isOpen());
}

TEST(InstanceStart, StartsWherePreferencesCannotBeKept) {
    const TempTree tree;
    ::chmod(tree.path().toUtf8().constData(), 0555);
    const WithoutPrivileges ordinary;
    InstanceStart start(tree.path(u"none/KestorSVN.conf"_s), {});
    EXPECT_EQ(start.tryFor(0ms), InstanceStart::Outcome::first);
}

} // namespace
} // namespace kestor
