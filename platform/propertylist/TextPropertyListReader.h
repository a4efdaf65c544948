// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>
#include <QVariant>

#include <optional>
#include <vector>

namespace platform {

// Reads the old text form, which hand-written settings and strings files still come in:
// { key = value; }, (a, b), <0fbd>, "quoted", bare words, both kinds of C comments, and entries
// without the outer braces. Every value is a string, data, a list or a dictionary.
//
// Left out: octal escapes above \177, whose meaning hangs on a character set of the 1980s.
class TextPropertyListReader {
public:
    explicit TextPropertyListReader(QString text);

    [[nodiscard]] std::optional<QVariant> read(Error* error);

private:
    // A list or dictionary that is still open.
    struct Frame {
        bool isDictionary = false;
        // A strings file: the end of the text closes it.
        bool isBraceless = false;
        QVariantList list;
        QVariantMap dictionary;
        QString key;
    };

    std::optional<QVariant> readDocument();
    std::optional<QVariant> readValues();
    bool readNext(QVariant* root);
    bool readEntryKey();
    bool openContainer(bool isDictionary);
    bool closeContainer(QVariant* root);
    bool addValue(const QVariant& value, QVariant* root);
    std::optional<QString> readString();
    std::optional<QString> readQuoted(QChar quote);
    std::optional<QString> readWord();
    std::optional<QChar> readEscape();
    std::optional<QVariant> readData();
    bool skipBlanks();
    [[nodiscard]] bool atEnd() const { return m_position >= m_text.size(); }
    [[nodiscard]] QChar current() const { return atEnd() ? QChar() : m_text[m_position]; }
    bool take(char expected);

    QString m_text;
    qsizetype m_position = 0;
    std::vector<Frame> m_open;
};

} // namespace platform
