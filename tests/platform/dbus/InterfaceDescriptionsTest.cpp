// SPDX-License-Identifier: MIT
//
// What is written down in resources/dbus is what the services serve and tell of themselves.
#include "platform/dbus/BusInterface.h"

#include "BusFixture.h"
#include "platform/dbus/QuilleryErrorNames.h"
#include "platform/scripting/QuilleryIdentifiers.h"
#include "platform/scripting/QuilleryLibraryError.h"

#include <QtDBus/QDBusError>
#include <QtDBus/QDBusVariant>

#include <QXmlStreamReader>

namespace {

using platform::BusInterface;
using test::text;

struct Method {
    QString in;
    QString out;
    QStringList arguments;
    QString comment; // the one before it
};

struct Description {
    QString node;
    QString interface;
    QMap<QString, Method> methods;
    QMap<QString, QString> properties; // types
};

Description described(const QString& xml)
{
    Description description;
    QXmlStreamReader reader(xml);
    QString comment;
    QString method;
    while (!reader.atEnd()) {
        reader.readNext();
        const auto attribute = [&](const char* name) {
            return reader.attributes().value(QLatin1String(name)).toString();
        };
        if (reader.isComment())
            comment = reader.text().toString();
        if (!reader.isStartElement())
            continue;
        if (reader.name() == QLatin1String("node"))
            description.node = attribute("name");
        else if (reader.name() == QLatin1String("interface"))
            description.interface = attribute("name");
        if (!description.interface.startsWith(text("com.")))
            continue;
        if (reader.name() == QLatin1String("property")) {
            description.properties.insert(attribute("name"), attribute("type"));
        } else if (reader.name() == QLatin1String("method")) {
            method = attribute("name");
            description.methods[method].comment = comment;
        } else if (reader.name() == QLatin1String("arg")) {
            Method& current = description.methods[method];
            current.arguments += attribute("name");
            (attribute("direction") == text("in") ? current.in : current.out) += attribute("type");
        }
    }
    EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString());
    return description;
}

class InterfaceDescriptionsTest : public test::BusTest {
protected:
    void SetUp() override
    {
        BusTest::SetUp();
        startService({text("quillery")});
        startService({text("evernote"), m_folder.path()});
        m_connection = connect();
    }

    struct Served {
        const BusInterface& interface;
        QString name;
    };
    static QList<Served> served()
    {
        return {{platform::quilleryBusInterface(), platform::quillery::identifier},
                {platform::evernoteBusInterface(), platform::evernoteBundleIdentifier}};
    }

    static Description written(const BusInterface& interface)
    {
        const QString file = text(VUPUGE_SOURCE_DIRECTORY "/resources/dbus/%1.xml");
        return described(QString::fromUtf8(test::readFile(file.arg(interface.name))));
    }

    [[nodiscard]] QDBusMessage call(const Served& service, const QString& interface,
                                    const QString& member, const QVariantList& arguments = {})
    {
        QDBusMessage message =
            QDBusMessage::createMethodCall(service.name, service.interface.path, interface, member);
        message.setArguments(arguments);
        return m_connection->connection().call(message);
    }
    [[nodiscard]] QDBusMessage callProperties(const Served& service, const char* member,
                                              const QVariantList& arguments)
    {
        return call(service, text("org.freedesktop.DBus.Properties"), text(member), arguments);
    }

    std::shared_ptr<platform::BusConnection> m_connection;
};

TEST_F(InterfaceDescriptionsTest, AServiceShowsWhatIsWrittenDown)
{
    for (const Served& service : served()) {
        const Description file = written(service.interface);
        EXPECT_EQ(file.node, service.interface.path);
        EXPECT_EQ(file.interface, service.interface.name);
        const QDBusMessage reply =
            call(service, text("org.freedesktop.DBus.Introspectable"), text("Introspect"));
        ASSERT_EQ(reply.type(), QDBusMessage::ReplyMessage) << qPrintable(reply.errorMessage());
        const Description shown = described(reply.arguments().at(0).toString());
        EXPECT_EQ(shown.methods.keys(), file.methods.keys());
        EXPECT_EQ(shown.properties, file.properties);
        for (const QString& name : file.methods.keys()) {
            EXPECT_EQ(shown.methods[name].in, file.methods[name].in);
            EXPECT_EQ(shown.methods[name].out, file.methods[name].out);
        }
    }
}

TEST_F(InterfaceDescriptionsTest, TheInterfacesHaveTheTypesThatTheirCallersUse)
{
    const Description quillery = written(platform::quilleryBusInterface());
    EXPECT_EQ(quillery.methods.keys(), (QStringList{text("Activate"), text("ImportFiles")}));
    EXPECT_EQ(quillery.methods[text("ImportFiles")].in, "asusisias");
    EXPECT_EQ(quillery.properties.keys(), (QStringList{text("LibraryFolder"), text("Version")}));
    const Description evernote = written(platform::evernoteBusInterface());
    EXPECT_EQ(evernote.methods.keys(),
              (QStringList{text("Activate"), text("Export"), text("Notebooks"), text("Notes")}));
    EXPECT_EQ(evernote.methods[text("Notebooks")].out, "a(tsts)");
    EXPECT_EQ(evernote.methods[text("Notes")].out, "a(tsasaxaxsas)");
    EXPECT_EQ(evernote.methods[text("Export")].in, "atsbu");
    EXPECT_EQ(evernote.methods[text("Export")].out, "as");
    EXPECT_EQ(evernote.properties.keys(), QStringList(text("Version")));
}

