// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfGroupTokens.h"

namespace platform {

const RtfToken* RtfGroupTokens::next()
{
    if (m_depth <= 0)
        return nullptr;
    m_token = m_tokens.next();
    if (m_token.kind == RtfToken::Kind::End)
        m_depth = 0;
    else if (m_token.kind == RtfToken::Kind::GroupOpen)
        ++m_depth;
    else if (m_token.kind == RtfToken::Kind::GroupClose)
        --m_depth;
    return m_depth > 0 ? &m_token : nullptr;
}

void RtfGroupTokens::skipInnermost()
{
    for (const qint64 outer = m_depth - 1; m_depth > outer && next();) {
    }
}

void skipRtfGroup(RtfTokenizer& tokens)
{
    RtfGroupTokens group(tokens);
    while (group.next()) {
    }
}

} // namespace platform
