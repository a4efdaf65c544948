// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace platform {

// A type that nobody declared, known by the one tag that its identifier holds.
//
// The identifier is "dyn.a" and, in a base 32 of its own, the text "1=extension" or "3=mime/type",
// as macOS writes it. There, types of files also come as "?0=6:1=extension", where 0=6 says that
// the type conforms to public.data.
struct DynamicType {
    enum class Tag { Extension, MimeType };

    Tag tag;
    QString value;

    [[nodiscard]] QString identifier() const;
    [[nodiscard]] static std::optional<DynamicType> fromIdentifier(QStringView identifier);
};

} // namespace platform
