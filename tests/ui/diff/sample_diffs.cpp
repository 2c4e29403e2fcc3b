#include "sample_diffs.h"

namespace kestor::testing {

using namespace Qt::StringLiterals;

QString oneFileDiff() {
    return uR"(Index: src/a.c
===================================================================
--- src/a.c	(revision 3)
+++ src/a.c	(working copy)
@@ -1,4 +1,4 @@ int main
 first
-second line
+second long line
 third
 	fourth
@@ -90,2 +90,3 @@
 last
+	日本 x
+end
\ No newline at end of file
)"_s;
}

QString threeFileDiff() {
    return uR"(diff --git a/one.txt b/one.txt
index 1..2 100644
--- a/one.txt
+++ b/one.txt
@@ -1,2 +1,2 @@
 same
-old
+new
@@ -9 +9 @@
+nine
diff --git a/logo.png b/logo.png
index 3..4 100644
Binary files a/logo.png and b/logo.png differ
diff --git a/old name.txt b/new name.txt
similarity index 90%
rename from old name.txt
rename to new name.txt
--- a/old name.txt
+++ b/new name.txt
@@ -5,1 +5,2 @@
 five
+six
)"_s;
}

QString longDiff(int lines) {
    QString text = u"Index: long.c\n--- long.c\n+++ long.c\n@@ -0,0 +1,%1 @@\n"_s.arg(lines);
    for (int line = 1; line <= lines; ++line)
        text += u"+line %1 of a long diff\n"_s.arg(line);
    return text;
}

} // namespace kestor::testing
