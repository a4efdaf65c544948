// SPDX-License-Identifier: MIT
#include "support/ScratchFolder.h"

#include <QDir>

#define FUZZ_TARGET(name) extern "C" int name(const uint8_t* data, size_t size);
#include "FuzzTargets.inc"
#undef FUZZ_TARGET

namespace {

struct FuzzTarget {
    const char* name;
    int (*run)(const uint8_t*, size_t);
};

const FuzzTarget fuzzTargets[] = {
#define FUZZ_TARGET(name) {#name, name},
#include "FuzzTargets.inc"
#undef FUZZ_TARGET
};

class FuzzCorpusTest : public ::testing::TestWithParam<FuzzTarget> {
protected:
    // A target ends the program when something is wrong. The copy has no byte behind its end.
    static void run(const QByteArray& input)
    {
        const std::vector<uint8_t> bytes(input.begin(), input.end());
        EXPECT_EQ(GetParam().run(bytes.data(), bytes.size()), 0);
    }
};

TEST_P(FuzzCorpusTest, EveryInputIsTakenWithoutHarm)
{
    run(QByteArray());
    const QDir folder(QStringLiteral(VUPUGE_SOURCE_DIRECTORY "/fuzz/corpus/") +
                      QLatin1String(GetParam().name));
    for (const QString& name : folder.entryList(QDir::Files)) {
        SCOPED_TRACE(name.toStdString());
        run(test::readFile(folder.filePath(name)));
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, FuzzCorpusTest, ::testing::ValuesIn(fuzzTargets),
                         [](const auto& target) { return std::string(target.param.name); });

} // namespace
