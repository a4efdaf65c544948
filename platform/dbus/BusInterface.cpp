// SPDX-License-Identifier: MIT
#include "platform/dbus/BusInterface.h"

#include "platform/dbus/QuilleryErrorNames.h"

namespace platform {

const BusInterface& quilleryBusInterface()
{
    static const BusInterface interface = {
        QStringLiteral("Quillery"), QStringLiteral("/com/brightmoor/Quillery3"),
        QStringLiteral("com.brightmoor.Quillery3.Application"),
        QStringLiteral("com.brightmoor.Quillery3.Error."), &quilleryErrorNamed};
    return interface;
}

const BusInterface& evernoteBusInterface()
{
    static const BusInterface interface = {QStringLiteral("Evernote"),
                                           QStringLiteral("/com/evernote/Evernote"),
                                           QStringLiteral("com.evernote.Evernote.Application"),
                                           QStringLiteral("com.evernote.Evernote.Error.")};
    return interface;
}

} // namespace platform
