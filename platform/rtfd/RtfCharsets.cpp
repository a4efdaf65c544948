// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfCharsets.h"

#include <unicode/ucnv.h>

namespace platform {

namespace {

struct CharsetCodePage {
    int charset;
    int codePage;
};

constexpr CharsetCodePage codePages[] = {{0, rtfWindowsCodePage},
                                         {2, rtfSymbolCodePage},
                                         {77, rtfMacCodePage},
                                         {78, 10001},
                                         {79, 10003},
                                         {80, 10008},
                                         {81, 10002},
                                         {83, 10005},
                                         {84, 10004},
                                         {85, 10006},
                                         {86, 10081},
                                         {87, 10021},
                                         {88, 10029},
                                         {89, 10007},
                                         {128, 932},
                                         {129, 949},
                                         {130, 1361},
                                         {134, 936},
                                         {136, 950},
                                         {161, 1253},
                                         {162, 1254},
                                         {163, 1258},
                                         {177, 1255},
                                         {178, 1256},
                                         {186, 1257},
                                         {204, 1251},
                                         {222, 874},
                                         {238, 1250},
                                         {254, 437},
                                         {255, 850}};

struct ConverterName {
    int codePage;
    const char* name;
};

// Where the converter is not called after its number.
constexpr ConverterName converterNames[] = {{874, "windows-874-2000"},
                                            {932, "ibm-943_P15A-2003"},
                                            {936, "windows-936-2000"},
                                            {949, "windows-949-2000"},
                                            {950, "windows-950-2000"},
                                            {10000, "macintosh"},
                                            {10001, "ibm-943_P15A-2003"},
                                            {10002, "windows-950-2000"},
                                            {10003, "windows-949-2000"},
                                            {10004, "x-MacArabic"},
                                            {10005, "x-MacHebrew"},
                                            {10006, "x-mac-greek"},
                                            {10007, "x-mac-cyrillic"},
                                            {10008, "windows-936-2000"},
                                            {10021, "x-MacThai"},
                                            {10029, "x-mac-centraleurroman"},
                                            {10081, "x-mac-turkish"},
                                            {65001, "UTF-8"},
                                            {1361, "johab"}};

QByteArray converterName(int codePage)
{
    for (const ConverterName& known : converterNames) {
        if (known.codePage == codePage)
            return known.name;
    }
    const bool isWindows = codePage >= 1250 && codePage <= 1258;
    return (isWindows ? "windows-" : "ibm-") + QByteArray::number(codePage);
}

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0x80) == 0; });
}

} // namespace

int codePageOfCharset(int charset)
{
    for (const CharsetCodePage& known : codePages) {
        if (known.charset == charset)
            return known.codePage;
    }
    return 0;
}

class RtfDecoders::Decoder {
public:
    explicit Decoder(int codePage)
        : m_isSymbol(codePage == rtfSymbolCodePage)
    {
        UErrorCode status = U_ZERO_ERROR;
        m_converter = ucnv_open(
            converterName(m_isSymbol ? rtfWindowsCodePage : codePage).constData(), &status);
        if (U_FAILURE(status)) {
            status = U_ZERO_ERROR;
            m_converter = ucnv_open("windows-1252", &status);
        }
        m_hasTable = m_converter && ucnv_getMaxCharSize(m_converter) == 1;
        for (int byte = 0; m_hasTable && byte < 256; ++byte) {
            const char source = static_cast<char>(byte);
            QString character;
            convert(character, QByteArrayView(&source, 1));
            m_table[static_cast<std::size_t>(byte)] =
                character.isEmpty() ? u'\uFFFD' : character.at(0).unicode();
        }
        if (m_isSymbol) {
            m_table[0xB7] = u'\u2022';
            m_table[0xA7] = u'\u25AA';
        }
    }
    ~Decoder()
    {
        if (m_converter)
            ucnv_close(m_converter);
    }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    // False, with nothing appended, for a stray byte that begins no character: there are writers
    // that name a double-byte font for text that is none.
    bool append(QString& text, QByteArrayView bytes)
    {
        if (!m_hasTable) {
            const qsizetype start = text.size();
            convert(text, bytes);
            constexpr QChar substituteControl(u'\u001A');
            const bool isStray =
                bytes.size() <= 2 && text.size() == start + 1 &&
                (text.back() == substituteControl || text.back() == QChar::ReplacementCharacter);
            if (isStray)
                text.truncate(start);
            return !isStray;
        }
        const qsizetype start = text.size();
        text.resize(start + bytes.size());
        QChar* target = text.data() + start;
        for (const char byte : bytes)
            *target++ = QChar(m_table[static_cast<unsigned char>(byte)]);
        return true;
    }

private:
    void convert(QString& text, QByteArrayView bytes)
    {
        if (!m_converter) {
            text += QString::fromLatin1(bytes);
            return;
        }
        ucnv_resetToUnicode(m_converter);
        const char* source = bytes.data();
        const char* const end = source + bytes.size();
        std::array<UChar, 512> buffer{};
        for (UErrorCode status = U_BUFFER_OVERFLOW_ERROR; status == U_BUFFER_OVERFLOW_ERROR;) {
            status = U_ZERO_ERROR;
            UChar* target = buffer.data();
            ucnv_toUnicode(m_converter, &target, buffer.data() + buffer.size(), &source, end,
                           nullptr, true, &status);
            text.append(reinterpret_cast<const QChar*>(buffer.data()), target - buffer.data());
        }
    }

    bool m_isSymbol;
    UConverter* m_converter = nullptr;
    bool m_hasTable = false;
    std::array<char16_t, 256> m_table{};
};

RtfDecoders::RtfDecoders() = default;
RtfDecoders::~RtfDecoders() = default;

RtfDecoders::Decoder& RtfDecoders::decoderFor(int codePage)
{
    if (codePage == m_lastCodePage)
        return *m_lastDecoder;
    auto known = m_decoders.constFind(codePage);
    if (known == m_decoders.cend())
        known = m_decoders.insert(codePage, std::make_shared<Decoder>(codePage));
    m_lastCodePage = codePage;
    m_lastDecoder = known->get();
    return *m_lastDecoder;
}

void RtfDecoders::append(QString& text, QByteArrayView bytes, int codePage)
{
    if (bytes.isEmpty())
        return;
    if (isAscii(bytes))
        text.append(QLatin1String(bytes.data(), bytes.size()));
    else if (!decoderFor(codePage).append(text, bytes))
        decoderFor(rtfWindowsCodePage).append(text, bytes);
}

} // namespace platform
