// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QHash>
#include <QString>

#include <array>
#include <memory>

namespace platform {

// The Windows code page of a font's \fcharset; 0 for a charset that leaves it to the document.
[[nodiscard]] int codePageOfCharset(int charset);

constexpr int rtfWindowsCodePage = 1252;
constexpr int rtfMacCodePage = 10000;
// Symbol fonts: the bytes are glyphs, of which the bullets have characters.
constexpr int rtfSymbolCodePage = 42;

// Turns bytes of the code pages that rich text names into text. A code page that is not known is
// read as 1252.
class RtfDecoders {
public:
    RtfDecoders();
    ~RtfDecoders();
    RtfDecoders(const RtfDecoders&) = delete;
    RtfDecoders& operator=(const RtfDecoders&) = delete;

    void append(QString& text, QByteArrayView bytes, int codePage);

private:
    class Decoder;
    [[nodiscard]] Decoder& decoderFor(int codePage);

    QHash<int, std::shared_ptr<Decoder>> m_decoders;
    int m_lastCodePage = -1;
    Decoder* m_lastDecoder = nullptr;
};

} // namespace platform
