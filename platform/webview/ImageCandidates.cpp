// SPDX-License-Identifier: MIT
#include "platform/webview/ImageCandidates.h"

#include "platform/webview/CssLength.h"
#include "platform/webview/MediaQuery.h"

#include <QList>

namespace platform {
namespace {

// More than any picture has sizes.
constexpr qsizetype maximumCandidates = 1000;
constexpr qsizetype maximumSizes = 8192;

struct Candidate {
    QStringView address;
    double density = 1;
    bool hasWidth = false;
};

bool isSpace(QChar character)
{
    const ushort unit = character.unicode();
    return unit == ' ' || unit == '\t' || unit == '\n' || unit == '\f' || unit == '\r';
}

// Reads "2x" or "640w" into the candidate; false when the descriptors are not valid.
bool readDescriptors(QStringView text, double size, Candidate& candidate)
{
    for (const QStringView descriptor : text.toString().simplified().split(u' ', Qt::SkipEmptyParts)) {
        bool isNumber = false;
        const double value = descriptor.chopped(1).toDouble(&isNumber);
        if (!isNumber || value < 0)
            return false;
        if (descriptor.back() == u'w') {
            if (value == 0)
                return false;
            candidate.density = size > 0 ? value / size : value;
            candidate.hasWidth = true;
        } else if (descriptor.back() == u'x') {
            candidate.density = value;
        } else if (descriptor.back() != u'h') {
            return false;
        }
    }
    return true;
}

QList<Candidate> candidates(QStringView srcset, double size)
{
    QList<Candidate> result;
    qsizetype position = 0;
    while (position < srcset.size() && result.size() < maximumCandidates) {
        while (position < srcset.size() && (isSpace(srcset[position]) || srcset[position] == u','))
            ++position;
        const qsizetype start = position;
        while (position < srcset.size() && !isSpace(srcset[position]))
            ++position;
        Candidate candidate;
        candidate.address = srcset.mid(start, position - start);
        if (candidate.address.isEmpty())
            break;
        bool valid = true;
        if (candidate.address.endsWith(u',')) {
            while (candidate.address.endsWith(u','))
                candidate.address.chop(1);
        } else {
            const qsizetype descriptors = position;
            while (position < srcset.size() && srcset[position] != u',')
                ++position;
            valid = readDescriptors(srcset.mid(descriptors, position - descriptors), size, candidate);
        }
        if (valid)
            result += candidate;
    }
    return result;
}

} // namespace

double sourceSize(QStringView sizes)
{
    sizes = sizes.left(maximumSizes);
    qsizetype start = 0;
    int depth = 0;
    for (qsizetype index = 0; index <= sizes.size(); ++index) {
        const bool atEnd = index == sizes.size();
        if (!atEnd && sizes[index] == u'(')
            ++depth;
        else if (!atEnd && sizes[index] == u')')
            --depth;
        if (!atEnd && (sizes[index] != u',' || depth > 0))
            continue;
        const QStringView entry = sizes.mid(start, index - start).trimmed();
        start = index + 1;
        // The length is what stands behind the last space outside parentheses.
        qsizetype cut = entry.size();
        int inside = 0;
        while (cut > 0) {
            const QChar character = entry[cut - 1];
            if (character == u')')
                ++inside;
            else if (character == u'(')
                --inside;
            else if (isSpace(character) && inside == 0)
                break;
            --cut;
        }
        const std::optional<double> length = cssLength(entry.mid(cut));
        const QStringView condition = entry.left(cut).trimmed();
        if (length && *length >= 0 && (condition.isEmpty() || mediaConditionMatches(condition)))
            return *length;
    }
    return viewWidth;
}

QString chosenImage(QStringView srcset, QStringView sizes, const QString& src)
{
    QList<Candidate> all = candidates(srcset, sourceSize(sizes));
    const bool complete = std::any_of(all.cbegin(), all.cend(), [](const Candidate& candidate) {
        return candidate.hasWidth || candidate.density == 1;
    });
    if (!complete && !src.isEmpty())
        all += Candidate{src, 1, false};
    const Candidate* best = nullptr;
    for (const Candidate& candidate : all) {
        const bool better =
            !best
            || (best->density < 1 ? candidate.density > best->density
                                  : candidate.density >= 1 && candidate.density < best->density);
        if (better)
            best = &candidate;
    }
    return best ? best->address.toString() : QString();
}

} // namespace platform
