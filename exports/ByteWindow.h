// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/xml/InputStream.h"

#include <QtGlobal>

#include <string_view>
#include <vector>

// A stream seen through a window that moves over its bytes: what lies in it can be looked at
// several times, what lies before it is forgotten.
class ByteWindow {
public:
    // How many bytes can be in the window at once: few enough for the processor's nearer caches.
    static constexpr qsizetype capacity = 128 * 1024;

    // The stream must be open and outlive the window.
    explicit ByteWindow(platform::InputStream& stream);

    // The bytes that are in the window.
    [[nodiscard]] const char* begin() const { return m_begin; }
    [[nodiscard]] const char* end() const { return m_end; }
    [[nodiscard]] qsizetype size() const { return m_end - m_begin; }
    [[nodiscard]] std::string_view bytes() const
    {
        return {m_begin, static_cast<std::size_t>(size())};
    }

    // Brings that many bytes into the window, or all that are left; false when fewer are.
    bool require(qsizetype count) { return size() >= count || fill(count); }
    // Leaves bytes behind, up to a place in the window.
    void moveTo(const char* place) { m_begin = place; }
    void skip(qsizetype count) { m_begin += count; }

    // Of the window's first byte, from the stream's beginning.
    [[nodiscard]] qint64 offset() const { return m_bytesRead - size(); }

    // Why the stream ended before its end; a null error when it did not.
    [[nodiscard]] const platform::Error& error() const { return m_error; }

private:
    bool fill(qsizetype count);

    platform::InputStream& m_stream;
    std::vector<char> m_buffer;
    const char* m_begin;
    const char* m_end;
    qint64 m_bytesRead = 0;
    bool m_atEnd = false;
    platform::Error m_error;
};
