// SPDX-License-Identifier: MIT
#include "platform/rtfd/RichText.h"
#include "platform/rtfd/RtfReader.h"
#include "platform/rtfd/RtfWriter.h"

namespace {

using namespace platform;

TEST(RtfRoundTripTest, EveryAttributeComesBackAndTheSecondWriteHasTheSameBytes)
{
    for (unsigned seed = 1; seed <= 400; ++seed) {
        std::mt19937 random(seed);
        const AttributedString text = test::randomText(random);
        const QByteArray first = rtfFromAttributedString(text);
        const AttributedString read = test::readRtf(first);
        ASSERT_EQ(read.string(), text.string()) << "seed " << seed;
        ASSERT_EQ(test::described(read), test::described(text)) << "seed " << seed;
        ASSERT_EQ(rtfFromAttributedString(read), first) << "seed " << seed;
    }
}

} // namespace
