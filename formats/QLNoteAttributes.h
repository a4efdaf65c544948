// SPDX-License-Identifier: MIT
#pragma once

#include "formats/QLNoteChecklistItem.h"
#include "platform/attributedtext/AttributedString.h"
#include "platform/attributedtext/Color.h"
#include "platform/propertylist/KeyedArchiver.h"
#include "platform/propertylist/KeyedCoding.h"
#include "platform/propertylist/KeyedUnarchiver.h"

#include <QRectF>

#include <memory>
#include <optional>

// How a note was last looked at and edited, and its checkboxes: the record that travels in every
// note file as a keyed archive. The notes application reads it, so its keys and types are a file
// format.
class QLNoteAttributes : public platform::KeyedCoding {
public:
    // The version that is written. Readers rebuild the checklists of older records from the text,
    // and look for the rectangle and the colour of records below 2000 under other keys.
    static constexpr qint64 currentFileVersion = 3000;
    static constexpr qint64 componentsFileVersion = 2000;

    // A new note's record; scale, ruler and background are the person's own choices for new notes,
    // from the settings "DefaultNoteScaleFactor", "NewNotesShowRuler" and
    // "DefaultNoteBackgroundColor".
    QLNoteAttributes();

    // The version as read.
    [[nodiscard]] qint64 fileVersion() const { return m_fileVersion; }
    void setFileVersion(qint64 version) { m_fileVersion = version; }

    // In UTF-16 code units.
    [[nodiscard]] platform::TextRange visibleChars() const { return m_visibleChars; }
    void setVisibleChars(platform::TextRange range) { m_visibleChars = range; }
    [[nodiscard]] platform::TextRange selectedChars() const { return m_selectedChars; }
    void setSelectedChars(platform::TextRange range) { m_selectedChars = range; }

    // A dictionary of text attributes as archived; null for none.
    [[nodiscard]] const platform::ArchiveValue& typingAttributes() const
    {
        return m_typingAttributes;
    }
    void setTypingAttributes(const platform::ArchiveValue& attributes)
    {
        m_typingAttributes = attributes;
    }

    // 0: horizontal.
    [[nodiscard]] qint64 layoutOrientation() const { return m_layoutOrientation; }
    void setLayoutOrientation(qint64 orientation) { m_layoutOrientation = orientation; }

    // 0 to 1.
    [[nodiscard]] double hyphenationFactor() const { return m_hyphenationFactor; }
    void setHyphenationFactor(double factor) { m_hyphenationFactor = factor; }

    [[nodiscard]] double scaleFactor() const { return m_scaleFactor; }
    void setScaleFactor(double factor) { m_scaleFactor = factor; }

    [[nodiscard]] bool rulerVisible() const { return m_rulerVisible; }
    void setRulerVisible(bool visible) { m_rulerVisible = visible; }

    [[nodiscard]] const QRectF& visibleRect() const { return m_visibleRect; }
    void setVisibleRect(const QRectF& rect) { m_visibleRect = rect; }

    [[nodiscard]] const std::optional<platform::Color>& backgroundColor() const
    {
        return m_backgroundColor;
    }
    void setBackgroundColor(const std::optional<platform::Color>& color)
    {
        m_backgroundColor = color;
    }

    // None is not the same as no boxes: a record that never had any.
    [[nodiscard]] const std::optional<QLNoteChecklistItems>& checklistItems() const
    {
        return m_checklistItems;
    }
    void setChecklistItems(const std::optional<QLNoteChecklistItems>& items)
    {
        m_checklistItems = items;
    }

    // A shallow copy: typing attributes and checklist items are the same objects.
    [[nodiscard]] std::shared_ptr<QLNoteAttributes> copy() const;

    static const QString archivedClassName;
    [[nodiscard]] QStringList archivedClassNames() const override;
    // Turns the background colour into device RGB for good.
    void encodeWithCoder(platform::KeyedArchiver& coder) override;
    [[nodiscard]] static std::shared_ptr<QLNoteAttributes>
    initWithCoder(platform::KeyedUnarchiver& coder);

    // The record as a keyed archive, and back. Null for an archive that holds no record; throws
    // platform::InvalidArchive for bytes that are no keyed archive.
    [[nodiscard]] static std::optional<QByteArray>
    archivedData(const std::shared_ptr<QLNoteAttributes>& record, platform::Error* error = nullptr);
    [[nodiscard]] static std::shared_ptr<QLNoteAttributes> unarchivedFromData(QByteArrayView data);

private:
    struct Bare {};
    explicit QLNoteAttributes(Bare) {}

    void decodeBackgroundColorComponents(platform::KeyedUnarchiver& coder);

    qint64 m_fileVersion = currentFileVersion;
    platform::TextRange m_visibleChars;
    platform::TextRange m_selectedChars;
    platform::ArchiveValue m_typingAttributes;
    qint64 m_layoutOrientation = 0;
    double m_hyphenationFactor = 0;
    double m_scaleFactor = 0;
    bool m_rulerVisible = false;
    QRectF m_visibleRect;
    std::optional<platform::Color> m_backgroundColor;
    std::optional<QLNoteChecklistItems> m_checklistItems;
};
