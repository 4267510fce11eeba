#include "simulator/frameworks/quartz_core/CALayerOwner.h"
#include "tests/simulator/uikit/phone_test.h"

@interface OwnDelegate : NSObject <CALayerDelegate, CALayerOwner> {
  @public
    int changes;
    int resizes;
}
@end

@implementation OwnDelegate

- (void)_layer:(CALayer*)layer willBeChangedBy:(SEL)method {
    ++changes;
}

- (void)_layer:(CALayer*)layer changedSizeFrom:(CGSize)oldSize {
    ++resizes;
}

@end

namespace {

using LayerTest = PhoneTest;
using phone::Pixel;

constexpr Pixel kWhite{255, 255, 255, 255};
constexpr Pixel kRed{255, 0, 0, 255};
constexpr Pixel kBlue{0, 0, 255, 255};
constexpr Pixel kClear{0, 0, 0, 0};

UIView* colored(CGRect frame, UIColor* color) {
    UIView* view = [[[UIView alloc] initWithFrame:frame] autorelease];
    [view setBackgroundColor:color];
    return view;
}

UIImage* flat(CGSize size, UIColor* color) {
    UIGraphicsBeginImageContextWithOptions(size, NO, 1);
    [color set];
    UIRectFill(CGRectMake(0, 0, size.width, size.height));
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

UIImage* rendered(UIView* view) {
    UIGraphicsBeginImageContextWithOptions([view bounds].size, NO, 2);
    [[view layer] renderInContext:UIGraphicsGetCurrentContext()];
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

TEST_F(LayerTest, WithoutClippingOnlyTheBackgroundIsRounded) {
    start("iphone6-8.4");
    UIImageView* view = [[[UIImageView alloc] initWithFrame:CGRectMake(0, 0, 40, 40)] autorelease];
    [view setBackgroundColor:[UIColor redColor]];
    [[view layer] setCornerRadius:5];
    EXPECT_EQ(at(rendered(view), 0, 0), kClear);
    EXPECT_EQ(at(rendered(view), 20, 0), kRed);
    [view setImage:flat(CGSizeMake(40, 40), [UIColor blueColor])];
    EXPECT_EQ(at(rendered(view), 0, 0), kBlue);
}

TEST_F(LayerTest, ClippingRoundsEverything) {
    start("iphone6-8.4");
    UIImageView* view = [[[UIImageView alloc] initWithFrame:CGRectMake(0, 0, 40, 40)] autorelease];
    [view setBackgroundColor:[UIColor redColor]];
    [view setImage:flat(CGSizeMake(40, 40), [UIColor blueColor])];
    [view addSubview:colored(CGRectMake(0, 0, 12, 12), [UIColor greenColor])];
    [[view layer] setCornerRadius:20];
    [view setClipsToBounds:YES];
    UIImage* image = rendered(view);
    EXPECT_EQ(at(image, 0, 0), kClear);
    EXPECT_EQ(at(image, 39, 39), kClear);
    EXPECT_EQ(at(image, 20, 1), kBlue);
    EXPECT_EQ(at(image, 10, 10), (Pixel{0, 255, 0, 255}));
    EXPECT_EQ(at(image, 5, 5), kClear);
}

// A half-covered pixel of the edge shows the contents alone, not the background through them.
TEST_F(LayerTest, TheEdgeOfAClippedPictureHasNoFringe) {
    start("iphone6-8.4");
    UIImageView* view = [[[UIImageView alloc] initWithFrame:CGRectMake(0, 0, 40, 40)] autorelease];
    [view setBackgroundColor:[UIColor redColor]];
    [view setImage:flat(CGSizeMake(40, 40), [UIColor blueColor])];
    [[view layer] setCornerRadius:20];
    [view setClipsToBounds:YES];
    UIImage* image = rendered(view);
    int partial = 0;
    for (int y = 0; y < 80; ++y) {
        for (int x = 0; x < 80; ++x) {
            const Pixel pixel = *phone::pixelAt([image CGImage], x, y);
            EXPECT_EQ(pixel.r, 0) << x << " " << y;
            partial += pixel.a > 0 && pixel.a < 255;
        }
    }
    EXPECT_GT(partial, 40) << "the edge is smooth";
}

TEST_F(LayerTest, SubviewsReachBeyondAnUnclippedView) {
    start("iphone6-8.4");
    UIView* top = colored(CGRectMake(0, 0, 40, 40), nil);
    UIView* middle = colored(CGRectMake(10, 10, 10, 10), [UIColor redColor]);
    [middle addSubview:colored(CGRectMake(5, 5, 10, 10), [UIColor blueColor])];
    [top addSubview:middle];
    EXPECT_EQ(at(rendered(top), 22, 22), kBlue);
    EXPECT_EQ(at(rendered(top), 11, 11), kRed);
    [middle setClipsToBounds:YES];
    EXPECT_EQ(at(rendered(top), 22, 22), kClear);
    EXPECT_EQ(at(rendered(top), 17, 17), kBlue);
    [middle setHidden:YES];
    EXPECT_EQ(at(rendered(top), 17, 17), kClear);
}

TEST_F(LayerTest, OpacityWorksOnTheWholeTree) {
    start("iphone6-8.4");
    UIView* top = colored(CGRectMake(0, 0, 10, 10), [UIColor redColor]);
    [top addSubview:colored(CGRectMake(0, 0, 10, 10), [UIColor blueColor])];
    [top setAlpha:0.5];
    const Pixel pixel = at(rendered(top), 5, 5);
    EXPECT_EQ(pixel.r, 0);
    EXPECT_NEAR(pixel.a, 128, 1);
    EXPECT_NEAR(pixel.b, 128, 1);
}

TEST_F(LayerTest, ABorderLiesInsideAboveTheContents) {
    start("iphone6-8.4");
    UIView* top = colored(CGRectMake(0, 0, 20, 20), [UIColor redColor]);
    [top addSubview:colored(CGRectMake(0, 0, 20, 20), [UIColor redColor])];
    [[top layer] setBorderWidth:2];
    [[top layer] setBorderColor:[[UIColor blueColor] CGColor]];
    EXPECT_EQ(at(rendered(top), 1, 10), kBlue);
    EXPECT_EQ(at(rendered(top), 3, 10), kRed);
}

TEST_F(LayerTest, ContentModesPlaceThePicture) {
    start("iphone6-8.4");
    UIImageView* view = [[[UIImageView alloc] initWithFrame:CGRectMake(0, 0, 40, 20)] autorelease];
    [view setImage:flat(CGSizeMake(10, 10), [UIColor redColor])];
    EXPECT_EQ(at(rendered(view), 39, 1), kRed);
    [view setContentMode:UIViewContentModeScaleAspectFit];
    EXPECT_EQ(at(rendered(view), 8, 10), kClear);
    EXPECT_EQ(at(rendered(view), 12, 1), kRed);
    [view setContentMode:UIViewContentModeCenter];
    EXPECT_EQ(at(rendered(view), 20, 3), kClear);
    EXPECT_EQ(at(rendered(view), 16, 6), kRed);
    [view setContentMode:UIViewContentModeScaleAspectFill];
    EXPECT_EQ(at(rendered(view), 39, 19), kRed);
    [view setContentMode:UIViewContentModeBottomRight];
    EXPECT_EQ(at(rendered(view), 35, 15), kRed);
    EXPECT_EQ(at(rendered(view), 5, 15), kClear);
}

TEST_F(LayerTest, PicturesStandUpright) {
    start("iphone6-8.4");
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(20, 20), NO, 1);
    [[UIColor redColor] set];
    UIRectFill(CGRectMake(0, 0, 20, 10));
    UIImage* topHalf = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    UIImageView* view = [[[UIImageView alloc] initWithImage:topHalf] autorelease];
    EXPECT_EQ(at(rendered(view), 10, 3), kRed);
    EXPECT_EQ(at(rendered(view), 10, 17), kClear);
    [view setImage:[UIImage imageWithCGImage:[topHalf CGImage] scale:1 orientation:UIImageOrientationDown]];
    EXPECT_EQ(at(rendered(view), 10, 3), kClear);
    EXPECT_EQ(at(rendered(view), 10, 17), kRed);
}

// A picture for an unknown contact may be drawn on the queue's thread, in views that nobody else sees.
TEST_F(LayerTest, AnotherThreadMayDrawViewsOfItsOwn) {
    start("iphone6-8.4");
    NSMutableArray* pictures = [NSMutableArray array];
    @autoreleasepool {
        NSThread* thread = [[[NSThread alloc] initWithTarget:[UIImage class]
                                                    selector:@selector(testDrawInto:)
                                                      object:pictures] autorelease];
        [thread start];
        while (![thread isFinished]) usleep(1000);
    }
    ASSERT_EQ([pictures count], 1u);
    EXPECT_EQ(at([pictures lastObject], 5, 5), kRed);
}

TEST_F(LayerTest, ASnapshotShowsTheScrolledPartOnWhiteAtTheScreensScale) {
    start("iphone6plus-8.4");
    UIScrollView* scroll = [[[UIScrollView alloc] initWithFrame:CGRectMake(50, 50, 20, 20)] autorelease];
    [scroll addSubview:colored(CGRectMake(0, 100, 20, 10), [UIColor redColor])];
    [scroll setContentOffset:CGPointMake(0, 95)];
    UIImage* image = UISnapshotOfView(scroll);
    EXPECT_EQ(CGImageGetWidth([image CGImage]), 60u);
    EXPECT_EQ(at(image, 10, 2), kWhite);
    EXPECT_EQ(at(image, 10, 10), kRed);
    EXPECT_EQ(at(image, 10, 18), kWhite);
}

TEST_F(LayerTest, TellsADelegateThatIsNoViewWhatItAsksFor) {
    OwnDelegate* delegate = [[[OwnDelegate alloc] init] autorelease];
    CALayer* layer = [CALayer layer];
    [layer setDelegate:delegate];
    [layer setFrame:CGRectMake(0, 0, 10, 10)];
    [layer setCornerRadius:3];
    EXPECT_EQ(delegate->changes, 2);
    EXPECT_EQ(delegate->resizes, 1);
    [layer setFrame:CGRectMake(5, 5, 10, 10)];
    EXPECT_EQ(delegate->resizes, 1);
}

}  // namespace

@interface UIImage (TestDrawing)
+ (void)testDrawInto:(NSMutableArray*)pictures;
@end
@implementation UIImage (TestDrawing)
+ (void)testDrawInto:(NSMutableArray*)pictures {
    @autoreleasepool {
        UIImageView* view = [[[UIImageView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)] autorelease];
        [view setBackgroundColor:[UIColor redColor]];
        [view setClipsToBounds:YES];
        [pictures addObject:rendered(view)];
    }
}
@end
