// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/StyleReader.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace platform {

// What a style sheet asks for.
struct StyleReference {
    enum class Kind { Sheet, Image, Font };

    Kind kind = Kind::Image;
    QString address;
    // Of a sheet: its own references count, because its media match.
    bool applies = true;
    // As it is written.
    QString text;
};

// Finds what UTF-8 style text refers to: @import, url(), image-set() and the one source of each @font-face
// that a browser would take. @media is evaluated; @supports is taken to hold unless it says "not". Imported
// sheets load whatever their media, as in a browser, but what they show counts only where their media match.
//
// One pass without recursion, in steps, so that a sheet of any size holds up nobody. A comment or string
// that never ends swallows the rest.
class StyleScanner {
public:
    enum class Form { Sheet, Declarations };

    // base is the sheet's own address. What does not apply yields only its imports.
    StyleScanner(QByteArray text, QString base, QString mediaStyle, Form form = Form::Sheet,
                 bool applies = true);

    // Reads on for about so many bytes; true when the end is reached.
    bool advance(qsizetype byteCount);

    // What was found since the last call, in order.
    [[nodiscard]] QList<StyleReference> takeReferences();

private:
    struct FontSource {
        QString address;
        QString format;
    };

    void readToken();
    void readIdentifier();
    void takeArgument(const QByteArray& function, const QByteArray& argument);
    void readAtRule();
    void readImport();
    void beginBlock();
    void endBlock();
    void endDeclaration();
    void add(StyleReference::Kind kind, const QByteArray& reference, bool applies = true);
    [[nodiscard]] bool isActive() const { return m_applies && m_inactiveDepth < 0; }

    // Keeps the text; what is read is a view of it.
    QByteArray m_bytes;
    StyleReader m_reader;
    QString m_base;
    QString m_mediaStyle;
    bool m_applies;
    int m_depth = 0;
    // The depth of the block whose content does not count, or of the @font-face block; -1 outside.
    int m_inactiveDepth = -1;
    int m_fontDepth = -1;
    bool m_importsAllowed;
    bool m_atDeclarationStart = true;
    QByteArray m_property;
    // Open parentheses, and how many were open around image-set(); -1 outside it.
    int m_parentheses = 0;
    int m_imageSet = -1;
    QList<FontSource> m_fontSources;
    QString m_font;
    QList<StyleReference> m_found;
};

} // namespace platform
