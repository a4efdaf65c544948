// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/QuilleryApplication.h"

namespace test {

// A Quillery that writes down what it was asked, one JSON object a line, and takes nothing.
class RecordingQuillery : public platform::QuilleryApplication {
public:
    // holdFile: an import is not answered before this file is there; empty to answer at once.
    // failure: the domain, code and text of every import's error, parted by ":"; empty for success.
    RecordingQuillery(QString recordFile, QString holdFile, const QString& failure);

    [[nodiscard]] QString version() override { return QStringLiteral("3.5.3"); }
    void activate() override;
    [[nodiscard]] bool importFiles(const QStringList& paths, ImportMode by, const QString& to,
                                   int withRating, const QString& withComments, int withLabel,
                                   const QStringList& withTags, platform::Error* error) override;

private:
    void record(const QJsonObject& call) const;

    const QString m_recordFile;
    const QString m_holdFile;
    const QString m_failure;
};

} // namespace test
