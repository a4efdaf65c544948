// SPDX-License-Identifier: MIT
#include "platform/webview/MediaQuery.h"

#include "platform/webview/CssLength.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace platform {
namespace {

// Deeper than any condition that a person writes.
constexpr int maximumNesting = 8;
// A longer list is not a media query but an attempt to keep us busy.
constexpr qsizetype maximumLength = 8192;

enum class Relation { Equal, AtLeast, AtMost, Above, Below };

bool holds(double actual, Relation relation, double wanted)
{
    switch (relation) {
    case Relation::Equal:
        return qAbs(actual - wanted) < 1e-6;
    case Relation::AtLeast:
        return actual >= wanted;
    case Relation::AtMost:
        return actual <= wanted;
    case Relation::Above:
        return actual > wanted;
    case Relation::Below:
        return actual < wanted;
    }
    return false;
}

Relation mirrored(Relation relation)
{
    switch (relation) {
    case Relation::AtLeast:
        return Relation::AtMost;
    case Relation::AtMost:
        return Relation::AtLeast;
    case Relation::Above:
        return Relation::Below;
    case Relation::Below:
        return Relation::Above;
    case Relation::Equal:
        break;
    }
    return relation;
}

std::optional<double> number(QStringView text)
{
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

std::optional<double> ratio(QStringView text)
{
    const qsizetype slash = text.indexOf(u'/');
    if (slash < 0)
        return number(text);
    const std::optional<double> width = number(text.left(slash));
    const std::optional<double> height = number(text.mid(slash + 1));
    return width && height && *height > 0 ? std::optional(*width / *height) : std::nullopt;
}

// In device pixels to the CSS pixel.
std::optional<double> resolution(QStringView text)
{
    text = text.trimmed();
    if (text.endsWith(u"dppx"))
        return number(text.chopped(4));
    if (text.endsWith(u"dpi")) {
        const std::optional<double> value = number(text.chopped(3));
        return value ? std::optional(*value / 96) : std::nullopt;
    }
    if (text.endsWith(u'x'))
        return number(text.chopped(1));
    return std::nullopt;
}

struct RangeFeature {
    double actual;
    std::optional<double> (*read)(QStringView);
};

const RangeFeature* rangeFeature(const QString& name)
{
    static const QHash<QString, RangeFeature> features = {
        {QStringLiteral("width"), {viewWidth, cssLength}},
        {QStringLiteral("height"), {viewHeight, cssLength}},
        {QStringLiteral("device-width"), {viewWidth, cssLength}},
        {QStringLiteral("device-height"), {viewHeight, cssLength}},
        {QStringLiteral("aspect-ratio"), {viewWidth / viewHeight, ratio}},
        {QStringLiteral("device-aspect-ratio"), {viewWidth / viewHeight, ratio}},
        {QStringLiteral("resolution"), {1, resolution}},
        {QStringLiteral("-webkit-device-pixel-ratio"), {1, number}},
        {QStringLiteral("color"), {8, number}},
        {QStringLiteral("monochrome"), {0, number}},
        {QStringLiteral("color-index"), {0, number}},
        {QStringLiteral("grid"), {0, number}},
    };
    const auto found = features.constFind(name);
    return found == features.cend() ? nullptr : &*found;
}

bool keywordFeatureMatches(const QString& name, const QString& value)
{
    static const QHash<QString, QString> values = {
        {QStringLiteral("orientation"), QStringLiteral("landscape")},
        {QStringLiteral("hover"), QStringLiteral("hover")},
        {QStringLiteral("any-hover"), QStringLiteral("hover")},
        {QStringLiteral("pointer"), QStringLiteral("fine")},
        {QStringLiteral("any-pointer"), QStringLiteral("fine")},
        {QStringLiteral("update"), QStringLiteral("fast")},
        {QStringLiteral("scripting"), QStringLiteral("none")},
        {QStringLiteral("scan"), QStringLiteral("progressive")},
        {QStringLiteral("display-mode"), QStringLiteral("browser")},
        {QStringLiteral("color-gamut"), QStringLiteral("srgb")},
        {QStringLiteral("prefers-color-scheme"), QStringLiteral("light")},
        {QStringLiteral("prefers-contrast"), QStringLiteral("no-preference")},
        {QStringLiteral("prefers-reduced-motion"), QStringLiteral("no-preference")},
        {QStringLiteral("forced-colors"), QStringLiteral("none")},
        {QStringLiteral("inverted-colors"), QStringLiteral("none")},
    };
    const QString actual = values.value(name);
    if (value.isEmpty())
        return !actual.isEmpty() && actual != QLatin1String("none")
               && actual != QLatin1String("no-preference");
    return actual == value;
}

bool rangeHolds(const QString& name, Relation relation, QStringView value)
{
    const RangeFeature* feature = rangeFeature(name);
    if (!feature)
        return false;
    const std::optional<double> wanted = feature->read(value);
    return wanted && holds(feature->actual, relation, *wanted);
}

// "width >= 600px" and "400px < width <= 800px".
bool comparisonMatches(QStringView text)
{
    QStringList operands = {QString()};
    QList<Relation> relations;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QChar character = text[index];
        if (character != u'<' && character != u'>' && character != u'=') {
            operands.last() += character;
            continue;
        }
        const bool orEqual = index + 1 < text.size() && text[index + 1] == u'=';
        if (character == u'=')
            relations += Relation::Equal;
        else if (character == u'<')
            relations += orEqual ? Relation::AtMost : Relation::Below;
        else
            relations += orEqual ? Relation::AtLeast : Relation::Above;
        if (orEqual && character != u'=')
            ++index;
        operands += QString();
    }
    for (QString& operand : operands)
        operand = operand.trimmed();
    if (operands.size() == 2) {
        if (rangeFeature(operands[0]))
            return rangeHolds(operands[0], relations[0], operands[1]);
        return rangeHolds(operands[1], mirrored(relations[0]), operands[0]);
    }
    return operands.size() == 3 && rangeHolds(operands[1], mirrored(relations[0]), operands[0])
           && rangeHolds(operands[1], relations[1], operands[2]);
}

bool featureMatches(QStringView text)
{
    const qsizetype colon = text.indexOf(u':');
    if (colon < 0 && (text.contains(u'<') || text.contains(u'>') || text.contains(u'=')))
        return comparisonMatches(text);
    QString name = text.left(colon < 0 ? text.size() : colon).trimmed().toString();
    if (colon < 0) {
        const RangeFeature* feature = rangeFeature(name);
        return feature ? feature->actual != 0 : keywordFeatureMatches(name, QString());
    }
    const QStringView value = text.mid(colon + 1).trimmed();
    Relation relation = Relation::Equal;
    for (const auto& [prefix, meaning] :
         {std::pair("min-", Relation::AtLeast), std::pair("max-", Relation::AtMost)}) {
        const qsizetype at = name.indexOf(QLatin1String(prefix));
        if (at == 0 || (at == 8 && name.startsWith(QLatin1String("-webkit-")))) {
            name.remove(at, 4);
            relation = meaning;
            break;
        }
    }
    if (rangeFeature(name))
        return rangeHolds(name, relation, value);
    return relation == Relation::Equal && keywordFeatureMatches(name, value.toString());
}

// The position behind the parenthesis that closes the one at start, or -1.
qsizetype closingParenthesis(QStringView text, qsizetype start)
{
    int depth = 0;
    for (qsizetype index = start; index < text.size(); ++index) {
        if (text[index] == u'(')
            ++depth;
        else if (text[index] == u')' && --depth == 0)
            return index + 1;
    }
    return -1;
}

bool takeWord(QStringView& text, QStringView word)
{
    if (!text.startsWith(word))
        return false;
    if (text.size() > word.size() && !text[word.size()].isSpace() && text[word.size()] != u'(')
        return false;
    text = text.mid(word.size()).trimmed();
    return true;
}

// "(a) and (b)", "(a) or (b)", "not (a)", lower case.
bool conditionMatches(QStringView text, int depth)
{
    if (depth > maximumNesting)
        return false;
    text = text.trimmed();
    std::optional<bool> result;
    bool isOr = false;
    while (true) {
        const bool negated = takeWord(text, u"not");
        if (!text.startsWith(u'('))
            return false;
        const qsizetype end = closingParenthesis(text, 0);
        if (end < 0)
            return false;
        const QStringView inner = text.mid(1, end - 2).trimmed();
        const bool nested = inner.startsWith(u'(') || inner.startsWith(u"not ") || inner.startsWith(u"not(");
        const bool value = (nested ? conditionMatches(inner, depth + 1) : featureMatches(inner)) != negated;
        if (!result)
            result = value;
        else
            result = isOr ? (*result || value) : (*result && value);
        text = text.mid(end).trimmed();
        if (text.isEmpty())
            return *result;
        isOr = takeWord(text, u"or");
        if (!isOr && !takeWord(text, u"and"))
            return false;
    }
}

bool queryMatches(QStringView query, QStringView mediaStyle)
{
    query = query.trimmed();
    if (query.startsWith(u'('))
        return conditionMatches(query, 0);
    const bool negated = takeWord(query, u"not");
    if (negated && query.startsWith(u'('))
        return !conditionMatches(query, 0);
    takeWord(query, u"only");
    qsizetype end = 0;
    while (end < query.size() && !query[end].isSpace() && query[end] != u'(')
        ++end;
    const QStringView type = query.left(end);
    if (type.isEmpty())
        return false;
    bool matches = type == u"all" || type == mediaStyle;
    QStringView rest = query.mid(end).trimmed();
    if (!rest.isEmpty())
        matches = takeWord(rest, u"and") && conditionMatches(rest, 0) && matches;
    return matches != negated;
}

} // namespace

bool mediaQueryMatches(QStringView list, QStringView mediaStyle)
{
    if (list.size() > maximumLength)
        return false;
    const QString text = list.toString().toLower().simplified();
    if (text.isEmpty())
        return true;
    const QStringList queries = text.split(QLatin1Char(','));
    return std::any_of(queries.cbegin(), queries.cend(),
                       [&](const QString& query) { return queryMatches(query, mediaStyle); });
}

bool mediaConditionMatches(QStringView condition)
{
    return condition.size() <= maximumLength && conditionMatches(condition.toString().toLower(), 0);
}

} // namespace platform
