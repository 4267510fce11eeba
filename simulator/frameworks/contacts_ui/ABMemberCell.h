#pragma once

#include "simulator/frameworks/contacts_ui/ABUIPerson.h"
#include "simulator/frameworks/uikit/uikit.h"

// A row of the member list. The name is drawn, not shown by a label: here straight into the content view, whose frame
// the cell keeps at its own bounds.
@interface ABMemberCell : UITableViewCell {
  @private
    ABUIPerson* _person;
    NSString* _name;
    UIView* _canvas;
}

@property (nonatomic, readonly) ABUIPerson* person;  // nil when the contact is gone; +0
@property (nonatomic, readonly) NSString* name;      // +0
- (void)setPerson:(ABUIPerson*)person name:(NSString*)name;

// The view that the name is drawn in. +0.
- (UIView*)nameCanvas;

// Draws the text, cut to the width, with its top left corner at the point (or, where it reads from the right, with its
// top right corner at the far end of the width), and its shadow beneath if there is a shadow colour. Points; what the
// text took up.
- (CGSize)_drawText:(NSString*)text
          withColor:(UIColor*)color
        shadowColor:(UIColor*)shadowColor
       shadowOffset:(CGSize)shadowOffset
            atPoint:(CGPoint)point
           forWidth:(float)width
           withFont:(UIFont*)font
      lineBreakMode:(NSLineBreakMode)lineBreakMode;

@end

// The newer kind: the name stands in a view of its own inside the content view, which moves aside while editing.
@interface ABNameViewMemberCell : ABMemberCell {
  @private
    UIView* _contactNameView;
}

- (UIView*)contactNameView;  // +0

@end
