// SPDX-License-Identifier: MIT
#include "platform/types/UniformTypes.h"

#include "platform/types/DeclaredTypes.h"
#include "platform/types/DynamicType.h"

#include <QMimeDatabase>

#include <ostream>

namespace {

using platform::DynamicType;
using platform::mimeTypeForType;
using platform::preferredExtensionForType;
using platform::preferredIdentifierForExtension;
using platform::preferredIdentifierForMimeType;
using platform::typeConformsTo;
using platform::typeDescription;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

struct Row {
    const char* mimeType;
    const char* identifier;
    const char* extensions;
};

void PrintTo(const Row& row, std::ostream* stream)
{
    *stream << row.identifier;
}

class UniformTypeRowTest : public ::testing::TestWithParam<Row> {};

TEST_P(UniformTypeRowTest, IsFoundByItsMimeTypeAndEveryExtension)
{
    const Row& row = GetParam();
    const QStringList extensions = text(row.extensions).split(QLatin1Char(' '));
    if (*row.mimeType) {
        EXPECT_EQ(preferredIdentifierForMimeType(text(row.mimeType)), text(row.identifier));
        EXPECT_EQ(mimeTypeForType(text(row.identifier)), text(row.mimeType));
    }
    EXPECT_EQ(preferredExtensionForType(text(row.identifier)), extensions.first());
    EXPECT_FALSE(typeDescription(text(row.identifier)).isEmpty());
    // An MPEG-4 file by its name is taken for a movie.
    const bool sharesItsExtension = text(row.identifier) == text("public.mpeg-4-audio");
    for (const QString& extension : extensions) {
        EXPECT_EQ(preferredIdentifierForExtension(extension),
                  sharesItsExtension ? text("public.mpeg-4") : text(row.identifier));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Types, UniformTypeRowTest,
    ::testing::Values(
        Row{"image/jpeg", "public.jpeg", "jpeg jpg jpe"}, Row{"image/png", "public.png", "png"},
        Row{"image/gif", "com.compuserve.gif", "gif"}, Row{"image/tiff", "public.tiff", "tiff tif"},
        Row{"image/bmp", "com.microsoft.bmp", "bmp"},
        Row{"image/webp", "org.webmproject.webp", "webp"},
        Row{"image/svg+xml", "public.svg-image", "svg"},
        Row{"application/pdf", "com.adobe.pdf", "pdf"},
        Row{"text/plain", "public.plain-text", "txt text"},
        Row{"text/html", "public.html", "html htm"}, Row{"text/rtf", "public.rtf", "rtf"},
        Row{"audio/mpeg", "public.mp3", "mp3 mpga"}, Row{"audio/mp4", "public.mpeg-4-audio", "mp4"},
        Row{"audio/x-m4a", "com.apple.m4a-audio", "m4a"},
        Row{"audio/wav", "com.microsoft.waveform-audio", "wav"},
        Row{"audio/amr", "org.3gpp.adaptive-multi-rate-audio", "amr"},
        Row{"video/mp4", "public.mpeg-4", "mp4"},
        Row{"video/quicktime", "com.apple.quicktime-movie", "mov qt"},
        Row{"application/x-webarchive", "com.apple.webarchive", "webarchive"},
        Row{"", "com.apple.web-internet-location", "webloc"},
        Row{"application/vnd.openxmlformats-officedocument.wordprocessingml.document",
            "org.openxmlformats.wordprocessingml.document", "docx"},
        Row{"application/vnd.ms-excel", "com.microsoft.excel.xls", "xls"},
        Row{"application/zip", "public.zip-archive", "zip"},
        Row{"image/heic", "public.heic", "heic"},
        Row{"text/csv", "public.comma-separated-values-text", "csv"},
        Row{"text/calendar", "com.apple.ical.ics", "ics"}, Row{"text/vcard", "public.vcard", "vcf"},
        Row{"application/epub+zip", "org.idpf.epub-container", "epub"}));

struct Conformance {
    const char* identifier;
    const char* general;
    bool conforms;
};

void PrintTo(const Conformance& conformance, std::ostream* stream)
{
    *stream << conformance.identifier << " to " << conformance.general;
}

class UniformTypeConformanceTest : public ::testing::TestWithParam<Conformance> {};

TEST_P(UniformTypeConformanceTest, IsAsDeclared)
{
    EXPECT_EQ(typeConformsTo(text(GetParam().identifier), text(GetParam().general)),
              GetParam().conforms);
}

INSTANTIATE_TEST_SUITE_P(
    Types, UniformTypeConformanceTest,
    ::testing::Values(Conformance{"public.png", "public.image", true},
                      Conformance{"public.png", "public.png", true},
                      Conformance{"PUBLIC.PNG", "public.Image", true},
                      Conformance{"public.image", "public.png", false},
                      Conformance{"public.png", "public.movie", false},
                      Conformance{"public.png", "public.item", true},
                      Conformance{"public.mp3", "public.audio", true},
                      Conformance{"public.mp3", "public.movie", false},
                      Conformance{"com.apple.quicktime-movie", "public.movie", true},
                      Conformance{"public.mpeg-4", "public.movie", true},
                      Conformance{"public.mpeg-4", "public.audiovisual-content", true},
                      Conformance{"public.mpeg-4", "public.audio", false},
                      Conformance{"public.mpeg-4-audio", "public.audio", true},
                      Conformance{"public.mpeg-4-audio", "public.movie", false},
                      Conformance{"public.video", "public.movie", true},
                      Conformance{"public.html", "public.text", true},
                      Conformance{"public.html", "public.html", true},
                      Conformance{"public.html", "public.image", false},
                      Conformance{"com.apple.webarchive", "public.composite-content", true},
                      Conformance{"com.apple.webarchive", "public.content", true},
                      Conformance{"com.adobe.pdf", "public.composite-content", true},
                      Conformance{"com.adobe.pdf", "public.image", false},
                      Conformance{"com.apple.web-internet-location", "com.apple.internet-location",
                                  true},
                      Conformance{"com.canon.cr2-raw-image", "public.image", true},
                      Conformance{"no.such.type", "public.data", false},
                      Conformance{"", "public.data", false}, Conformance{"public.data", "", false},
                      Conformance{"", "", false}));

TEST(UniformTypesTest, TagsAreComparedWhateverTheirCaseButElseExactly)
{
    EXPECT_EQ(preferredIdentifierForMimeType(u"IMAGE/Png"), text("public.png"));
    EXPECT_EQ(preferredIdentifierForExtension(u"JPG"), text("public.jpeg"));
    for (const char* mimeType :
         {" image/png", "image/png ", "text/plain; charset=utf-8", "image", "image/"})
        EXPECT_TRUE(preferredIdentifierForMimeType(text(mimeType)).startsWith(text("dyn.a")))
            << mimeType;
    EXPECT_TRUE(preferredIdentifierForExtension(u".png").startsWith(text("dyn.a")));
}

TEST(UniformTypesTest, AnEmptyTagHasNoType)
{
    EXPECT_EQ(preferredIdentifierForMimeType(u""), QString());
    EXPECT_EQ(preferredIdentifierForExtension(u""), QString());
}

TEST(UniformTypesTest, UnknownTagsHaveDynamicTypesThatConformToNothing)
{
    const QString image = preferredIdentifierForMimeType(u"image/x-never-seen");
    EXPECT_TRUE(image.startsWith(text("dyn.a")));
    EXPECT_EQ(image, preferredIdentifierForMimeType(u"image/X-NEVER-SEEN"));
    EXPECT_NE(image, preferredIdentifierForMimeType(u"image/x-never-seen-either"));
    EXPECT_FALSE(typeConformsTo(image, u"public.image"));
    EXPECT_FALSE(typeConformsTo(image, u"public.data"));
    EXPECT_TRUE(typeConformsTo(image, image));
    EXPECT_EQ(preferredExtensionForType(image), std::nullopt);
    EXPECT_EQ(mimeTypeForType(image), text("image/x-never-seen"));
    EXPECT_EQ(typeDescription(image), QString());
}

TEST(UniformTypesTest, ADynamicTypeHasTheExtensionItWasMadeFrom)
{
    const QString type = preferredIdentifierForExtension(u"Vupuge");
    EXPECT_EQ(preferredExtensionForType(type), text("vupuge"));
    EXPECT_EQ(mimeTypeForType(type), std::nullopt);
    EXPECT_EQ(typeDescription(type), QString());
}

TEST(UniformTypesTest, TheSystemKnowsTheExtensionsOfMimeTypesThatWeDoNot)
{
    if (!QMimeDatabase().mimeTypeForName(text("application/x-mobipocket-ebook")).isValid())
        GTEST_SKIP() << "the system's MIME database does not know this type";
    const QString type = preferredIdentifierForMimeType(u"application/x-mobipocket-ebook");
    EXPECT_TRUE(type.startsWith(text("dyn.a")));
    EXPECT_EQ(preferredExtensionForType(type), text("mobi"));
    EXPECT_FALSE(typeDescription(type).isEmpty());
}

TEST(UniformTypesTest, InkDrawingsHaveNoTypeOfTheirOwn)
{
    const QString type = preferredIdentifierForMimeType(u"application/vnd.evernote.ink");
    EXPECT_FALSE(typeConformsTo(type, u"public.image"));
    EXPECT_EQ(preferredExtensionForType(type), std::nullopt);
}

TEST(UniformTypesTest, BytesOfAnyKindHaveNoExtension)
{
    EXPECT_EQ(preferredIdentifierForMimeType(u"application/octet-stream"), text("public.data"));
    EXPECT_EQ(preferredExtensionForType(u"public.data"), std::nullopt);
}

TEST(UniformTypesTest, DescribesTypes)
{
    EXPECT_EQ(typeDescription(u"public.png"), text("PNG image"));
    EXPECT_EQ(typeDescription(u"com.adobe.pdf"), text("PDF document"));
    EXPECT_EQ(typeDescription(u"com.apple.webarchive"), text("Web archive"));
    EXPECT_EQ(typeDescription(u"no.such.type"), QString());
}

TEST(UniformTypesTest, UnknownIdentifiersHaveNoTags)
{
    for (const char* identifier :
         {"", "no.such.type", "dyn.", "dyn.a", "dyn.aJ", "dyn.b", "dyn.ah62d4rv4"}) {
        EXPECT_EQ(preferredExtensionForType(text(identifier)), std::nullopt) << identifier;
        EXPECT_EQ(mimeTypeForType(text(identifier)), std::nullopt) << identifier;
    }
}

TEST(DynamicTypeTest, IsWrittenAsOnTheMac)
{
    // The form of files that macOS shows, which says that they conform to public.data.
    const auto file = DynamicType::fromIdentifier(u"dyn.ah62d4rv4ge80445b");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->tag, DynamicType::Tag::Extension);
    EXPECT_TRUE((DynamicType{DynamicType::Tag::Extension, text("abc")})
                    .identifier()
                    .startsWith(text("dyn.age80")));
}

TEST(DynamicTypeTest, GivesBackWhateverItHolds)
{
    for (const char* value : {"a", "ab", "abc", "abcd", "abcde", "abcdef", "ä€😀", "a=b:c,d?e\\f",
                              "text/plain; charset=utf-8", " "}) {
        for (const auto tag : {DynamicType::Tag::Extension, DynamicType::Tag::MimeType}) {
            const auto again =
                DynamicType::fromIdentifier(DynamicType{tag, text(value)}.identifier());
            ASSERT_TRUE(again) << value;
            EXPECT_EQ(again->tag, tag);
            EXPECT_EQ(again->value, text(value));
        }
    }
}

TEST(DeclaredTypesTest, AreSoundThroughout)
{
    QSet<QString> identifiers;
    for (const auto& type : platform::declaredTypes()) {
        EXPECT_FALSE(identifiers.contains(text(type.identifier))) << type.identifier;
        identifiers.insert(text(type.identifier));
    }
    QMap<QString, int> shared;
    for (const auto& type : platform::declaredTypes()) {
        EXPECT_STRNE(type.description, "") << type.identifier;
        for (const QString& general :
             text(type.conformsTo).split(QLatin1Char(' '), Qt::SkipEmptyParts))
            EXPECT_TRUE(identifiers.contains(general)) << type.identifier;
        for (const char* tags : {type.extensions, type.mimeTypes}) {
            EXPECT_EQ(text(tags), text(tags).toLower()) << type.identifier;
            for (const QString& tag : text(tags).split(QLatin1Char(' '), Qt::SkipEmptyParts))
                ++shared[tag];
        }
        for (const QString& mimeType :
             text(type.mimeTypes).split(QLatin1Char(' '), Qt::SkipEmptyParts))
            EXPECT_EQ(mimeType.count(QLatin1Char('/')), 1) << type.identifier;
    }
    EXPECT_EQ(shared.take(text("mp4")), 2);
    for (auto entry = shared.cbegin(); entry != shared.cend(); ++entry)
        EXPECT_EQ(entry.value(), 1) << entry.key().toStdString();
}

} // namespace
