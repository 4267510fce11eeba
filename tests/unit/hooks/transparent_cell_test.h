// One of CallBar's list cells, whose labels a test puts in by hand.
#pragma once

#include "tests/unit/hooks/hook_test.h"

namespace test {

class TransparentCell : public HookTest {
  protected:
    explicit TransparentCell(const char* profile = "iphone6-8.4") : HookTest(profile) {}

    void makeCell(CGFloat height = 48) {
        cell_ = [[CallBarTableViewTransparentCell alloc] initWithStyle:UITableViewCellStyleDefault
                                                       reuseIdentifier:@"row"];
        [cell_ setFrame:CGRectMake(0, 0, 375, height)];
        [cell_ setAccessoryType:UITableViewCellAccessoryDetailButton];
    }

    template <class Label>
    Label* addLabel(UIView* container, NSString* text, CGRect frame, Class kind) {
        Label* label = [[[kind alloc] initWithFrame:frame] autorelease];
        [label setText:text];
        [container addSubview:label];
        return label;
    }
    UILabel* label(UIView* container, NSString* text, CGRect frame, Class kind = [UILabel class]) {
        return addLabel<UILabel>(container, text, frame, kind);
    }

    // Runs the replaced method alone; the labels stand where they were put, since no table lays the cell out.
    void layOut() { [cell_ layoutSubviews]; }

    CallBarTableViewTransparentCell* cell_ = nil;
};

// The accessory is laid out by the cell itself, so a cell is asked that keeps it where the test put it.
class RightToLeft : public TransparentCell {
  protected:
    void start(bool editing) {
        root.setDevice("iphone6-8.4", true);
        boot();
        UIApplicationStart(nil, nil);
        makeCell();
        [cell_ setEditing:editing animated:NO];
        // The superclass's layout moves the accessory; this puts it where it is wanted.
        Method layout = class_getInstanceMethod([UITableViewCell class], @selector(layoutSubviews));
        method_setImplementation(
            layout, (IMP) + [](id self, SEL) { [[self _defaultAccessoryView] setFrame:CGRectMake(300, 13, 22, 22)]; });
        layOut();
    }
};

}  // namespace test
