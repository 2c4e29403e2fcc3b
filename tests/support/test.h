#pragma once

#include "support/lists.h"
#include "support/printers.h"
#include "support/rows.h"

#include <gtest/gtest.h>

// What every test file begins with.

namespace kestor {

namespace testing {

inline ::testing::AssertionResult startsWith(const QString &text, const QString &beginning) {
    return text.startsWith(beginning) ? ::testing::AssertionSuccess()
                                      : ::testing::AssertionFailure() << text.toStdString();
}

inline ::testing::AssertionResult contains(const QString &text, const QString &part) {
    return text.contains(part) ? ::testing::AssertionSuccess() : ::testing::AssertionFailure() << text.toStdString();
}

} // namespace testing

using namespace Qt::StringLiterals;
using namespace testing;

} // namespace kestor
