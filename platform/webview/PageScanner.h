// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/FrameElement.h"
#include "platform/webview/MarkupTokenizer.h"

#include <QList>

namespace platform {

// What a document asks for, in document order.
struct PageReference {
    enum class Kind { StyleSheet, StyleText, StyleAttribute, Image, Icon, Frame };

    Kind kind = Kind::Image;
    // Absolute; of a frame, empty where it shows no address.
    QString address;
    // The style text in UTF-8; a frame's srcdoc in UTF-8.
    QByteArray text;
    // A link's charset attribute.
    QString charset;
    // Of style: its media match.
    bool applies = true;
    FrameElement element;
    // The document's base address where the reference stands.
    QString base;
};

// Finds in a document what a browser without scripts and plug-ins would load.
class PageScanner {
public:
    PageScanner(QByteArray markup, MarkupKind kind, QString base, QString mediaStyle);

    // Reads on for about so many bytes; true when the end is reached.
    bool advance(qsizetype byteCount);

    [[nodiscard]] QList<PageReference> takeReferences();
    // The text of the first title element.
    [[nodiscard]] QString title() const { return m_title.simplified(); }

private:
    void startTag();
    void endTag();
    void text();
    void instruction();
    void link();
    void image();
    void source();
    void frame(FrameElement::Kind kind);
    void object(FrameElement::Kind kind, const char* addressAttribute);
    void vectorReference();
    void add(PageReference::Kind kind, const QString& reference);
    void addAttribute(PageReference::Kind kind, const char* attribute);
    void addReference(PageReference reference);
    void endStyle();
    [[nodiscard]] FrameElement frameElement(FrameElement::Kind kind) const;

    QByteArray m_markup;
    QString m_base;
    QString m_mediaStyle;
    MarkupTokenizer m_tokenizer;
    bool m_hasBase = false;
    // Templates that are open: their content is not part of the page.
    int m_templates = 0;
    bool m_inStyle = false;
    bool m_styleApplies = true;
    QByteArray m_styleText;
    bool m_inPicture = false;
    // The image that the open picture's sources have settled on.
    QString m_pictureChoice;
    bool m_inTitle = false;
    QString m_title;
    QList<PageReference> m_found;
};

} // namespace platform
