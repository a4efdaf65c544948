// SPDX-License-Identifier: MIT
//
// Everything that can go wrong with a call to Quillery, for each of its calls.
#include "platform/dbus/DBusQuilleryApplication.h"

#include "BusFixture.h"
#include "platform/scripting/QuilleryIdentifiers.h"

#include <csignal>
#include <thread>

namespace {

using platform::CallLimits;
using platform::DBusQuilleryApplication;
using platform::Error;
using test::codeOf;
using test::text;
namespace quillery = platform::quillery;

struct QuilleryCall {
    const char* member;
    bool isLong;
    std::optional<Error> (*make)(DBusQuilleryApplication&);
};

std::ostream& operator<<(std::ostream& stream, const QuilleryCall& call)
{
    return stream << call.member;
}

const QuilleryCall calls[] = {{"GetAll", false,
                               [](DBusQuilleryApplication& application) {
                                   const bool isSilent = application.version().isNull();
                                   EXPECT_EQ(isSilent, application.lastError().has_value());
                                   return application.lastError();
                               }},
                              {"Activate", false,
                               [](DBusQuilleryApplication& application) {
                                   application.activate();
                                   return application.lastError();
                               }},
                              {"ImportFiles", true, [](DBusQuilleryApplication& application) {
                                   Error error;
                                   const bool isTaken = application.importFiles(
                                       {text("/tmp/Evernote.qllibxml")},
                                       platform::QuilleryApplication::ImportMode::Copy, {}, 0, {},
                                       0, {}, &error);
                                   EXPECT_EQ(isTaken, error.isNull());
                                   EXPECT_EQ(application.lastError().value_or(Error()), error);
                                   return isTaken ? std::nullopt : std::optional(error);
                               }}};

class QuilleryFailuresTest : public test::BusTest,
                             public ::testing::WithParamInterface<QuilleryCall> {
protected:
    [[nodiscard]] DBusQuilleryApplication quillery(const CallLimits& limits = {}) const
    {
        return {connect(), quillery::identifier, limits};
    }
    [[nodiscard]] static std::string make(DBusQuilleryApplication& application)
    {
        return codeOf(GetParam().make(application));
    }
    [[nodiscard]] static QString member() { return text(GetParam().member); }
};

TEST_P(QuilleryFailuresTest, WithoutABus)
{
    DBusQuilleryApplication application(
        std::make_shared<platform::BusConnection>(text("disabled:")), quillery::identifier);
    EXPECT_EQ(make(application), "NoBus");
}

TEST_P(QuilleryFailuresTest, WithNobodyBehindTheName)
{
    DBusQuilleryApplication application = quillery();
    EXPECT_EQ(make(application), "NotInstalled");
}

TEST_P(QuilleryFailuresTest, KilledBefore)
{
    QProcess& service = startService({text("quillery")});
    DBusQuilleryApplication application = quillery();
    application.activate();
    EXPECT_EQ(codeOf(application.lastError()), "none");
    killService(service, quillery::identifier);
    EXPECT_EQ(make(application), "NotInstalled");
}

TEST_P(QuilleryFailuresTest, KilledDuring)
{
    startService({text("quillery"), text("--die-at"), member()});
    DBusQuilleryApplication application = quillery();
    EXPECT_EQ(make(application), "Gone");
}

TEST_P(QuilleryFailuresTest, KilledAfterTheAnswer)
{
    QProcess& service = startService({text("quillery"), text("--die-after"), member()});
    DBusQuilleryApplication application = quillery();
    EXPECT_EQ(make(application), "none");
    ASSERT_TRUE(service.waitForFinished());
    EXPECT_EQ(service.exitStatus(), QProcess::CrashExit);
}

TEST_P(QuilleryFailuresTest, NeverAnswered)
{
    QProcess& service = startService({text("quillery"), text("--hang"), member()});
    DBusQuilleryApplication application = quillery(test::impatient());
    if (!GetParam().isLong) {
        EXPECT_EQ(make(application), "NoAnswer");
        return;
    }
    // It is waited for, for as long as the service lives.
    std::string code;
    std::thread caller([&] { code = make(application); });
    waitForLine(service, member());
    service.kill();
    caller.join();
    EXPECT_EQ(code, "Gone");
}

TEST_P(QuilleryFailuresTest, Frozen)
{
    QProcess& service = startService({text("quillery")});
    DBusQuilleryApplication application = quillery(test::impatient());
    const auto pid = static_cast<pid_t>(service.processId());
    ::kill(pid, SIGSTOP);
    std::thread thaw([&] {
        if (!GetParam().isLong)
            return;
        std::this_thread::sleep_for(std::chrono::seconds(1));
        ::kill(pid, SIGCONT);
    });
    EXPECT_EQ(make(application), GetParam().isLong ? "none" : "NoAnswer");
    thaw.join();
    ::kill(pid, SIGCONT);
    EXPECT_EQ(make(application), "none");
}

TEST_P(QuilleryFailuresTest, Refused)
{
    startService({text("quillery"), text("--refuse"),
                  member() + text("=org.freedesktop.DBus.Error.AccessDenied"), text("--refuse"),
                  member() + text("@2=com.example.Whatever")});
    DBusQuilleryApplication application = quillery();
    EXPECT_EQ(make(application), "Refused");
    EXPECT_EQ(application.lastError()->localizedDescription(), "This is refused.");
    EXPECT_EQ(make(application), "Refused");
    EXPECT_EQ(make(application), "none");
}

TEST_P(QuilleryFailuresTest, NotKnownToTheService)
{
    startService({text("quillery"), text("--refuse"),
                  member() + text("=org.freedesktop.DBus.Error.UnknownMethod")});
    DBusQuilleryApplication application = quillery();
    EXPECT_EQ(make(application), "NotUnderstood");
}

TEST_P(QuilleryFailuresTest, AnsweredWithOtherTypes)
{
    startService({text("quillery"), text("--answer"), member() + text("=a-number"),
                  text("--answer"), member() + text("@2=a-dictionary")});
    DBusQuilleryApplication application = quillery();
    EXPECT_EQ(make(application), "InvalidAnswer");
    EXPECT_EQ(make(application), "InvalidAnswer");
    EXPECT_EQ(make(application), "none");
}

TEST_P(QuilleryFailuresTest, TheBusDiesBefore)
{
    startService({text("quillery")});
    DBusQuilleryApplication application = quillery();
    application.activate();
    m_bus.kill();
    EXPECT_EQ(make(application), "BusLost");
    EXPECT_EQ(make(application), "BusLost");
}

TEST_P(QuilleryFailuresTest, TheBusDiesDuring)
{
    QProcess& service = startService({text("quillery"), text("--hang"), member()});
    DBusQuilleryApplication application = quillery();
    std::string code;
    std::thread caller([&] { code = make(application); });
    waitForLine(service, member());
    m_bus.kill();
    caller.join();
    EXPECT_EQ(code, "BusLost");
}

TEST_P(QuilleryFailuresTest, TheNameIsGivenUpDuringTheCallWhichIsAnsweredAllTheSame)
{
    startService({text("quillery"), text("--release-name"), member()});
    DBusQuilleryApplication application = quillery();
    EXPECT_EQ(make(application), "none");
}

TEST_P(QuilleryFailuresTest, AnotherOwnerOfTheNameIsAskedNext)
{
    QProcess& first = startService({text("quillery")});
    DBusQuilleryApplication application = quillery();
    application.activate();
    killService(first, quillery::identifier);
    startService({text("quillery")});
    EXPECT_EQ(make(application), "none");
}

INSTANTIATE_TEST_SUITE_P(OfQuillery, QuilleryFailuresTest, ::testing::ValuesIn(calls),
                         [](const auto& test) { return std::string(test.param.member); });

class QuilleryVersionTest : public test::BusTest {};

TEST_F(QuilleryVersionTest, AVersionThatIsNoneIsNoAnswer)
{
    for (const char* nonsense : {"no-version", "an-empty-version", "a-number-as-version"}) {
        QProcess& service =
            startService({text("quillery"), text("--answer"), text("GetAll=") + text(nonsense)});
        DBusQuilleryApplication application(connect(), quillery::identifier);
        EXPECT_TRUE(application.version().isNull()) << nonsense;
        EXPECT_EQ(codeOf(application.lastError()), "InvalidAnswer") << nonsense;
        EXPECT_EQ(application.version(), "3.5.3");
        killService(service, quillery::identifier);
    }
}

} // namespace
