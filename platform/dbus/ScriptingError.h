// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

namespace platform {

// The errors of calls to another application over the session bus.
inline constexpr const char* scriptingErrorDomain = "ScriptingBridgeErrorDomain";

enum class ScriptingErrorCode : qint64 {
    NoBus = 1,        // there is no session bus, or none that takes us
    BusLost = 2,      // the connection to the bus ended before the answer came
    NotInstalled = 3, // the application neither runs nor can be started
    NotStarted = 4,   // it was to be started and did not come up
    Gone = 5, // it ended before it answered, or those that it gave us belong to an earlier start
    NoAnswer = 6,           // it runs but leaves a short question unanswered
    InvalidAnswer = 7,      // the answer has the wrong types, or values that cannot be
    NotUnderstood = 8,      // it does not know the call
    Refused = 9,            // it could or would not; the text is its own
    UnsendableArgument = 10 // an argument cannot be said over the bus
};

[[nodiscard]] Error scriptingError(ScriptingErrorCode code, const QString& text);

} // namespace platform
