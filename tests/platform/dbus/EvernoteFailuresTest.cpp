// SPDX-License-Identifier: MIT
//
// Everything that can go wrong with a call to Evernote, for each of its calls.
#include "platform/dbus/DBusEvernoteApplication.h"

#include "BusFixture.h"

#include <csignal>
#include <thread>

namespace {

using platform::CallLimits;
using platform::DBusEvernoteApplication;
using platform::Error;
using platform::EvernoteApplication;
using test::codeOf;
using test::text;

// What was listed before the call that a test is about.
struct Listed {
    std::shared_ptr<platform::EvernoteNotebook> notebook;
    std::vector<std::shared_ptr<platform::EvernoteNote>> notes;
};

struct EvernoteCall {
    const char* member;
    enum class About { Application, Notebook, Notes } about;
    bool isLong;
    std::optional<Error> (*make)(EvernoteApplication&, const Listed&, const QString&);
};

std::ostream& operator<<(std::ostream& stream, const EvernoteCall& call)
{
    return stream << call.member;
}

using About = EvernoteCall::About;

const EvernoteCall calls[] = {
    {"GetAll", About::Application, false,
     [](EvernoteApplication& application, const Listed&, const QString&) {
         const bool isSilent = application.version().isNull();
         EXPECT_EQ(isSilent, application.lastError().has_value());
         return application.lastError();
     }},
    {"Activate", About::Application, false,
     [](EvernoteApplication& application, const Listed&, const QString&) {
         application.activate();
         return application.lastError();
     }},
    {"Notebooks", About::Application, false,
     [](EvernoteApplication& application, const Listed&, const QString&) {
         const bool isSilent = application.notebooks().empty();
         EXPECT_EQ(isSilent, application.lastError().has_value());
         return application.lastError();
     }},
    {"Notes", About::Notebook, false,
     [](EvernoteApplication& application, const Listed& listed, const QString&) {
         const bool isSilent = listed.notebook->notes().empty();
         EXPECT_EQ(isSilent, application.lastError().has_value());
         return application.lastError();
     }},
    {"Export", About::Notes, true,
     [](EvernoteApplication& application, const Listed& listed, const QString& path) {
         Error error;
         const bool isWritten =
             application.exportNotes(listed.notes, path, EvernoteApplication::ExportTags::Yes,
                                     EvernoteApplication::ExportFormat::ENEX, &error);
         EXPECT_EQ(isWritten, error.isNull());
         EXPECT_EQ(application.lastError().value_or(Error()), error);
         return isWritten ? std::nullopt : std::optional(error);
     }}};

class EvernoteFailuresTest : public test::BusTest,
                             public ::testing::WithParamInterface<EvernoteCall> {
protected:
    void SetUp() override
    {
        BusTest::SetUp();
        m_folder.write(text("notes/A.enex"),
                       "<en-export><note><title>One</title></note></en-export>");
    }

    QProcess& startEvernote(const QStringList& options = {})
    {
        return startService(QStringList{text("evernote"), m_folder.filePath("notes")} + options);
    }
    void connectTo(const CallLimits& limits = {})
    {
        m_application = std::make_unique<DBusEvernoteApplication>(connect(), limits);
    }
    // As far as the call needs it.
    void list()
    {
        if (GetParam().about == About::Application)
            return;
        m_listed.notebook = m_application->notebooks().at(0);
        if (GetParam().about == About::Notes)
            m_listed.notes = m_listed.notebook->notes();
    }
    [[nodiscard]] std::string make()
    {
        return codeOf(GetParam().make(*m_application, m_listed, m_folder.filePath("out.enex")));
    }
    [[nodiscard]] static QString member() { return text(GetParam().member); }
    // Calls about what was listed are for one instance alone.
    [[nodiscard]] static std::string codeWithoutService()
    {
        return GetParam().about == About::Application ? "NotInstalled" : "Gone";
    }

    std::unique_ptr<DBusEvernoteApplication> m_application;
    Listed m_listed;
};

TEST_P(EvernoteFailuresTest, KilledBefore)
{
    QProcess& service = startEvernote();
    connectTo();
    list();
    killService(service, platform::evernoteBundleIdentifier);
    EXPECT_EQ(make(), codeWithoutService());
}

TEST_P(EvernoteFailuresTest, KilledDuring)
{
    startEvernote({text("--die-at"), member()});
    connectTo();
    list();
    EXPECT_EQ(make(), "Gone");
}

TEST_P(EvernoteFailuresTest, KilledAfterTheAnswer)
{
    QProcess& service = startEvernote({text("--die-after"), member()});
    connectTo();
    list();
    EXPECT_EQ(make(), "none");
    ASSERT_TRUE(service.waitForFinished());
    EXPECT_EQ(service.exitStatus(), QProcess::CrashExit);
}

TEST_P(EvernoteFailuresTest, NeverAnswered)
{
    QProcess& service = startEvernote({text("--hang"), member()});
    connectTo(test::impatient());
    list();
    if (!GetParam().isLong) {
        EXPECT_EQ(make(), "NoAnswer");
        return;
    }
    // It is waited for, for as long as the service lives.
    std::string code;
    std::thread caller([&] { code = make(); });
    waitForLine(service, member());
    service.kill();
    caller.join();
    EXPECT_EQ(code, "Gone");
}

TEST_P(EvernoteFailuresTest, Frozen)
{
    QProcess& service = startEvernote();
    connectTo(test::impatient());
    list();
    const auto pid = static_cast<pid_t>(service.processId());
    ::kill(pid, SIGSTOP);
    std::thread thaw([&] {
        if (!GetParam().isLong)
            return;
        std::this_thread::sleep_for(std::chrono::seconds(1));
        ::kill(pid, SIGCONT);
    });
    EXPECT_EQ(make(), GetParam().isLong ? "none" : "NoAnswer");
    thaw.join();
    ::kill(pid, SIGCONT);
}

TEST_P(EvernoteFailuresTest, Refused)
{
    startEvernote({text("--refuse"), member() + text("=com.evernote.Evernote.Error.Failed")});
    connectTo();
    list();
    EXPECT_EQ(make(), "Refused");
    EXPECT_EQ(m_application->lastError()->localizedDescription(), "This is refused.");
    EXPECT_EQ(make(), "none");
}

TEST_P(EvernoteFailuresTest, NotKnownToTheService)
{
    startEvernote({text("--refuse"), member() + text("=org.freedesktop.DBus.Error.UnknownMethod")});
    connectTo();
    list();
    EXPECT_EQ(make(), "NotUnderstood");
}

TEST_P(EvernoteFailuresTest, AnsweredWithOtherTypes)
{
    startEvernote({text("--answer"), member() + text("=a-number"), text("--answer"),
                   member() + text("@2=a-dictionary")});
    connectTo();
    list();
    EXPECT_EQ(make(), "InvalidAnswer");
    EXPECT_EQ(make(), "InvalidAnswer");
    EXPECT_EQ(make(), "none");
}

TEST_P(EvernoteFailuresTest, TheBusDiesBefore)
{
    startEvernote();
    connectTo();
    m_application->activate();
    list();
    m_bus.kill();
    EXPECT_EQ(make(), "BusLost");
}

TEST_P(EvernoteFailuresTest, TheBusDiesDuring)
{
    QProcess& service = startEvernote({text("--hang"), member()});
    connectTo();
    list();
    std::string code;
    std::thread caller([&] { code = make(); });
    waitForLine(service, member());
    m_bus.kill();
    caller.join();
    EXPECT_EQ(code, "BusLost");
}

TEST_P(EvernoteFailuresTest, TheNameIsGivenUpDuringTheCallWhichIsAnsweredAllTheSame)
{
    startEvernote({text("--release-name"), member()});
    connectTo();
    list();
    EXPECT_EQ(make(), "none");
}

TEST_P(EvernoteFailuresTest, AnotherOwnerOfTheNameIsNotAskedAboutWhatTheFirstOneListed)
{
    QProcess& first = startEvernote();
    connectTo();
    list();
    killService(first, platform::evernoteBundleIdentifier);
    startEvernote();
    EXPECT_EQ(make(), GetParam().about == About::Application ? "none" : "Gone");
}

INSTANTIATE_TEST_SUITE_P(OfEvernote, EvernoteFailuresTest, ::testing::ValuesIn(calls),
                         [](const auto& test) { return std::string(test.param.member); });

class EvernoteWithoutBusTest : public ::testing::Test {};

TEST_F(EvernoteWithoutBusTest, EveryCallSaysThatThereIsNone)
{
    DBusEvernoteApplication application(
        std::make_shared<platform::BusConnection>(text("disabled:")));
    for (const EvernoteCall& call : calls) {
        if (call.about == About::Notebook)
            continue;
        EXPECT_EQ(codeOf(call.make(application, {}, text("/tmp/out"))), "NoBus") << call.member;
    }
}

} // namespace
