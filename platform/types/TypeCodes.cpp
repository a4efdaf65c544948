// SPDX-License-Identifier: MIT
#include "platform/types/TypeCodes.h"

namespace platform {

namespace {

struct TypeCode {
    const char* code;
    const char* identifier;
};

constexpr TypeCode typeCodes[] = {
    {"TEXT", "public.plain-text"},
    {"utxt", "public.plain-text"},
    {"HTML", "public.html"},
    {"RTF ", "public.rtf"},
    {"PDF ", "com.adobe.pdf"},
    {"EPSF", "com.adobe.postscript"},
    {"JPEG", "public.jpeg"},
    {"PNGf", "public.png"},
    {"GIFf", "com.compuserve.gif"},
    {"TIFF", "public.tiff"},
    {"BMPf", "com.microsoft.bmp"},
    {"BMP ", "com.microsoft.bmp"},
    {"PICT", "com.apple.pict"},
    {"icns", "com.apple.icns"},
    {"8BPS", "com.adobe.photoshop-image"},
    {"MooV", "com.apple.quicktime-movie"},
    {"MPEG", "public.mpeg"},
    {"VfW ", "public.avi"},
    {"Mp3 ", "public.mp3"},
    {"MP3 ", "public.mp3"},
    {"MPG3", "public.mp3"},
    {"AIFF", "public.aiff-audio"},
    {"WAVE", "com.microsoft.waveform-audio"},
    {"W8BN", "com.microsoft.word.doc"},
    {"WDBN", "com.microsoft.word.doc"},
    {"XLS8", "com.microsoft.excel.xls"},
    {"SLD8", "com.microsoft.powerpoint.ppt"},
    {"ZIP ", "public.zip-archive"},
    {"vCrd", "public.vcard"},
    {"ilht", "com.apple.web-internet-location"},
    {"ilma", "com.apple.mail-internet-location"},
    {"ilft", "com.apple.ftp-internet-location"},
    {"ilfi", "com.apple.file-internet-location"},
};

} // namespace

QString preferredIdentifierForTypeCode(QStringView code)
{
    for (const TypeCode& type : typeCodes) {
        if (code == QLatin1String(type.code))
            return QString::fromLatin1(type.identifier);
    }
    return {};
}

} // namespace platform
