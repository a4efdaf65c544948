// SPDX-License-Identifier: MIT
#include "platform/core/Error.h"

namespace {

using platform::Error;

TEST(ErrorTest, DescribesItselfWithDomainCodeAndText)
{
    const Error error(QStringLiteral("Import"), 10003, QStringLiteral("App not found."));
    EXPECT_EQ(error.description(), QStringLiteral("Error Domain=Import Code=10003 \"App not found.\""));
}

TEST(ErrorTest, MakesATextWhenNoneWasGiven)
{
    const Error error(QStringLiteral("Import"), 7);
    EXPECT_FALSE(error.hasLocalizedDescription());
    EXPECT_EQ(error.localizedDescription(), QStringLiteral("The operation could not be completed. (Import error 7.)"));
}

TEST(ErrorTest, ShowsTheErrorThatCausedIt)
{
    const Error cause(QStringLiteral("POSIX"), 28, QStringLiteral("No space left on device"));
    const Error error = Error(QStringLiteral("Files"), 1, QStringLiteral("Cannot write.")).withUnderlyingError(cause);
    ASSERT_NE(error.underlyingError(), nullptr);
    EXPECT_EQ(error.underlyingError()->code(), 28);
    EXPECT_EQ(error.description(),
              QStringLiteral("Error Domain=Files Code=1 \"Cannot write.\" "
                             "{Error Domain=POSIX Code=28 \"No space left on device\"}"));
}

TEST(ErrorTest, ItsDescriptionHasPlainQuotationMarks)
{
    const Error error(QStringLiteral("D"), 1, QStringLiteral("\u201ca\u201d isn\u2019t"));
    EXPECT_EQ(error.description(), QStringLiteral("Error Domain=D Code=1 \"\"a\" isn't\""));
    EXPECT_EQ(error.localizedDescription(), QStringLiteral("\u201ca\u201d isn\u2019t"));
}

TEST(ErrorTest, AnAbsentOutParameterIsLeftAlone)
{
    platform::setError(nullptr, Error(QStringLiteral("D"), 1));
    Error error;
    EXPECT_TRUE(error.isNull());
    platform::setError(&error, Error(QStringLiteral("D"), 1));
    EXPECT_EQ(error.code(), 1);
}

} // namespace
