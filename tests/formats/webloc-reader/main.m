// SPDX-License-Identifier: MIT
// webloc-reader FILE: prints the URL and the name of a bookmark file, each on a line of its own, as
// GNUstep reads them; an empty line for what is not there. Ends with 1 when the file is no dictionary.
//
// webloc-reader --write binary|xml|text FILE URL NAME: has GNUstep write one, without a name when that
// is empty. Ends with 1 when it could not.
#import <Foundation/Foundation.h>

#include <stdio.h>
#include <string.h>

static void printText(id text)
{
    printf("%s\n", [text isKindOfClass: [NSString class]] ? [text UTF8String] : "");
}

static NSString* textOf(const char* argument)
{
    return [NSString stringWithUTF8String: argument];
}

static int writeBookmark(const char** arguments)
{
    NSString* form = textOf(arguments[0]);
    NSPropertyListFormat format = [form isEqualToString: @"binary"] ? NSPropertyListBinaryFormat_v1_0
                                  : [form isEqualToString: @"xml"]  ? NSPropertyListXMLFormat_v1_0
                                                                    : NSPropertyListOpenStepFormat;
    NSMutableDictionary* bookmark = [NSMutableDictionary dictionary];
    [bookmark setObject: textOf(arguments[2]) forKey: @"URL"];
    if (arguments[3][0] != '\0')
        [bookmark setObject: textOf(arguments[3]) forKey: @"public.url-name"];
    NSData* data = [NSPropertyListSerialization dataWithPropertyList: bookmark
                                                              format: format
                                                             options: 0
                                                               error: NULL];
    return [data writeToFile: textOf(arguments[1]) atomically: NO] ? 0 : 1;
}

static int printBookmark(const char* file)
{
    NSData* data = [NSData dataWithContentsOfFile: textOf(file)];
    id bookmark = data ? [NSPropertyListSerialization propertyListWithData: data
                                                                  options: NSPropertyListImmutable
                                                                   format: NULL
                                                                    error: NULL]
                       : nil;
    if (![bookmark isKindOfClass: [NSDictionary class]])
        return 1;
    printText([bookmark objectForKey: @"URL"]);
    printText([bookmark objectForKey: @"public.url-name"]);
    return 0;
}

int main(int argc, const char** argv)
{
    const BOOL writes = argc == 6 && strcmp(argv[1], "--write") == 0;
    if (argc != 2 && !writes) {
        fprintf(stderr, "usage: webloc-reader FILE | --write binary|xml|text FILE URL NAME\n");
        return 2;
    }
    NSAutoreleasePool* pool = [NSAutoreleasePool new];
    const int result = writes ? writeBookmark(argv + 2) : printBookmark(argv[1]);
    [pool release];
    return result;
}
