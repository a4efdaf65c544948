// SPDX-License-Identifier: MIT
// GNUstep decodes every attachment as a picture while it reads a package, and gives up on the rest of
// the text when a decoder refuses one (ImageMagick, told not to touch PDF files, does). What is inside
// an attachment is not this reader's business, so no picture is decoded.
#import <AppKit/AppKit.h>

@implementation NSImage (NoDecoding)

- (id)initWithData:(NSData*)data
{
    return [self initWithSize:NSMakeSize(1, 1)];
}

- (id)initWithContentsOfFile:(NSString*)path
{
    return [self initWithSize:NSMakeSize(1, 1)];
}

@end
