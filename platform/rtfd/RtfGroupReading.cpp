// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfGroupTokens.h"
#include "platform/rtfd/RtfReadTables.h"

namespace platform {

namespace {

// A word of the instruction from the position on: in quotes, where a backslash escapes, or up to
// white space.
QString nextArgument(const QString& instruction, qsizetype& position)
{
    while (position < instruction.size() && instruction.at(position).isSpace())
        ++position;
    QString argument;
    if (position < instruction.size() && instruction.at(position) == u'"') {
        ++position;
        for (; position < instruction.size() && instruction.at(position) != u'"'; ++position) {
            const bool isEscape =
                instruction.at(position) == u'\\' && position + 1 < instruction.size() &&
                (instruction.at(position + 1) == u'\\' || instruction.at(position + 1) == u'"');
            if (isEscape)
                ++position;
            argument += instruction.at(position);
        }
        ++position;
        return argument;
    }
    for (; position < instruction.size() && !instruction.at(position).isSpace(); ++position)
        argument += instruction.at(position);
    return argument;
}

} // namespace

QString readRtfGroupText(RtfTokenizer& tokens, RtfDecoders& decoders, int codePage)
{
    QString text;
    QByteArray bytes;
    int substitutes = 1;
    qsizetype toSkip = 0;
    const auto flush = [&] {
        decoders.append(text, bytes, codePage);
        bytes.clear();
    };
    RtfGroupTokens group(tokens);
    while (const RtfToken* next = group.next()) {
        const RtfToken& token = *next;
        switch (token.kind) {
        case RtfToken::Kind::Text: {
            const qsizetype skipped = std::min(toSkip, token.bytes.size());
            toSkip -= skipped;
            bytes.append(token.bytes.sliced(skipped));
            break;
        }
        case RtfToken::Kind::Byte:
            if (toSkip > 0)
                --toSkip;
            else
                bytes.append(token.symbol);
            break;
        case RtfToken::Kind::Symbol:
            if (token.symbol == '*' && group.depth() > 1) {
                group.skipInnermost();
            } else if (token.symbol == '\\' || token.symbol == '{' || token.symbol == '}') {
                bytes.append(token.symbol);
            } else if (token.symbol == '~') {
                bytes.append(' ');
            } else if (token.symbol == '\n' || token.symbol == '\r') {
                bytes.append('\n');
            }
            break;
        case RtfToken::Kind::Word:
            if (token.bytes == "u") {
                flush();
                text += QChar(static_cast<char16_t>(token.number));
                toSkip = substitutes;
            } else if (token.bytes == "uc") {
                substitutes = std::clamp(token.number, 0, 255);
            } else if (token.bytes == "par" || token.bytes == "line") {
                bytes.append('\n');
            } else if (token.bytes == "tab") {
                bytes.append('\t');
            }
            break;
        default:
            break;
        }
    }
    flush();
    return text;
}

QString rtfLinkOfInstruction(const QString& instruction)
{
    qsizetype position = 0;
    if (nextArgument(instruction, position).compare(u"HYPERLINK", Qt::CaseInsensitive) != 0)
        return {};
    QString target;
    while (position < instruction.size()) {
        const QString argument = nextArgument(instruction, position);
        if (argument == u"\\l") {
            // A place within the target, or within this document.
            target += u'#' + nextArgument(instruction, position);
        } else if (argument == u"\\o" || argument == u"\\t" || argument == u"\\m") {
            (void)nextArgument(instruction, position);
        } else if (!argument.startsWith(u'\\') && target.isEmpty()) {
            target = argument;
        }
    }
    return target;
}

void readRtfInformation(RtfTokenizer& tokens, RtfDecoders& decoders, const RtfDocumentFacts& facts,
                        DocumentAttributes& attributes)
{
    const std::pair<QByteArrayView, QString&> entries[] = {
        {"title", attributes.title},         {"subject", attributes.subject},
        {"author", attributes.author},       {"company", attributes.company},
        {"copyright", attributes.copyright}, {"keywords", attributes.keywords},
        {"doccomm", attributes.comment},
    };
    RtfGroupTokens group(tokens);
    while (const RtfToken* token = group.next()) {
        if (token->kind != RtfToken::Kind::Word || group.depth() < 2)
            continue;
        for (const auto& [name, value] : entries) {
            if (token->bytes != name)
                continue;
            value = readRtfGroupText(tokens, decoders, facts.codePage);
            group.leaveInnermost();
            break;
        }
    }
}

void readRtfBackground(RtfTokenizer& tokens, DocumentAttributes& attributes)
{
    // A shape's properties are pairs of a name (\sn) and a value (\sv).
    enum class Part { None, Name, Value } part = Part::None;
    QByteArray name;
    QByteArray value;
    RtfGroupTokens group(tokens);
    while (const RtfToken* next = group.next()) {
        const RtfToken& token = *next;
        switch (token.kind) {
        case RtfToken::Kind::GroupClose:
            if (part == Part::Value && name == "fillColor") {
                const qint64 color = value.toLongLong();
                attributes.backgroundColor = Color::fromRgb8(static_cast<int>(color & 255),
                                                             static_cast<int>((color >> 8) & 255),
                                                             static_cast<int>((color >> 16) & 255));
            }
            part = Part::None;
            break;
        case RtfToken::Kind::Word:
            if (token.bytes == "sn") {
                part = Part::Name;
                name.clear();
            } else if (token.bytes == "sv") {
                part = Part::Value;
                value.clear();
            }
            break;
        case RtfToken::Kind::Text:
            if (part == Part::Name)
                name.append(token.bytes.trimmed());
            else if (part == Part::Value)
                value.append(token.bytes.trimmed());
            break;
        default:
            break;
        }
    }
}

} // namespace platform
