#include "support/printers.h"
#include "ui/start/open_request.h"

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

TEST(OpenRequest, TakesEveryWordAsAPathOfTheCallersFolder) {
    struct Row {
        const char *name;
        QList<QByteArray> words;
        QStringList paths;
    };
    const Row rows[] = {
        {"nothing", {}, {}},
        {"no word is the folder itself", {""}, {}},
        {"absolute", {"/srv/wc/"}, {u"/srv/wc"_s}},
        {"relative", {"wc", "../other", "."}, {u"/home/me/wc"_s, u"/home/other"_s, u"/home/me"_s}},
        {"twice", {"wc", "/home/me/./wc"}, {u"/home/me/wc"_s}},
        {"options of Qt and others",
         {"-style", "--", "--help"},
         {u"/home/me/-style"_s, u"/home/me/--"_s, u"/home/me/--help"_s}},
        {"blanks and line ends", {" a b\nc "}, {u"/home/me/ a b\nc "_s}},
        {"beyond ASCII",
         {"gr\xC3\xB6\xC3\x9F"
          "e"},
         {u"/home/me/größe"_s}},
        {"not UTF-8",
         {"a\xFF"
          "b"},
         {u"/home/me/a\uFFFDb"_s}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(openRequest(row.words, u"/home/me"_s, {}).paths, row.paths);
    }
}

TEST(OpenRequest, IsReadBackWholeOrNotAtAll) {
    struct Row {
        const char *name;
        OpenRequest request;
    };
    const Row rows[] = {
        {"the window alone", {}},
        {"with the desktop's leave", {{}, "token_TIME12"}},
        {"a folder", {{u"/a"_s}, {}}},
        {"several", {{u"/a b\nc"_s, u"/größe"_s}, "t"}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const QByteArray message = encoded(row.request);
        EXPECT_EQ(decodedRequest(message), row.request);
        for (qsizetype size = 0; size < message.size(); ++size)
            EXPECT_EQ(decodedRequest(message.left(size)), std::nullopt) << size;
    }
    EXPECT_EQ(decodedRequest(QByteArray("GET / HTTP/1.1\0\0\0\0", 18)), std::nullopt);
}

} // namespace
} // namespace kestor
