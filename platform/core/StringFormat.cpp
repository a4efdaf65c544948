// SPDX-License-Identifier: MIT
#include "platform/core/StringFormat.h"

namespace platform {

namespace {

struct Place {
    qsizetype length = 0; // of the place in the format; 0 when there is none
    int number = 0;       // 0: the next one in order
    bool isPercentSign = false;
};

Place placeAt(QStringView rest)
{
    if (rest.startsWith(u"%%"))
        return {2, 0, true};
    qsizetype at = 1;
    int number = 0;
    while (at < rest.size() && rest[at] >= u'0' && rest[at] <= u'9' && at < 4)
        number = number * 10 + (rest[at++].unicode() - u'0');
    if (at > 1) {
        if (number == 0 || at >= rest.size() || rest[at] != u'$')
            return {};
        ++at;
    }
    if (rest.sliced(at).startsWith(u'@'))
        return {at + 1, number, false};
    if (rest.sliced(at).startsWith(u"ld") || rest.sliced(at).startsWith(u"lu"))
        return {at + 2, number, false};
    return {};
}

} // namespace

QString stringWithFormat(const QString& format, const QStringList& arguments)
{
    QString result;
    int next = 1;
    for (qsizetype at = 0; at < format.size();) {
        const Place place = format[at] == u'%' ? placeAt(QStringView(format).sliced(at)) : Place();
        const int number = place.number != 0 ? place.number : next;
        if (place.isPercentSign) {
            result += u'%';
        } else if (place.length > 0 && number <= arguments.size()) {
            result += arguments[number - 1];
            next += place.number == 0 ? 1 : 0;
        } else {
            result += format[at++];
            continue;
        }
        at += place.length;
    }
    return result;
}

} // namespace platform
