// SPDX-License-Identifier: MIT
#pragma once

#include <QMimeData>

#include <vector>

namespace platform {

// MIME data that gives back the bytes that were put into it. QMimeData keeps lists of addresses as
// QUrls, which may be other texts.
class MimeBytes : public QMimeData {
public:
    void setBytes(const QString& format, const QByteArray& bytes);

    // In the order in which they were set first.
    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] bool hasFormat(const QString& format) const override;

protected:
    [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType type) const override;

private:
    struct Entry {
        QString format;
        QByteArray bytes;
    };
    std::vector<Entry> m_entries;
};

} // namespace platform
