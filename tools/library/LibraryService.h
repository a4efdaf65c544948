// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/BusConnection.h"
#include "platform/dbus/DBusQuilleryService.h"
#include "platform/scripting/QuilleryLibraryFolder.h"
#include "tools/library/LibraryOptions.h"

#include <QTimer>

#include <memory>

// A library folder that owns Quillery's name on the session bus, from the start to an orderly end:
// the import under way is carried out, those that wait are refused, whoever asks next finds no
// owner of the name.
class LibraryService {
public:
    explicit LibraryService(LibraryOptions options);

    // Finishes what an interrupted import left, then claims the name: a run that finds Quillery
    // begins by removing the files folder that the earlier one still needs. False with a sentence
    // when the name cannot be had.
    [[nodiscard]] bool start(QString* problem);

    // Ends as soon as no import is under way.
    void end();

private:
    [[nodiscard]] bool isNameFree(QString* problem);
    void finishInterruptedImports();
    void watchConnection();
    void noteActivity();
    void endWhenIdle();
    void endIfDone();

    const LibraryOptions m_options;
    const std::shared_ptr<platform::QuilleryLibraryFolder> m_library;
    platform::BusConnection m_bus;
    std::unique_ptr<platform::DBusQuilleryService> m_service;
    QTimer m_idleTimer;
    // Starts when the bus goes away.
    QTimer m_disconnection;
    bool m_isEnding = false;
};
