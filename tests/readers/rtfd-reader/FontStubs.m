// SPDX-License-Identifier: MIT
#import "FontStubs.h"

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSFontInfo.h>

NSString* familyOfFont(NSString* fontName)
{
    const NSRange dash = [fontName rangeOfString:@"-" options:NSBackwardsSearch];
    return dash.location == NSNotFound ? fontName : [fontName substringToIndex:dash.location];
}

static BOOL faceHolds(NSString* fontName, NSString* word)
{
    return [fontName rangeOfString:word options:NSCaseInsensitiveSearch].location != NSNotFound;
}

BOOL fontNameIsBold(NSString* fontName)
{
    return faceHolds(fontName, @"bold") || faceHolds(fontName, @"-heavy")
        || faceHolds(fontName, @"-black");
}

BOOL fontNameIsItalic(NSString* fontName)
{
    return faceHolds(fontName, @"italic") || faceHolds(fontName, @"oblique");
}

@interface EveryFontEnumerator : GSFontEnumerator
@end

@implementation EveryFontEnumerator

- (void)enumerateFontsAndFamilies
{
    allFontNames = [[NSArray alloc] initWithObjects:@"Helvetica", nil];
    allFontFamilies = [[NSMutableDictionary alloc] init];
}

- (NSString*)defaultSystemFontName
{
    return @"Helvetica";
}

- (NSString*)defaultBoldSystemFontName
{
    return @"Helvetica-Bold";
}

- (NSString*)defaultFixedPitchFontName
{
    return @"Courier";
}

- (NSArray*)availableMembersOfFontFamily:(NSString*)family
{
    // A face's name is no family; the RTF reader then asks again with the part before the dash.
    if (family == nil || [family rangeOfString:@"-"].location != NSNotFound)
        return [NSArray array];
    NSMutableArray* members = [NSMutableArray array];
    NSString* faces[] = {@"", @"-Bold", @"-Italic", @"-BoldItalic"};
    for (int i = 0; i < 4; ++i) {
        const NSFontTraitMask traits = (i & 1 ? NSBoldFontMask : 0) | (i & 2 ? NSItalicFontMask : 0);
        [members addObject:[NSArray arrayWithObjects:[family stringByAppendingString:faces[i]],
                                    faces[i], [NSNumber numberWithInt:i & 1 ? 9 : 5],
                                    [NSNumber numberWithUnsignedInt:traits], nil]];
    }
    return members;
}

@end

@interface EveryFontInfo : GSFontInfo
@end

@implementation EveryFontInfo

- (id)initWithFontName:(NSString*)name matrix:(const CGFloat*)fontMatrix screenFont:(BOOL)isScreenFont
{
    self = [super init];
    if (self != nil) {
        fontName = [name copy];
        familyName = [familyOfFont(name) copy];
        for (int i = 0; i < 6; ++i)
            matrix[i] = fontMatrix[i];
        ascender = fontMatrix[0] * 0.8;
        descender = fontMatrix[0] * -0.2;
        xHeight = fontMatrix[0] * 0.5;
        maximumAdvancement = NSMakeSize(fontMatrix[0], 0);
        weight = fontNameIsBold(name) ? 9 : 5;
        traits = (fontNameIsBold(name) ? NSBoldFontMask : 0)
            | (fontNameIsItalic(name) ? NSItalicFontMask : 0);
        mostCompatibleStringEncoding = NSUTF8StringEncoding;
    }
    return self;
}

- (CGFloat)widthOfString:(NSString*)string
{
    return [string length] * matrix[0] * 0.5;
}

- (NSGlyph)glyphForCharacter:(unichar)character
{
    return character;
}

- (BOOL)glyphIsEncoded:(NSGlyph)glyph
{
    return YES;
}

- (NSSize)advancementForGlyph:(NSGlyph)glyph
{
    return NSMakeSize(matrix[0] * 0.5, 0);
}

@end

void useFontStubs(void)
{
    [GSFontEnumerator setDefaultClass:[EveryFontEnumerator class]];
    [GSFontInfo setDefaultClass:[EveryFontInfo class]];
}
