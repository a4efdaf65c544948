// SPDX-License-Identifier: MIT
#include "platform/types/TypeCodes.h"
#include "platform/types/UniformTypes.h"

namespace {

using namespace Qt::StringLiterals;

TEST(TypeCodesTest, ACodeIsToldApartByCaseAndBlanks)
{
    EXPECT_EQ(platform::preferredIdentifierForTypeCode(u"PDF "), u"com.adobe.pdf"_s);
    EXPECT_EQ(platform::preferredIdentifierForTypeCode(u"PDF"), QString());
    EXPECT_EQ(platform::preferredIdentifierForTypeCode(u"pdf "), QString());
    EXPECT_EQ(platform::preferredIdentifierForTypeCode(u""), QString());
}

TEST(TypeCodesTest, CodesMeanDeclaredTypes)
{
    for (const QStringView code : {u"TEXT", u"JPEG", u"MooV", u"ilht", u"ilma", u"ilft", u"ilfi", u"W8BN"})
        EXPECT_NE(platform::typeDescription(platform::preferredIdentifierForTypeCode(code)), QString());
}

} // namespace