TEST_F(InterfaceDescriptionsTest, EveryMethodAndArgumentIsExplained)
{
    for (const Served& service : served()) {
        const Description file = written(service.interface);
        for (auto method = file.methods.begin(); method != file.methods.end(); ++method) {
            EXPECT_TRUE(method->comment.simplified().startsWith(method.key() + text(":")))
                << qPrintable(method.key());
            for (const QString& argument : method->arguments)
                EXPECT_TRUE(method->comment.contains(text("@") + argument + text(":")));
        }
    }
}

TEST_F(InterfaceDescriptionsTest, EveryErrorOfALibraryIsExplainedAndHasANameOfItsOwn)
{
    const Description file = written(platform::quilleryBusInterface());
    const QString comment = file.methods[text("ImportFiles")].comment;
    QSet<QString> names;
    for (qint64 code = 1; code <= 9; ++code) {
        const platform::Error error(QLatin1String(platform::quilleryLibraryErrorDomain), code,
                                    text("reason"));
        const QString name = platform::quilleryErrorName(error);
        EXPECT_TRUE(comment.contains(text("        %1: ").arg(name))) << qPrintable(name);
        EXPECT_EQ(platform::quilleryErrorNamed(name, text("reason")), error);
        names.insert(name);
    }
    EXPECT_EQ(names.size(), 9);
    EXPECT_EQ(platform::quilleryErrorName({text("Other"), 1}), "Failed");
    EXPECT_FALSE(platform::quilleryErrorNamed(text("Failed"), {}));
}

TEST_F(InterfaceDescriptionsTest, ACallWithOtherTypesIsRefusedAsTheBusNamesIt)
{
    for (const Served& service : served()) {
        for (const QString& method : written(service.interface).methods.keys()) {
            const QDBusMessage reply =
                call(service, service.interface.name, method, {1.5, text("more")});
            EXPECT_EQ(reply.errorName(), "org.freedesktop.DBus.Error.InvalidArgs")
                << qPrintable(method);
        }
        const QDBusMessage reply = call(service, service.interface.name, text("NoSuchMethod"));
        EXPECT_EQ(reply.errorName(), "org.freedesktop.DBus.Error.UnknownMethod");
    }
}

TEST_F(InterfaceDescriptionsTest, CallsWithImpossibleValuesAreRefused)
{
    const auto import = [this](const QStringList& paths, uint mode) {
        return call(served()[0], platform::quilleryBusInterface().name, text("ImportFiles"),
                    {paths, mode, QString(), 0, QString(), 0, QStringList()})
            .errorName();
    };
    EXPECT_EQ(import({text("/a")}, 0x51666370), QString());
    EXPECT_EQ(import({text("/a")}, 0x51666371), "org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(import({text("/a"), text("b")}, 0x51666370),
              "org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(import({text("")}, 0x51666370), "org.freedesktop.DBus.Error.InvalidArgs");

    const auto exported = [this](const QList<qulonglong>& notes, const QString& path, uint format) {
        return call(served()[1], platform::evernoteBusInterface().name, text("Export"),
                    {QVariant::fromValue(notes), path, true, format})
            .errorName();
    };
    const QString path = m_folder.filePath("out.enex");
    EXPECT_EQ(exported({}, path, 0x656e6578), QString());
    EXPECT_EQ(exported({}, text("out.enex"), 0x656e6578), "org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(exported({}, path, 0), "org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(exported({0}, path, 0x656e6578), "com.evernote.Evernote.Error.NoSuchNote");
    EXPECT_EQ(exported({77}, path, 0x656e6578), "com.evernote.Evernote.Error.NoSuchNote");
    EXPECT_EQ(call(served()[1], platform::evernoteBusInterface().name, text("Notes"),
                   {qulonglong(1) << 63})
                  .errorName(),
              "com.evernote.Evernote.Error.NoSuchNotebook");
}

TEST_F(InterfaceDescriptionsTest, PropertiesCanBeReadOneByOneAndNotWritten)
{
    for (const Served& service : served()) {
        const QString& interface = service.interface.name;
        const QDBusMessage got = callProperties(service, "Get", {interface, text("Version")});
        ASSERT_EQ(got.signature(), "v");
        const QString version =
            service.name.contains(text("evernote")) ? text("10.2") : text("3.5.3");
        EXPECT_EQ(got.arguments().at(0).value<QDBusVariant>().variant(), version);
        const QVariant value = QVariant::fromValue(QDBusVariant(text("1.0")));
        EXPECT_EQ(callProperties(service, "Set", {interface, text("Version"), value}).errorName(),
                  "org.freedesktop.DBus.Error.PropertyReadOnly");
        EXPECT_EQ(callProperties(service, "Get", {interface, text("Other")}).errorName(),
                  "org.freedesktop.DBus.Error.UnknownProperty");
        EXPECT_EQ(callProperties(service, "GetAll", {text("com.example.Other")}).errorName(),
                  "org.freedesktop.DBus.Error.UnknownInterface");
    }
}

} // namespace
