#pragma once

#include "simulator/frameworks/uikit/graphics/NSString+Drawing.h"
#include "simulator/frameworks/uikit/view/UIView.h"

@class UIFont;

// One text in one font, centred vertically. At first: 17 points, black, at the leading edge, cut at the tail.
@interface UILabel : UIView {
  @private
    NSString* _text;
    UIFont* _font;
    UIColor* _textColor;
    UIColor* _highlightedTextColor;
    NSTextAlignment _textAlignment;
    NSLineBreakMode _lineBreakMode;
    NSInteger _numberOfLines;
    BOOL _highlighted;
    BOOL _enabled;
}

@property (nonatomic, copy) NSString* text;
@property (nonatomic, retain) UIFont* font;
@property (nonatomic, retain) UIColor* textColor;
@property (nonatomic, retain) UIColor* highlightedTextColor;
@property (nonatomic) NSTextAlignment textAlignment;
@property (nonatomic) NSLineBreakMode lineBreakMode;
@property (nonatomic) NSInteger numberOfLines;  // 0: as many as it takes
@property (nonatomic, getter=isHighlighted) BOOL highlighted;
@property (nonatomic, getter=isEnabled) BOOL enabled;

// Where -drawTextInRect: may draw; override to inset the text.
- (void)drawTextInRect:(CGRect)rect;

@end

// The class of a table cell's own labels from system 8 on.
@interface UITableViewLabel : UILabel
@end

// A point in time in the form that the phone's lists give it: the time of day for today, "Yesterday", the weekday
// within a week, else the date.
@interface UIDateLabel : UILabel {
  @private
    NSDate* _date;
}

@property (nonatomic, retain) NSDate* date;  // sets the text

@end
