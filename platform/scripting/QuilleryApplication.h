// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace platform {

// The notes application that receives an import, as its scripting interface offers it.
class QuilleryApplication {
public:
    virtual ~QuilleryApplication();

    // Numbers separated by ".", such as "3.5.3".
    [[nodiscard]] virtual QString version() = 0;

    // Brings the application to the front; starts it where it does not run.
    virtual void activate() = 0;

    // How files are taken over: a four-character code.
    enum class ImportMode : quint32 {
        Copy = 0x51666370 // 'Qfcp'
    };

    // Imports files; a manifest among them is carried out and its files folder deleted. destination:
    // identifier of a folder, empty for the manifest's own. False with an error when the application
    // could not take them; everything that it did not take is then still where it was.
    [[nodiscard]] virtual bool importFiles(const QStringList& paths, ImportMode by, const QString& to,
                                           int withRating, const QString& withComments, int withLabel,
                                           const QStringList& withTags, Error* error = nullptr)
        = 0;

    // Why the last thing that it was asked for got no answer, or an empty one in its place; none when it got
    // one.
    [[nodiscard]] virtual std::optional<Error> lastError();
};

} // namespace platform
