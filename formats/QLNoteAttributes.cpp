// SPDX-License-Identifier: MIT
#include "formats/QLNoteAttributes.h"

#include "formats/ArchivedColors.h"
#include "formats/CoderQLExtensions.h"
#include "platform/defaults/UserDefaults.h"

using platform::ArchiveValue;
using platform::Color;
using platform::KeyedArchiver;
using platform::KeyedUnarchiver;

namespace {

const QString fileVersionKey = QStringLiteral("fileVersion");
const QString visibleCharsKey = QStringLiteral("visibleChars");
const QString selectedCharsKey = QStringLiteral("selectedChars");
const QString typingAttributesKey = QStringLiteral("typingAttributes");
const QString layoutOrientationKey = QStringLiteral("layoutOrientation");
const QString hyphenationFactorKey = QStringLiteral("hyphenationFactor");
const QString scaleFactorKey = QStringLiteral("scaleFactor");
const QString visibleCGRectKey = QStringLiteral("visibleCGRect");
const QString rulerVisibleKey = QStringLiteral("rulerVisible");
const QString backgroundColorComponentsKey = QStringLiteral("backgroundColorComponents");
const QString checklistItemsKey = QStringLiteral("checklistItems");
// Records below componentsFileVersion.
const QString oldVisibleRectKey = QStringLiteral("visibleRect");
const QString oldBackgroundColorKey = QStringLiteral("backgroundColor");

const QString redKey = QStringLiteral("red");
const QString greenKey = QStringLiteral("green");
const QString blueKey = QStringLiteral("blue");
const QString alphaKey = QStringLiteral("alpha");

ArchiveValue colorComponents(const Color& color)
{
    const auto entry = [](const QString& key, double value) {
        return ArchiveValue::Entry(ArchiveValue::string(key),
                                   ArchiveValue::floating(static_cast<float>(value)));
    };
    return ArchiveValue::dictionary({entry(redKey, color.red), entry(greenKey, color.green),
                                     entry(blueKey, color.blue), entry(alphaKey, color.alpha)});
}

ArchiveValue archivedItems(const std::optional<QLNoteChecklistItems>& items)
{
    if (!items)
        return {};
    QList<ArchiveValue> values;
    for (const auto& item : *items)
        values += ArchiveValue::object(item);
    return ArchiveValue::array(values, ArchiveValue::Mutability::Mutable);
}

std::optional<QLNoteChecklistItems> itemsFrom(const ArchiveValue& array)
{
    if (array.kind() != ArchiveValue::Kind::Array)
        return std::nullopt;
    QLNoteChecklistItems items;
    for (const ArchiveValue& value : array.elements()) {
        if (auto item = value.objectAs<QLNoteChecklistItem>())
            items.push_back(std::move(item));
    }
    return items;
}

} // namespace

const QString QLNoteAttributes::archivedClassName = QStringLiteral("QLNoteAttributes");

QLNoteAttributes::QLNoteAttributes()
{
    const platform::UserDefaults& defaults = platform::UserDefaults::standard();
    m_scaleFactor =
        static_cast<double>(defaults.floatForKey(QStringLiteral("DefaultNoteScaleFactor")));
    m_rulerVisible = defaults.boolForKey(QStringLiteral("NewNotesShowRuler"));
    m_backgroundColor = colorForDefaultsKey(QStringLiteral("DefaultNoteBackgroundColor"));
}

std::shared_ptr<QLNoteAttributes> QLNoteAttributes::copy() const
{
    return std::make_shared<QLNoteAttributes>(*this);
}

QStringList QLNoteAttributes::archivedClassNames() const
{
    return {archivedClassName, QStringLiteral("NSObject")};
}

void QLNoteAttributes::encodeWithCoder(KeyedArchiver& coder)
{
    coder.encodeInt64(currentFileVersion, fileVersionKey);
    encodeRangeInQuillery(coder, m_visibleChars, visibleCharsKey);
    encodeRangeInQuillery(coder, m_selectedChars, selectedCharsKey);
    coder.encodeObject(m_typingAttributes, typingAttributesKey);
    coder.encodeInt64(m_layoutOrientation, layoutOrientationKey);
    coder.encodeFloat(static_cast<float>(m_hyphenationFactor), hyphenationFactorKey);
    coder.encodeDouble(m_scaleFactor, scaleFactorKey);
    encodeCGRectInQuillery(coder, m_visibleRect, visibleCGRectKey);
    coder.encodeBool(m_rulerVisible, rulerVisibleKey);
    if (m_backgroundColor) {
        m_backgroundColor = m_backgroundColor->inDeviceRgb();
        coder.encodeObject(colorComponents(m_backgroundColor.value_or(Color{0, 0, 0, 0})),
                           backgroundColorComponentsKey);
    }
    coder.encodeObject(archivedItems(m_checklistItems), checklistItemsKey);
}

std::shared_ptr<QLNoteAttributes> QLNoteAttributes::initWithCoder(KeyedUnarchiver& coder)
{
    const std::shared_ptr<QLNoteAttributes> record(new QLNoteAttributes(Bare{}));
    record->setFileVersion(coder.decodeInt64(fileVersionKey));
    record->setVisibleChars(decodeRangeInQuilleryForKey(coder, visibleCharsKey));
    record->setSelectedChars(decodeRangeInQuilleryForKey(coder, selectedCharsKey));
    record->setTypingAttributes(coder.decodeObject(typingAttributesKey));
    record->setLayoutOrientation(coder.decodeInt64(layoutOrientationKey));
    record->setHyphenationFactor(static_cast<double>(coder.decodeFloat(hyphenationFactorKey)));
    record->setScaleFactor(coder.decodeDouble(scaleFactorKey));
    record->setRulerVisible(coder.decodeBool(rulerVisibleKey));
    if (record->fileVersion() < componentsFileVersion) {
        record->setVisibleRect(coder.decodeRect(oldVisibleRectKey));
        record->setBackgroundColor(
            colorOfArchivedObject(coder.decodeObject(oldBackgroundColorKey)));
    } else {
        record->setVisibleRect(decodeCGRectInQuilleryForKey(coder, visibleCGRectKey));
        record->decodeBackgroundColorComponents(coder);
    }
    record->setChecklistItems(itemsFrom(coder.decodeObject(checklistItemsKey)));
    return record;
}

void QLNoteAttributes::decodeBackgroundColorComponents(KeyedUnarchiver& coder)
{
    const ArchiveValue components = coder.decodeObject(backgroundColorComponentsKey);
    if (components.kind() != ArchiveValue::Kind::Dictionary)
        return;
    const auto component = [&components](const QString& key) {
        return static_cast<double>(components.valueForKey(key).toFloat());
    };
    setBackgroundColor(
        Color{component(redKey), component(greenKey), component(blueKey), component(alphaKey)});
}

std::optional<QByteArray>
QLNoteAttributes::archivedData(const std::shared_ptr<QLNoteAttributes>& record,
                               platform::Error* error)
{
    return KeyedArchiver::archivedDataWithRootObject(record, error);
}

std::shared_ptr<QLNoteAttributes> QLNoteAttributes::unarchivedFromData(QByteArrayView data)
{
    const platform::ArchivedClasses classes{
        {archivedClassName, &QLNoteAttributes::initWithCoder},
        {QLNoteChecklistItem::archivedClassName, &QLNoteChecklistItem::initWithCoder}};
    return KeyedUnarchiver::unarchiveObjectWithData(data, classes).objectAs<QLNoteAttributes>();
}
