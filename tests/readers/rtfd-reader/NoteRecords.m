// SPDX-License-Identifier: MIT
#import "NoteRecords.h"

#import <AppKit/AppKit.h>

static NSString* hexColor(NSColor* color)
{
    NSColor* rgb = [color colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
    if (rgb == nil)
        return [color description];
    return [NSString stringWithFormat:@"#%02x%02x%02x", (int)lround([rgb redComponent] * 255),
                     (int)lround([rgb greenComponent] * 255), (int)lround([rgb blueComponent] * 255)];
}

static NSDictionary* styleFacts(NSParagraphStyle* style)
{
    NSMutableDictionary* facts = [NSMutableDictionary dictionary];
    [facts setObject:[NSNumber numberWithDouble:[style headIndent]] forKey:@"headIndent"];
    [facts setObject:[NSNumber numberWithDouble:[style firstLineHeadIndent]]
              forKey:@"firstLineHeadIndent"];
    [facts setObject:[NSNumber numberWithInt:[style baseWritingDirection]]
              forKey:@"writingDirection"];
    NSMutableArray* tabs = [NSMutableArray array];
    for (NSTextTab* tab in [style tabStops])
        [tabs addObject:[NSNumber numberWithDouble:[tab location]]];
    [facts setObject:tabs forKey:@"tabStops"];
    NSMutableArray* lists = [NSMutableArray array];
    for (NSTextList* list in [style textLists])
        [lists addObject:[list markerFormat]];
    [facts setObject:lists forKey:@"textLists"];
    return facts;
}

id plainValue(id value)
{
    if (value == nil)
        return [NSNull null];
    if ([value isKindOfClass:[NSString class]] || [value isKindOfClass:[NSNumber class]])
        return value;
    if ([value isKindOfClass:[NSURL class]])
        return [value absoluteString];
    if ([value isKindOfClass:[NSColor class]])
        return hexColor(value);
    if ([value isKindOfClass:[NSFont class]])
        return [NSString stringWithFormat:@"%@ %g", [value fontName], [value pointSize]];
    if ([value isKindOfClass:[NSParagraphStyle class]])
        return styleFacts(value);
    if ([value isKindOfClass:[NSDictionary class]]) {
        NSMutableDictionary* plain = [NSMutableDictionary dictionary];
        for (id key in value)
            [plain setObject:plainValue([value objectForKey:key]) forKey:[key description]];
        return plain;
    }
    if ([value isKindOfClass:[NSArray class]]) {
        NSMutableArray* plain = [NSMutableArray array];
        for (id element in value)
            [plain addObject:plainValue(element)];
        return plain;
    }
    if ([value respondsToSelector:@selector(facts)])
        return [value facts];
    return NSStringFromClass([value class]);
}

@implementation QLNoteAttributes

- (id)initWithCoder:(NSCoder*)coder
{
    self = [super init];
    if (self == nil)
        return nil;
    NSMutableDictionary* found = [NSMutableDictionary dictionary];
    [found setObject:[NSNumber numberWithLongLong:[coder decodeInt64ForKey:@"fileVersion"]]
              forKey:@"fileVersion"];
    [found setObject:[NSNumber numberWithLongLong:[coder decodeInt64ForKey:@"layoutOrientation"]]
              forKey:@"layoutOrientation"];
    [found setObject:[NSNumber numberWithFloat:[coder decodeFloatForKey:@"hyphenationFactor"]]
              forKey:@"hyphenationFactor"];
    [found setObject:[NSNumber numberWithDouble:[coder decodeDoubleForKey:@"scaleFactor"]]
              forKey:@"scaleFactor"];
    [found setObject:[NSNumber numberWithBool:[coder decodeBoolForKey:@"rulerVisible"]]
              forKey:@"rulerVisible"];
    for (NSString* key in [NSArray arrayWithObjects:@"visibleChars", @"selectedChars",
                                   @"typingAttributes", @"visibleCGRect",
                                   @"backgroundColorComponents", @"checklistItems", nil])
        if ([coder containsValueForKey:key])
            [found setObject:plainValue([coder decodeObjectForKey:key]) forKey:key];
    facts = [found copy];
    return self;
}

- (void)encodeWithCoder:(NSCoder*)coder
{
    [self doesNotRecognizeSelector:_cmd];
}

- (NSDictionary*)facts
{
    return facts;
}

@end

@implementation QLNoteChecklistItem

- (id)initWithCoder:(NSCoder*)coder
{
    self = [super init];
    if (self == nil)
        return nil;
    facts = [[NSDictionary alloc]
        initWithObjectsAndKeys:[NSNumber numberWithBool:[coder decodeBoolForKey:@"on"]], @"on",
        plainValue([coder decodeObjectForKey:@"range"]), @"range", nil];
    return self;
}

- (void)encodeWithCoder:(NSCoder*)coder
{
    [self doesNotRecognizeSelector:_cmd];
}

- (NSDictionary*)facts
{
    return facts;
}

@end
