// SPDX-License-Identifier: MIT
#include "tools/TerminalText.h"

#include <cstdio>

namespace {

constexpr char32_t zeroWidthJoiner = 0x200D;

bool isHarmless(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    case QChar::Other_Format:
        return character == zeroWidthJoiner;
    default:
        return true;
    }
}

void writeLine(std::FILE* stream, const QString& text)
{
    std::fputs((terminalText(text) + QLatin1Char('\n')).toUtf8().constData(), stream);
    std::fflush(stream);
}

} // namespace

QString terminalText(const QString& text)
{
    QList<uint> characters = text.toUcs4();
    for (uint& character : characters) {
        if (!isHarmless(character))
            character = QChar::ReplacementCharacter;
    }
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), characters.size());
}

void printLine(const QString& text) { writeLine(stdout, text); }

void printProblem(const QString& text) { writeLine(stderr, QStringLiteral("vupuge-import: ") + text); }
