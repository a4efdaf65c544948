// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/ServiceObject.h"
#include "platform/operations/OperationQueue.h"
#include "platform/scripting/EvernoteApplication.h"

#include <QHash>

#include <memory>
#include <unordered_map>

namespace platform {

// Serves an Evernote on the bus. Lists are made on one thread, exports, one after another, on a
// second, so that neither keeps the other waiting: the application must bear to be listed while it
// exports.
//
// A notebook or note that was listed keeps its identifier, and stays alive, for as long as the
// service does. An application that lists the same objects again costs nothing.
class DBusEvernoteService : public ServiceObject {
public:
    DBusEvernoteService(std::shared_ptr<EvernoteApplication> application,
                        const QDBusConnection& connection);
    // Waits for what was begun.
    ~DBusEvernoteService() override;

private:
    template <typename Listed>
    class Register {
    public:
        [[nodiscard]] quint64 identifierOf(const std::shared_ptr<Listed>& object)
        {
            const auto [entry, isNew] =
                m_identifiers.try_emplace(object.get(), m_objects.size() + 1);
            if (isNew)
                m_objects.push_back(object);
            return entry->second;
        }
        // Null for an identifier that was never given.
        [[nodiscard]] std::shared_ptr<Listed> object(quint64 identifier) const
        {
            return identifier > 0 && identifier <= m_objects.size() ? m_objects[identifier - 1]
                                                                    : nullptr;
        }

    private:
        std::unordered_map<Listed*, quint64> m_identifiers;
        std::vector<std::shared_ptr<Listed>> m_objects;
    };

    // On the thread of lists.
    void listNotebooks(const QDBusMessage& call);
    void listNotes(const QDBusMessage& call);
    void collectNotes(const QDBusMessage& call);

    [[nodiscard]] bool refuseIfFailed(const QDBusMessage& call, bool isEmpty);

    const std::shared_ptr<EvernoteApplication> m_application;
    Register<EvernoteNotebook> m_notebooks;
    Register<EvernoteNote> m_notes;
    OperationQueue m_lists;
    OperationQueue m_exports;
};

} // namespace platform
