// SPDX-License-Identifier: MIT
// webloc-reader FILE: prints the URL and the name of a bookmark file, each on a line of its own, as GNUstep
// reads them; an empty line for what is not there. Ends with 1 when the file is no dictionary.
#import <Foundation/Foundation.h>

#include <stdio.h>

static void printText(id text)
{
    printf("%s\n", [text isKindOfClass: [NSString class]] ? [text UTF8String] : "");
}

int main(int argc, const char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: webloc-reader FILE\n");
        return 2;
    }
    NSAutoreleasePool* pool = [NSAutoreleasePool new];
    NSData* data = [NSData dataWithContentsOfFile: [NSString stringWithUTF8String: argv[1]]];
    id bookmark = data ? [NSPropertyListSerialization propertyListWithData: data
                                                                  options: NSPropertyListImmutable
                                                                   format: NULL
                                                                    error: NULL]
                       : nil;
    int result = 1;
    if ([bookmark isKindOfClass: [NSDictionary class]]) {
        printText([bookmark objectForKey: @"URL"]);
        printText([bookmark objectForKey: @"public.url-name"]);
        result = 0;
    }
    [pool release];
    return result;
}
