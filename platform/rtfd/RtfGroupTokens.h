// SPDX-License-Identifier: MIT
#pragma once

#include "platform/rtfd/RtfTokenizer.h"

namespace platform {

// The tokens of the group that the last opening brace began, those of its inner groups among them.
// The brace that ends it is taken off the tokenizer, and given to nobody.
class RtfGroupTokens {
public:
    explicit RtfGroupTokens(RtfTokenizer& tokens)
        : m_tokens(tokens)
    {
    }

    // Null when the group or the document is over. What it points at changes with the next call.
    [[nodiscard]] const RtfToken* next();

    // 1 in the group itself. An inner group counts from its opening brace on, and no more at its
    // closing one.
    [[nodiscard]] qint64 depth() const { return m_depth; }

    // Passes over what is left of the innermost group that is open.
    void skipInnermost();
    // Another reader has taken the innermost group's tokens, its end among them.
    void leaveInnermost() { --m_depth; }

private:
    RtfTokenizer& m_tokens;
    RtfToken m_token;
    qint64 m_depth = 1;
};

// Reads on to the end of the group that the last opening brace began, and past it.
void skipRtfGroup(RtfTokenizer& tokens);

} // namespace platform
