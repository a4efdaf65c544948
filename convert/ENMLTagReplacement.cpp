// SPDX-License-Identifier: MIT
#include "convert/ENMLTagReplacement.h"

#include "convert/ConversionErrors.h"

#include <stdexcept>

using platform::Error;

namespace {

// The text as replaced so far, and whether a closer stands in it. Each part is looked at once, so that a page
// with thousands of tags takes time in proportion to its length.
class ReplacedText {
public:
    explicit ReplacedText(const QString& closer)
        : m_closer(closer)
    {
    }

    void append(QStringView part)
    {
        const qsizetype from = std::max<qsizetype>(0, m_text.size() - m_closer.size());
        m_text += part;
        if (!m_holdsCloser && !m_closer.isEmpty())
            m_holdsCloser = m_text.indexOf(m_closer, from) >= 0;
    }

    [[nodiscard]] bool holdsCloser() const { return m_holdsCloser; }
    [[nodiscard]] const QString& text() const { return m_text; }

private:
    QString m_closer;
    QString m_text;
    bool m_holdsCloser = false;
};

} // namespace

std::optional<QString> ENMLTagReplacement::applyTo(const QString& text, Error* error) const
{
    ReplacedText replaced(closerAnywhere);
    qsizetype position = 0;
    // Once a closer is missing behind one tag it is missing behind all that follow.
    bool closerMayFollow = true;
    for (;;) {
        const qsizetype start = text.indexOf(opener, position);
        if (start < 0)
            break;
        replaced.append(QStringView(text).sliced(position, start - position));
        const qsizetype after = start + opener.size();
        qsizetype end = -1;
        if (closerMayFollow) {
            const qsizetype found = text.indexOf(closer, after);
            closerMayFollow = found >= 0;
            if (closerMayFollow)
                end = found + closer.size();
        }
        if (end < 0 && !closerAnywhere.isEmpty()) {
            if (replaced.holdsCloser())
                throw std::out_of_range("the end of a tag stands before its beginning");
            const qsizetype found = text.indexOf(closerAnywhere, start);
            if (found >= 0)
                end = found + closerAnywhere.size();
        }
        if (end < 0) {
            platform::setError(error,
                               Error(evernoteXMLItemErrorDomain, EvernoteXMLItemErrorMalformedTag, invalidTagText));
            return std::nullopt;
        }
        const std::optional<platform::XMLElement> tag
            = platform::XMLElement::fromXmlString(QStringView(text).sliced(start, end - start), error);
        if (!tag)
            return std::nullopt;
        const std::optional<QString> replacement = replacementForTag(*tag, error);
        if (!replacement)
            return std::nullopt;
        replaced.append(*replacement);
        position = end;
    }
    replaced.append(QStringView(text).sliced(position));
    return replaced.text();
}
