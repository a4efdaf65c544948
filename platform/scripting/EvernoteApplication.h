// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <vector>

namespace platform {

// One note of the Evernote application.
class EvernoteNote {
public:
    virtual ~EvernoteNote();
};

// One notebook of the Evernote application.
class EvernoteNotebook {
public:
    virtual ~EvernoteNotebook();

    [[nodiscard]] virtual QString name() = 0;
    // The notebook's notes, fetched whole.
    [[nodiscard]] virtual std::vector<std::shared_ptr<EvernoteNote>> notes() = 0;
};

// The Evernote application, as its scripting interface offers it.
class EvernoteApplication {
public:
    virtual ~EvernoteApplication();

    [[nodiscard]] virtual QString version() = 0;
    virtual void activate() = 0;
    [[nodiscard]] virtual std::vector<std::shared_ptr<EvernoteNotebook>> notebooks() = 0;
};

} // namespace platform
