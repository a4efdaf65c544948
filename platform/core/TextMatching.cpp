// SPDX-License-Identifier: MIT
#include "platform/core/TextMatching.h"

#include <unicode/unorm.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <vector>

namespace platform {

namespace {

// The operation is run again with the room that it asks for.
template <class Operation>
QString grown(qsizetype expectedSize, Operation operation)
{
    QString result(expectedSize, Qt::Uninitialized);
    for (;;) {
        UErrorCode status = U_ZERO_ERROR;
        const int32_t size =
            operation(reinterpret_cast<char16_t*>(result.data()), int32_t(result.size()), &status);
        const bool fits = status != U_BUFFER_OVERFLOW_ERROR;
        Q_ASSERT(!fits || U_SUCCESS(status));
        result.resize(size);
        if (fits)
            return result;
    }
}

QString decomposed(QStringView text)
{
    UErrorCode status = U_ZERO_ERROR;
    static const UNormalizer2* const form = unorm2_getNFDInstance(&status);
    return grown(text.size() + text.size() / 2, [&](char16_t* buffer, int32_t capacity, UErrorCode* error) {
        return unorm2_normalize(form, text.utf16(), int32_t(text.size()), buffer, capacity, error);
    });
}

// Decomposed before and after, because a fold may leave what must be decomposed again.
QString folded(QStringView text)
{
    const QString form = decomposed(text);
    const QString lower = grown(form.size() + 16, [&](char16_t* buffer, int32_t capacity, UErrorCode* error) {
        return u_strFoldCase(buffer, capacity, reinterpret_cast<const char16_t*>(form.utf16()), int32_t(form.size()),
                             U_FOLD_CASE_DEFAULT, error);
    });
    return decomposed(lower);
}

bool isAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 0x80; });
}

// A text folded letter by letter, with the places where its letters begin and end.
struct FoldedLetters {
    QString text;
    std::vector<bool> isBoundary; // one for each place, the end included
};

FoldedLetters foldedLetters(QStringView text)
{
    UErrorCode status = U_ZERO_ERROR;
    static const UNormalizer2* const composition = unorm2_getNFCInstance(&status);
    FoldedLetters letters;
    letters.text.reserve(text.size());
    letters.isBoundary.reserve(size_t(text.size()) + 1);
    const auto end = int32_t(text.size());
    for (int32_t start = 0; start < end;) {
        int32_t next = start;
        UChar32 character = 0;
        const char16_t* const units = text.utf16();
        U16_NEXT(units, next, end, character);
        for (int32_t mark = next; mark < end; next = mark) {
            U16_NEXT(units, mark, end, character);
            if (unorm2_hasBoundaryBefore(composition, character))
                break;
        }
        if (next - start == 1 && units[start] < 0x80)
            letters.text += QChar(units[start]).toLower();
        else
            letters.text += folded(text.sliced(start, next - start));
        letters.isBoundary.resize(size_t(letters.text.size()) + 1);
        letters.isBoundary.back() = true;
        start = next;
    }
    letters.isBoundary.resize(size_t(letters.text.size()) + 1);
    letters.isBoundary.front() = true;
    return letters;
}

} // namespace

bool isEqualIgnoringCase(QStringView left, QStringView right)
{
    if (left.isEmpty() || right.isEmpty())
        return left.isEmpty() && right.isEmpty();
    UErrorCode status = U_ZERO_ERROR;
    return unorm_compare(left.utf16(), int32_t(left.size()), right.utf16(), int32_t(right.size()),
                         U_COMPARE_IGNORE_CASE, &status)
               == 0
           && U_SUCCESS(status);
}

bool containsIgnoringCase(QStringView text, QStringView part)
{
    if (part.isEmpty())
        return false;
    if (isAscii(text) && isAscii(part))
        return text.contains(part, Qt::CaseInsensitive);
    const FoldedLetters letters = foldedLetters(text);
    const QString sought = folded(part);
    for (qsizetype at = letters.text.indexOf(sought); at >= 0; at = letters.text.indexOf(sought, at + 1)) {
        if (letters.isBoundary[size_t(at)] && letters.isBoundary[size_t(at + sought.size())])
            return true;
    }
    return false;
}

QString decomposedString(const QString& text) { return isAscii(text) ? text : decomposed(text); }

} // namespace platform
