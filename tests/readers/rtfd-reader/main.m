// SPDX-License-Identifier: MIT
// rtfd-reader PACKAGE...: reads RTFD packages with GNUstep, which shares no code with this program,
// and prints one line of JSON a package: its text, its runs, its attachments, and the record in its
// "NoteAttributes" where there is one. Exit code 1 when a package could not be read.
#import "FontStubs.h"
#import "NoteRecords.h"

#import <AppKit/AppKit.h>
#import <GNUstepBase/NSData+GNUstepBase.h>

#include <stdio.h>

static NSString* hex(NSData* data)
{
    NSMutableString* text = [NSMutableString string];
    const unsigned char* bytes = [data bytes];
    for (NSUInteger i = 0; i < [data length]; ++i)
        [text appendFormat:@"%02x", bytes[i]];
    return text;
}

static NSDictionary* attachmentFacts(NSTextAttachment* attachment, NSRange range)
{
    NSMutableDictionary* facts = [NSMutableDictionary dictionary];
    NSFileWrapper* wrapper = [attachment fileWrapper];
    [facts setObject:[NSNumber numberWithUnsignedInteger:range.location] forKey:@"position"];
    [facts setObject:plainValue([wrapper preferredFilename] ? [wrapper preferredFilename]
                                                            : [wrapper filename])
              forKey:@"name"];
    if ([wrapper isRegularFile]) {
        NSData* contents = [wrapper regularFileContents];
        [facts setObject:[NSNumber numberWithUnsignedInteger:[contents length]] forKey:@"size"];
        [facts setObject:hex([contents md5Digest]) forKey:@"md5"];
    }
    return facts;
}

static void addFlag(NSMutableDictionary* run, NSDictionary* attributes, NSString* attribute,
                    NSString* key)
{
    if ([[attributes objectForKey:attribute] intValue] != 0)
        [run setObject:[NSNumber numberWithBool:YES] forKey:key];
}

static NSString* alignmentName(NSTextAlignment alignment)
{
    switch (alignment) {
    case NSLeftTextAlignment:
        return @"left";
    case NSRightTextAlignment:
        return @"right";
    case NSCenterTextAlignment:
        return @"center";
    case NSJustifiedTextAlignment:
        return @"justified";
    default:
        return @"natural";
    }
}

static NSDictionary* runFacts(NSDictionary* attributes, NSRange range)
{
    NSMutableDictionary* run = [NSMutableDictionary dictionary];
    [run setObject:[NSArray arrayWithObjects:[NSNumber numberWithUnsignedInteger:range.location],
                            [NSNumber numberWithUnsignedInteger:range.length], nil]
            forKey:@"range"];
    NSFont* font = [attributes objectForKey:NSFontAttributeName];
    if (font != nil) {
        [run setObject:[font fontName] forKey:@"font"];
        [run setObject:[NSNumber numberWithDouble:[font pointSize]] forKey:@"size"];
        [run setObject:[NSNumber numberWithBool:fontNameIsBold([font fontName])] forKey:@"bold"];
        [run setObject:[NSNumber numberWithBool:fontNameIsItalic([font fontName])] forKey:@"italic"];
    }
    addFlag(run, attributes, NSUnderlineStyleAttributeName, @"underline");
    addFlag(run, attributes, NSStrikethroughStyleAttributeName, @"strikethrough");
    for (NSArray* pair in [NSArray arrayWithObjects:
             [NSArray arrayWithObjects:NSForegroundColorAttributeName, @"foreground", nil],
             [NSArray arrayWithObjects:NSBackgroundColorAttributeName, @"background", nil],
             [NSArray arrayWithObjects:NSLinkAttributeName, @"link", nil], nil]) {
        id value = [attributes objectForKey:[pair objectAtIndex:0]];
        if (value != nil)
            [run setObject:plainValue(value) forKey:[pair objectAtIndex:1]];
    }
    NSParagraphStyle* style = [attributes objectForKey:NSParagraphStyleAttributeName];
    if (style != nil) {
        [run setObject:alignmentName([style alignment]) forKey:@"alignment"];
        [run setObject:[NSNumber numberWithDouble:[style headIndent]] forKey:@"headIndent"];
        [run setObject:[NSNumber numberWithDouble:[style firstLineHeadIndent]]
                forKey:@"firstLineHeadIndent"];
    }
    return run;
}

static void readText(NSFileWrapper* package, NSMutableDictionary* facts)
{
    NSDictionary* documentAttributes = nil;
    NSAttributedString* text =
        [[NSAttributedString alloc] initWithRTFDFileWrapper:package
                                         documentAttributes:&documentAttributes];
    if (text == nil) {
        [facts setObject:@"the package could not be read as RTFD" forKey:@"error"];
        return;
    }
    NSMutableArray* runs = [NSMutableArray array];
    NSMutableArray* attachments = [NSMutableArray array];
    NSRange range = NSMakeRange(0, 0);
    while (NSMaxRange(range) < [text length]) {
        NSDictionary* attributes = [text attributesAtIndex:NSMaxRange(range) effectiveRange:&range];
        [runs addObject:runFacts(attributes, range)];
        NSTextAttachment* attachment = [attributes objectForKey:NSAttachmentAttributeName];
        if (attachment != nil)
            [attachments addObject:attachmentFacts(attachment, range)];
    }
    [facts setObject:[text string] forKey:@"text"];
    [facts setObject:runs forKey:@"runs"];
    [facts setObject:attachments forKey:@"attachments"];
    [facts setObject:plainValue(documentAttributes) forKey:@"documentAttributes"];
}

static void readRecord(NSFileWrapper* package, NSMutableDictionary* facts)
{
    NSFileWrapper* child = [[package fileWrappers] objectForKey:@"NoteAttributes"];
    if (child == nil)
        return;
    id record = [NSKeyedUnarchiver unarchiveObjectWithData:[child regularFileContents]];
    if (![record isKindOfClass:[QLNoteAttributes class]])
        [facts setObject:@"NoteAttributes holds another object" forKey:@"error"];
    [facts setObject:plainValue(record) forKey:@"noteAttributes"];
}

static NSDictionary* readPackage(NSString* path)
{
    NSMutableDictionary* facts = [NSMutableDictionary dictionaryWithObject:path forKey:@"package"];
    NS_DURING
    {
        NSFileWrapper* package = [[NSFileWrapper alloc] initWithPath:path];
        if (![package isDirectory]) {
            [facts setObject:@"there is no package" forKey:@"error"];
        } else {
            readText(package, facts);
            readRecord(package, facts);
        }
    }
    NS_HANDLER
    {
        [facts setObject:[NSString stringWithFormat:@"%@: %@", [localException name],
                                   [localException reason]]
                  forKey:@"error"];
    }
    NS_ENDHANDLER
    return facts;
}

int main(int argc, char** argv)
{
    int result = 0;
    NSAutoreleasePool* outer = [[NSAutoreleasePool alloc] init];
    useFontStubs();
    for (int i = 1; i < argc; ++i) {
        NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
        NSDictionary* facts = readPackage([NSString stringWithUTF8String:argv[i]]);
        if ([facts objectForKey:@"error"] != nil)
            result = 1;
        NSData* line = [NSJSONSerialization dataWithJSONObject:facts options:0 error:NULL];
        fwrite([line bytes], 1, [line length], stdout);
        putchar('\n');
        [pool release];
    }
    [outer release];
    return result;
}
