// SPDX-License-Identifier: MIT
#include "convert/ENMLTagReplacement.h"

#include "convert/ConversionErrors.h"

#include <stdexcept>

using platform::Error;

namespace {

// The text as replaced so far, and where the first closer in it ends. Each part is looked at once,
// so that a page with thousands of tags takes time in proportion to its length.
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
        if (m_closerEnd >= 0 || m_closer.isEmpty())
            return;
        const qsizetype found = m_text.indexOf(m_closer, from);
        if (found >= 0)
            m_closerEnd = found + m_closer.size();
    }

    // -1 where there is none.
    [[nodiscard]] qsizetype closerEnd() const { return m_closerEnd; }
    [[nodiscard]] const QString& text() const { return m_text; }

private:
    QString m_closer;
    QString m_text;
    qsizetype m_closerEnd = -1;
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
            const qsizetype found = text.indexOf(closerAnywhere, start);
            if (replaced.closerEnd() == replaced.text().size())
                end = start; // right before the tag, it leaves nothing that could be read as one
            else if (replaced.closerEnd() >= 0)
                throw std::out_of_range("the end of a tag stands before its beginning");
            else if (found >= 0)
                end = found + closerAnywhere.size();
        }
        if (end < 0) {
            platform::setError(error, Error(evernoteXMLItemErrorDomain,
                                            EvernoteXMLItemErrorMalformedTag, invalidTagText));
            return std::nullopt;
        }
        const std::optional<platform::XMLElement> tag = platform::XMLElement::fromXmlString(
            QStringView(text).sliced(start, end - start), error);
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
