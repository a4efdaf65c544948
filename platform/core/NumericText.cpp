// SPDX-License-Identifier: MIT
#include "platform/core/NumericText.h"

#include "platform/core/CharacterSet.h"

#include <charconv>
#include <limits>
#include <string>

namespace platform {

namespace {

// The beginning as ASCII, without white space and without a plus sign, which from_chars does not know.
std::string asciiBeginning(QStringView text)
{
    while (!text.isEmpty() && isWhitespaceOrNewlineCharacter(text.front().unicode()))
        text = text.sliced(1);
    if (text.startsWith(u'+') && !text.startsWith(u"+-"))
        text = text.sliced(1);
    std::string ascii;
    for (const QChar character : text) {
        if (character.unicode() > 0x7F)
            break;
        ascii += static_cast<char>(character.unicode());
    }
    return ascii;
}

} // namespace

double doubleValue(QStringView text)
{
    const std::string ascii = asciiBeginning(text);
    // from_chars would read the words for infinity and for no number.
    const std::size_t first = ascii.find_first_of("0123456789");
    if (first == std::string::npos || ascii.find_first_not_of("-.0123456789") < first)
        return 0;
    double value = 0;
    std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
    return value;
}

qint64 integerValue(QStringView text)
{
    const std::string ascii = asciiBeginning(text);
    qint64 value = 0;
    const auto result = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        return ascii.front() == '-' ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
    }
    return value;
}

} // namespace platform
