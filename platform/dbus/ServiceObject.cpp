// SPDX-License-Identifier: MIT
#include "platform/dbus/ServiceObject.h"

#include "platform/dbus/BusText.h"

#include <QtDBus/QDBusVariant>

#include <QFile>

// Outside any namespace, because the macro declares a function there.
static void registerInterfaceDescriptions()
{
    Q_INIT_RESOURCE(interfaces);
}

namespace platform {

namespace {

const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString busErrorPrefix = QStringLiteral("org.freedesktop.DBus.Error.");

} // namespace

ServiceObject::ServiceObject(const BusInterface& interface, QDBusConnection connection)
    : m_interface(interface)
    , m_connection(std::move(connection))
{
    registerInterfaceDescriptions();
}

ServiceObject::~ServiceObject()
{
    m_connection.unregisterObject(m_interface.path);
}

bool ServiceObject::registerObject()
{
    return m_connection.registerVirtualObject(m_interface.path, this);
}

QString ServiceObject::introspect(const QString&) const
{
    QFile file(QStringLiteral(":/vupuge/dbus/%1.xml").arg(m_interface.name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // The bus's library writes the outermost element itself.
    const QString description = QString::fromUtf8(file.readAll());
    const qsizetype begin = description.indexOf(QLatin1String("<interface "));
    const QLatin1String closing("</interface>");
    return description.mid(begin, description.lastIndexOf(closing) + closing.size() - begin);
}

void ServiceObject::serveMethod(const QString& name, const QString& signature, Handler handler)
{
    m_methods.insert(name, {signature, std::move(handler)});
}

void ServiceObject::serveProperty(const QString& name, std::function<QString()> value)
{
    m_properties.insert(name, std::move(value));
}

bool ServiceObject::handleMessage(const QDBusMessage& message, const QDBusConnection&)
{
    if (message.type() != QDBusMessage::MethodCallMessage)
        return false;
    if (message.interface() == propertiesInterface)
        return handleProperties(message);
    // A call may leave the interface out.
    if (!message.interface().isEmpty() && message.interface() != m_interface.name)
        return false;
    noteActivity(+1);
    const auto method = m_methods.constFind(message.member());
    if (method == m_methods.constEnd()) {
        refuseAsBus(message, "UnknownMethod", message.member());
    } else if (message.signature() != method->signature) {
        refuseArguments(message,
                        QStringLiteral("%1 takes \"%2\", not \"%3\".")
                            .arg(message.member(), method->signature, message.signature()));
    } else {
        method->handler(message);
    }
    return true;
}

bool ServiceObject::handleProperties(const QDBusMessage& message)
{
    static const QHash<QString, QString> signatures = {
        {QStringLiteral("Get"), QStringLiteral("ss")},
        {QStringLiteral("GetAll"), QStringLiteral("s")},
        {QStringLiteral("Set"), QStringLiteral("ssv")}};
    const QString member = message.member();
    if (!signatures.contains(member) || message.signature() != signatures.value(member))
        return false;
    noteActivity(+1);
    const QString interface = message.arguments().constFirst().toString();
    const QString name = message.arguments().value(1).toString();
    if (!interface.isEmpty() && interface != m_interface.name)
        refuseAsBus(message, "UnknownInterface", interface);
    else if (member == QLatin1String("GetAll"))
        answer(message, {allProperties()});
    else if (!m_properties.contains(name))
        refuseAsBus(message, "UnknownProperty", name);
    else if (member == QLatin1String("Set"))
        refuseAsBus(message, "PropertyReadOnly", name);
    else
        answer(message, {QVariant::fromValue(QDBusVariant(busText(m_properties.value(name)())))});
    return true;
}

QVariantMap ServiceObject::allProperties() const
{
    QVariantMap properties;
    for (auto property = m_properties.begin(); property != m_properties.end(); ++property)
        properties.insert(property.key(), busText(property.value()()));
    return properties;
}

void ServiceObject::answer(const QDBusMessage& call, const QVariantList& values)
{
    send(call, call.createReply(values));
}

void ServiceObject::refuse(const QDBusMessage& call, const QString& errorName, const QString& text)
{
    send(call, call.createErrorReply(m_interface.errorPrefix + errorName, busText(text)));
}

void ServiceObject::refuseArguments(const QDBusMessage& call, const QString& text)
{
    refuseAsBus(call, "InvalidArgs", text);
}

void ServiceObject::refuseAsBus(const QDBusMessage& call, const char* errorName,
                                const QString& text)
{
    send(call, call.createErrorReply(busErrorPrefix + QLatin1String(errorName), busText(text)));
}

void ServiceObject::send(const QDBusMessage& call, const QDBusMessage& reply)
{
    if (call.isReplyRequired())
        m_connection.send(reply);
    QMetaObject::invokeMethod(
        this, [this] { noteActivity(-1); }, Qt::QueuedConnection);
}

void ServiceObject::noteActivity(int change)
{
    m_unansweredCalls += change;
    if (m_activity)
        m_activity();
}

} // namespace platform
