// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/URLResponse.h"

namespace platform {

// A server's or a proxy's demand for a credential. No credential is ever sent: whatever the delegate
// does, the load goes on with the answer that the server gives to those who have none.
class AuthenticationChallenge {
public:
    explicit AuthenticationChallenge(const URLResponse& failureResponse)
        : m_failureResponse(failureResponse)
    {
    }

    // The answer with the demand, status 401 or 407.
    [[nodiscard]] const URLResponse& failureResponse() const { return m_failureResponse; }

    void continueWithoutCredential() { m_answered = true; }
    [[nodiscard]] bool isAnswered() const { return m_answered; }

private:
    const URLResponse& m_failureResponse;
    bool m_answered = false;
};

} // namespace platform
