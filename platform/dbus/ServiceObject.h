// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/BusInterface.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVirtualObject>

#include <QHash>
#include <QVariant>

#include <functional>

namespace platform {

// The object that an application shows on the bus: takes its calls apart, checks their types and
// hands each to whoever serves it, who may answer later and on another thread. Lives on the thread
// with the event loop.
class ServiceObject : public QDBusVirtualObject {
public:
    ServiceObject(const BusInterface& interface, QDBusConnection connection);
    ~ServiceObject() override;

    // Puts it in its place on the bus; before the name is claimed, so that the first call finds it.
    // False when the place is taken or there is no bus.
    [[nodiscard]] bool registerObject();

    // The description from resources/dbus.
    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    // Calls that were taken and not yet answered.
    [[nodiscard]] int unansweredCalls() const { return m_unansweredCalls; }
    // Called after each call that arrives and each that was answered, on the object's thread.
    void setActivityHandler(std::function<void()> handler) { m_activity = std::move(handler); }

protected:
    using Handler = std::function<void(const QDBusMessage&)>;
    // A handler answers each call once, with answer() or refuse().
    void serveMethod(const QString& name, const QString& signature, Handler handler);
    void serveProperty(const QString& name, std::function<QString()> value);

    // On any thread.
    void answer(const QDBusMessage& call, const QVariantList& values = {});
    // errorName: without the application's prefix.
    void refuse(const QDBusMessage& call, const QString& errorName, const QString& text);
    // As the bus calls it when an argument is none that the method takes.
    void refuseArguments(const QDBusMessage& call, const QString& text);

private:
    struct Method {
        QString signature;
        Handler handler;
    };
    // With one of the bus's own error names.
    void refuseAsBus(const QDBusMessage& call, const char* errorName, const QString& text);
    void send(const QDBusMessage& call, const QDBusMessage& reply);
    void noteActivity(int change);
    [[nodiscard]] bool handleProperties(const QDBusMessage& message);
    [[nodiscard]] QVariantMap allProperties() const;

    const BusInterface m_interface;
    QDBusConnection m_connection;
    QHash<QString, Method> m_methods;
    QHash<QString, std::function<QString()>> m_properties;
    int m_unansweredCalls = 0;
    std::function<void()> m_activity;
};

} // namespace platform
