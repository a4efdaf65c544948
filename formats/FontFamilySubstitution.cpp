// SPDX-License-Identifier: MIT
#include "formats/FontFamilySubstitution.h"

void substituteFontFamily(platform::AttributedString& text, const QString& family,
                          const QString& withFontFamily)
{
    for (const platform::AttributedString::Run& run : text.runs()) {
        if (run.attributes->font && run.attributes->font->family == family) {
            text.changeAttributes(run.range,
                                  [&withFontFamily](platform::TextAttributes& attributes) {
                                      attributes.font->family = withFontFamily;
                                  });
        }
    }
}
