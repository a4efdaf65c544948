// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/core/Url.h"

#include <QMimeData>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <optional>

namespace platform {

class MimeBytes;

// Data of several types, each of them the same thing in another form. Types are told by the names
// in PasteboardTypes.h or by any others that programs agree on; the uniform type made of another's
// name (uniformTypeForPasteboardType) is that type.
class Pasteboard {
public:
    // An empty one, to be written.
    Pasteboard();
    // One that reads what somebody else offers and does not copy it: the data must outlive it. Writing to it
    // begins anew and leaves the other's data alone.
    explicit Pasteboard(const QMimeData& offered);

    // What it offers, under the MIME types and names that the data has.
    [[nodiscard]] QStringList formats() const { return m_data->formats(); }
    [[nodiscard]] bool offers(const QString& type) const;
    // The first of the types that it offers.
    [[nodiscard]] std::optional<QString> availableTypeFromArray(const QStringList& types) const;

    // None when the type is not offered; all but the first also when the data is not what they ask
    // for.
    [[nodiscard]] std::optional<QByteArray> dataForType(const QString& type) const;
    [[nodiscard]] std::optional<QString> stringForType(const QString& type) const;
    [[nodiscard]] std::optional<QVariant> propertyListForType(const QString& type) const;
    // Of a link that is offered. Addresses are taken as loosely as other programs write them.
    [[nodiscard]] std::optional<Url> url() const;

    void clearContents();
    void setData(const QByteArray& bytes, const QString& type);
    void setString(const QString& text, const QString& type);
    // Fails for what is no property list.
    [[nodiscard]] bool setPropertyList(const QVariant& value, const QString& type, Error* error = nullptr);
    void writeUrl(const Url& url);

    // A copy of everything, for the clipboard or a drag.
    [[nodiscard]] std::unique_ptr<QMimeData> mimeData() const;

private:
    [[nodiscard]] MimeBytes& ownData();

    std::shared_ptr<const QMimeData> m_data;
    std::shared_ptr<MimeBytes> m_ownData;
};

} // namespace platform
