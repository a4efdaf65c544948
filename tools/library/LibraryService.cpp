// SPDX-License-Identifier: MIT
#include "tools/library/LibraryService.h"

#include <QCoreApplication>

#include <cstdio>

LibraryService::LibraryService(LibraryOptions options)
    : m_options(std::move(options))
    , m_library(std::make_shared<platform::QuilleryLibraryFolder>(m_options.library))
{
    m_idleTimer.setSingleShot(true);
    QObject::connect(&m_idleTimer, &QTimer::timeout, [this] { endWhenIdle(); });
    m_disconnection.setSingleShot(true);
    QObject::connect(&m_disconnection, &QTimer::timeout, [this] { end(); });
}

bool LibraryService::start(QString* problem)
{
    // Before the library is waited for, which another instance may hold for an import.
    if (!isNameFree(problem))
        return false;
    finishInterruptedImports();
    m_service = std::make_unique<platform::DBusQuilleryService>(m_library, m_bus.connection(),
                                                                m_library->directory());
    m_service->setActivityHandler([this] { noteActivity(); });
    watchConnection();
    using Claim = platform::BusConnection::Claim;
    const Claim claim =
        m_service->registerObject() ? m_bus.claimName(m_options.busName) : Claim::NoBus;
    if (claim == Claim::Taken)
        *problem = QStringLiteral("Another program already is %1.").arg(m_options.busName);
    else if (claim == Claim::NoBus)
        *problem = QStringLiteral("The session bus refuses the name %1.").arg(m_options.busName);
    noteActivity();
    return claim == Claim::Owned;
}

bool LibraryService::isNameFree(QString* problem)
{
    if (!m_bus.isConnected()) {
        *problem = QStringLiteral("There is no session bus.");
        return false;
    }
    if (!m_bus.owner(m_options.busName))
        return true;
    *problem = QStringLiteral("Another program already is %1.").arg(m_options.busName);
    return false;
}

void LibraryService::finishInterruptedImports()
{
    platform::Error error;
    if (!m_library->finishInterruptedImports(&error))
        std::fprintf(stderr, "vupuge-library: %s\n", qUtf8Printable(error.description()));
}

void LibraryService::watchConnection()
{
    // The bus's library itself sends this signal, and to slots alone.
    m_bus.connection().connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                               QStringLiteral("org.freedesktop.DBus.Local"),
                               QStringLiteral("Disconnected"), &m_disconnection, SLOT(start()));
}

void LibraryService::noteActivity()
{
    if (m_isEnding)
        endIfDone();
    else if (m_service->unansweredCalls() > 0)
        m_idleTimer.stop();
    else if (m_options.idleExit)
        m_idleTimer.start(*m_options.idleExit);
}

void LibraryService::endWhenIdle()
{
    // Calls that were on their way come in before the name is given up; later ones start the next
    // instance.
    m_bus.releaseName(m_options.busName);
    QCoreApplication::sendPostedEvents();
    m_isEnding = true;
    endIfDone();
}

void LibraryService::end()
{
    m_isEnding = true;
    m_idleTimer.stop();
    m_service->refuseImports();
    m_bus.releaseName(m_options.busName);
    endIfDone();
}

void LibraryService::endIfDone()
{
    if (m_service->unansweredCalls() > 0)
        return;
    m_bus.flush();
    QCoreApplication::quit();
}
