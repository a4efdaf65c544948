// SPDX-License-Identifier: MIT
// The two classes of a note package's "NoteAttributes", decoded by GNUstep's own keyed unarchiver.
#import <Foundation/Foundation.h>

@interface QLNoteAttributes : NSObject <NSCoding> {
    NSDictionary* facts;
}
- (NSDictionary*)facts;
@end

@interface QLNoteChecklistItem : NSObject <NSCoding> {
    NSDictionary* facts;
}
- (NSDictionary*)facts;
@end

// Fonts, colours, paragraph styles and plain values as JSON; others as their class's name.
id plainValue(id value);
