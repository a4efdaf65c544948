// SPDX-License-Identifier: MIT
#include "platform/dbus/DBusQuilleryApplication.h"

#include "BusFixture.h"
#include "platform/scripting/QuilleryIdentifiers.h"
#include "platform/scripting/QuilleryLibraryError.h"

#include <QJsonArray>

#include <thread>

namespace {

using platform::CallLimits;
using platform::DBusQuilleryApplication;
using platform::Error;
using platform::QuilleryApplication;
using test::Code;
using test::codeOf;
using test::text;
namespace quillery = platform::quillery;

constexpr auto copy = QuilleryApplication::ImportMode::Copy;

class DBusQuilleryApplicationTest : public test::BusTest {
protected:
    [[nodiscard]] std::unique_ptr<DBusQuilleryApplication> quillery(const CallLimits& limits = {})
    {
        return std::make_unique<DBusQuilleryApplication>(connect(), quillery::identifier, limits);
    }

    static bool import(QuilleryApplication& application, Error* error = nullptr)
    {
        return application.importFiles({text("/tmp/Evernote.qllibxml")}, copy, {}, 0, {}, 0, {},
                                       error);
    }
};

TEST_F(DBusQuilleryApplicationTest, ItsVersionAndLibraryFolderComeFromTheService)
{
    startService({text("quillery")});
    const auto application = quillery();
    EXPECT_EQ(application->libraryFolder(), QString());
    EXPECT_EQ(application->version(), "3.5.3");
    EXPECT_EQ(application->libraryFolder(), "/library");
    EXPECT_EQ(codeOf(application->lastError()), "none");
}

TEST_F(DBusQuilleryApplicationTest, ItsVersionIsAskedOnce)
{
    QProcess& service = startService({text("quillery")});
    const auto application = quillery();
    ASSERT_EQ(application->version(), "3.5.3");
    killService(service, quillery::identifier);
    EXPECT_EQ(application->version(), "3.5.3");
}

TEST_F(DBusQuilleryApplicationTest, ALibraryFolderThatIsNoAbsolutePathIsNone)
{
    startService({text("quillery"), text("--answer"), text("GetAll=a-relative-folder")});
    const auto application = quillery();
    EXPECT_EQ(application->version(), "3.5.3");
    EXPECT_EQ(application->libraryFolder(), QString());
}

TEST_F(DBusQuilleryApplicationTest, AnImportHandsEveryArgumentOver)
{
    startService({text("quillery"), text("--record"), recordFile()});
    const QString odd = text("/tmp/a b\u00e9\u4e2d\xF0\x9F\x98\x80 \"'\n.qllibxml");
    Error error;
    EXPECT_TRUE(quillery()->importFiles({odd, text("/two")}, copy, text("FOLDER"), 5,
                                        text("a comment"), -3, {text("one"), QString()}, &error));
    EXPECT_TRUE(error.isNull());
    ASSERT_EQ(record().size(), 1);
    const QJsonObject call = record()[0];
    EXPECT_EQ(call.value(text("call")).toString(), "importFiles");
    EXPECT_EQ(call.value(text("paths")).toArray(), (QJsonArray{odd, text("/two")}));
    EXPECT_EQ(call.value(text("by")).toDouble(), 0x51666370);
    EXPECT_EQ(call.value(text("to")).toString(), "FOLDER");
    EXPECT_EQ(call.value(text("withRating")).toInt(), 5);
    EXPECT_EQ(call.value(text("withComments")).toString(), "a comment");
    EXPECT_EQ(call.value(text("withLabel")).toInt(), -3);
    EXPECT_EQ(call.value(text("withTags")).toArray(), (QJsonArray{text("one"), text("")}));
}

TEST_F(DBusQuilleryApplicationTest, ActivatingReachesTheApplication)
{
    startService({text("quillery"), text("--record"), recordFile()});
    quillery()->activate();
    ASSERT_EQ(record().size(), 1);
    EXPECT_EQ(record()[0].value(text("call")).toString(), "activate");
}

TEST_F(DBusQuilleryApplicationTest, AnErrorOfTheLibraryIsTheSameErrorHere)
{
    for (qint64 code = 1; code <= 9; ++code) {
        QProcess& service = startService(
            {text("quillery"), text("--fail"),
             text("QuilleryLibraryErrorDomain:%1:It went: wrong \u201c\u4e2d\u201d").arg(code)});
        Error error;
        EXPECT_FALSE(import(*quillery(), &error));
        EXPECT_EQ(error, Error(QLatin1String(platform::quilleryLibraryErrorDomain), code,
                               text("It went: wrong \u201c\u4e2d\u201d")));
        killService(service, quillery::identifier);
    }
}

TEST_F(DBusQuilleryApplicationTest, AnyOtherErrorKeepsItsText)
{
    startService({text("quillery"), text("--fail"), text("SomeDomain:5:No room.")});
    Error error;
    const auto application = quillery();
    EXPECT_FALSE(import(*application, &error));
    EXPECT_EQ(codeOf(error), "Refused");
    EXPECT_EQ(error.localizedDescription(), "No room.");
    EXPECT_EQ(application->lastError(), error);
    EXPECT_EQ(application->version(), "3.5.3");
    EXPECT_EQ(codeOf(application->lastError()), "none");
}

TEST_F(DBusQuilleryApplicationTest, WhatTheBusCannotCarryIsNotSent)
{
    startService({text("quillery"), text("--record"), recordFile()});
    const auto application = quillery();
    const QString zero = text("/tmp/a") + QChar(QChar::Null) + text("b");
    const QString half = text("/tmp/") + QChar(0xD800);
    Error error;
    EXPECT_FALSE(application->importFiles({text("/ok"), zero}, copy, {}, 0, {}, 0, {}, &error));
    EXPECT_EQ(codeOf(error), "UnsendableArgument");
    EXPECT_FALSE(application->importFiles({half}, copy, {}, 0, {}, 0, {}, nullptr));
    EXPECT_FALSE(application->importFiles({}, copy, zero, 0, {}, 0, {}, nullptr));
    EXPECT_FALSE(application->importFiles({}, copy, {}, 0, half, 0, {}, nullptr));
    EXPECT_FALSE(application->importFiles({}, copy, {}, 0, {}, 0, {zero}, nullptr));
    EXPECT_EQ(codeOf(application->lastError()), "UnsendableArgument");
    EXPECT_TRUE(record().isEmpty());
}

TEST_F(DBusQuilleryApplicationTest, OtherCallsAreAnsweredDuringAnImportAndImportsWaitForEachOther)
{
    const QString gate = m_folder.filePath("gate");
    startService({text("quillery"), text("--record"), recordFile(), text("--hold"), gate});
    const auto application = quillery();
    std::array<bool, 2> taken = {};
    std::thread first([&] { taken[0] = import(*application); });
    ASSERT_TRUE(waitUntil([this] { return record().size() == 1; }));
    std::thread second([&] { taken[1] = import(*quillery()); });
    for (int count = 0; count < 20; ++count)
        EXPECT_EQ(quillery()->version(), "3.5.3");
    EXPECT_EQ(application->version(), "3.5.3");
    EXPECT_EQ(record().size(), 1);
    m_folder.write(text("gate"), {});
    first.join();
    second.join();
    EXPECT_TRUE(taken[0]);
    EXPECT_TRUE(taken[1]);
    EXPECT_EQ(record().size(), 2);
}

TEST_F(DBusQuilleryApplicationTest, AnImportGoesOnWhenItsCallerGoesAway)
{
    const QString gate = m_folder.filePath("gate");
    startService({text("quillery"), text("--record"), recordFile(), text("--hold"), gate});
    auto caller = connect();
    const auto& interface = platform::quilleryBusInterface();
    QDBusMessage message = QDBusMessage::createMethodCall(quillery::identifier, interface.path,
                                                          interface.name, text("ImportFiles"));
    message.setArguments({QStringList(text("/a")), static_cast<uint>(copy), QString(), 0, QString(),
                          0, QStringList()});
    caller->connection().send(message);
    ASSERT_TRUE(waitUntil([this] { return record().size() == 1; }));
    caller = nullptr;
    m_folder.write(text("gate"), {});
    const auto application = quillery();
    EXPECT_EQ(application->version(), "3.5.3");
    EXPECT_TRUE(import(*application));
    EXPECT_EQ(record().size(), 2);
}

TEST_F(DBusQuilleryApplicationTest, ManyThreadsMayAskOneApplicationAtOnce)
{
    startService({text("quillery"), text("--record"), recordFile()});
    const auto application = quillery();
    std::vector<std::thread> threads;
    for (int number = 0; number < 8; ++number) {
        threads.emplace_back([&] {
            for (int count = 0; count < 10; ++count) {
                EXPECT_EQ(application->version(), "3.5.3");
                application->activate();
                EXPECT_TRUE(import(*application));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(record().size(), 160);
}

} // namespace
