#pragma once

#include "simulator/frameworks/uikit/view/UIView.h"

// The grey bar with a rounded field and a magnifying glass; drawn only, nobody types here.
@interface UISearchBar : UIView {
  @private
    NSString* _text;
    NSString* _placeholder;
    id _delegate;
}

@property (nonatomic, copy) NSString* text;  // telling the delegate is the typist's part: -searchBar:textDidChange:
@property (nonatomic, copy) NSString* placeholder;
@property (nonatomic, assign) id delegate;

@end
