// SPDX-License-Identifier: MIT
// GNUstep finds fonts through a drawing back end, which wants a display. Reading a package draws
// nothing, so these two classes stand in: every font asked for exists, in four faces.
#import <Foundation/Foundation.h>

void useFontStubs(void);

// "Helvetica" for "Helvetica-BoldOblique".
NSString* familyOfFont(NSString* fontName);
BOOL fontNameIsBold(NSString* fontName);
BOOL fontNameIsItalic(NSString* fontName);
