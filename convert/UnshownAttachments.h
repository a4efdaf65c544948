// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EvernoteXMLNote.h"
#include "platform/xml/XMLNode.h"

// Adds the attachments that a body does not name at its end, one a line. Returns how many those
// are; an attachment without data that could be read is none of them.
quint64 appendUnshownAttachments(platform::XMLElement& body,
                                 const EvernoteXMLNote::Resources& resources);
