// SPDX-License-Identifier: MIT
//
// scripting-service quillery [OPTION...]
// scripting-service evernote FOLDER [OPTION...]
//
// Owns the name of Quillery or Evernote on the session bus until that goes away. The Evernote has a
// notebook for each ENEX file of the folder. When the name is owned it prints "ready".
//
//   --name NAME                         another name
//   --hold FILE                         imports and exports wait until this file is there
//   --record FILE, --fail DOMAIN:CODE:TEXT   see RecordingQuillery
//   --die-at CALL, --die-after CALL, --hang CALL, --release-name CALL, --refuse CALL=ERROR,
//   --answer CALL=NONSENSE              see Faults; each can be repeated
#include "platform/dbus/DBusEvernoteService.h"
#include "platform/dbus/DBusQuilleryService.h"
#include "platform/scripting/QuilleryIdentifiers.h"
#include "scripting-service/FaultyService.h"
#include "scripting-service/FolderEvernote.h"
#include "scripting-service/RecordingQuillery.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

using test::Faults;
using test::FaultyService;

namespace {

QString optionName(const char* name)
{
    return QString::fromLatin1(name);
}

constexpr std::pair<const char*, Faults::Kind> faultOptions[] = {
    {"die-at", Faults::Kind::DieAt},  {"die-after", Faults::Kind::DieAfter},
    {"hang", Faults::Kind::Hang},     {"release-name", Faults::Kind::ReleaseName},
    {"refuse", Faults::Kind::Refuse}, {"answer", Faults::Kind::Answer}};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    for (const char* const option : {"name", "record", "hold", "fail"})
        parser.addOption({optionName(option), {}, optionName("VALUE")});
    for (const auto& [option, kind] : faultOptions)
        parser.addOption({optionName(option), {}, optionName("CALL")});
    parser.process(application);

    Faults faults;
    for (const auto& [option, kind] : faultOptions) {
        for (const QString& call : parser.values(optionName(option)))
            faults.add(kind, call);
    }
    const QStringList words = parser.positionalArguments();
    const bool isEvernote = words.value(0) == optionName("evernote");
    QString name = parser.value(optionName("name"));
    if (name.isEmpty())
        name = isEvernote ? platform::evernoteBundleIdentifier : platform::quillery::identifier;

    platform::BusConnection bus;
    if (!bus.isConnected()) {
        std::fputs("scripting-service: no bus\n", stderr);
        return 1;
    }
    std::unique_ptr<platform::ServiceObject> service;
    if (isEvernote) {
        service = std::make_unique<FaultyService<platform::DBusEvernoteService>>(
            faults, bus, name,
            std::make_shared<test::FolderEvernote>(words.value(1),
                                                   parser.value(optionName("hold"))),
            bus.connection());
    } else {
        const auto quillery = std::make_shared<test::RecordingQuillery>(
            parser.value(optionName("record")), parser.value(optionName("hold")),
            parser.value(optionName("fail")));
        service = std::make_unique<FaultyService<platform::DBusQuilleryService>>(
            faults, bus, name, quillery, bus.connection(), optionName("/library"));
    }
    bus.connection().connect({}, optionName("/org/freedesktop/DBus/Local"),
                             optionName("org.freedesktop.DBus.Local"), optionName("Disconnected"),
                             QCoreApplication::instance(), SLOT(quit()));
    if (!service->registerObject() ||
        bus.claimName(name) != platform::BusConnection::Claim::Owned) {
        std::fputs("scripting-service: the name is taken\n", stderr);
        return 1;
    }
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
