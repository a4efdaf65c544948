// SPDX-License-Identifier: MIT
#include "platform/webview/CssLength.h"

#include "platform/webview/MediaQuery.h"

#include <QList>

namespace platform {
namespace {

std::optional<double> number(QStringView text)
{
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

} // namespace

std::optional<double> cssLength(QStringView text)
{
    text = text.trimmed();
    if (text.startsWith(u"calc(") && text.endsWith(u')')) {
        // Sums and differences only; an operator stands between spaces.
        double sum = 0;
        double sign = 1;
        for (const QStringView term : text.mid(5).chopped(1).split(u' ', Qt::SkipEmptyParts)) {
            if (term == u"+" || term == u"-") {
                sign = term == u"-" ? -1 : 1;
                continue;
            }
            const std::optional<double> value = term.startsWith(u"calc") ? std::nullopt : cssLength(term);
            if (!value)
                return std::nullopt;
            sum += sign * *value;
        }
        return sum;
    }
    static const std::pair<QStringView, double> units[] = {{u"px", 1},
                                                           {u"rem", 16},
                                                           {u"em", 16},
                                                           {u"vw", viewWidth / 100},
                                                           {u"vh", viewHeight / 100},
                                                           {u"pt", 4.0 / 3},
                                                           {u"pc", 16},
                                                           {u"in", 96},
                                                           {u"cm", 96 / 2.54},
                                                           {u"mm", 96 / 25.4},
                                                           {u"vmin", viewHeight / 100},
                                                           {u"vmax", viewWidth / 100},
                                                           {u"ex", 8},
                                                           {u"ch", 8}};
    for (const auto& [unit, pixels] : units) {
        if (!text.endsWith(unit, Qt::CaseInsensitive))
            continue;
        const std::optional<double> value = number(text.chopped(unit.size()));
        if (value)
            return *value * pixels;
    }
    const std::optional<double> bare = number(text);
    return bare && *bare == 0 ? bare : std::nullopt;
}

} // namespace platform
