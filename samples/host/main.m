// A host of one's own: a table of colours, each with a disc and what the disc's middle pixel holds.
#import <UIKit/UIKit.h>

static struct {
    const char* name;
    CGFloat red, green, blue;
} const kColours[] = {{"Red", 1, 0, 0}, {"Green", 0, 0.5, 0}, {"Blue", 0, 0, 1}, {"Orange", 1, 0.5, 0}};

static UIImage* MakeDisc(UIColor* colour) {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(30, 30), NO, 0);
    [colour setFill];
    CGContextFillEllipseInRect(UIGraphicsGetCurrentContext(), CGRectMake(0, 0, 30, 30));
    UIImage* disc = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return disc;
}

static NSString* TextOfMiddlePixel(CGImageRef image) {
    NSData* bytes = (NSData*)CGDataProviderCopyData(CGImageGetDataProvider(image));
    const size_t middle = CGImageGetHeight(image) / 2 * CGImageGetBytesPerRow(image) + CGImageGetWidth(image) / 2 * 4;
    const unsigned char* bgra = (const unsigned char*)[bytes bytes] + middle;  // what CGImageGetBitmapInfo says
    NSString* text = [NSString stringWithFormat:@"#%02x%02x%02x", bgra[2], bgra[1], bgra[0]];
    [bytes release];
    return text;
}

@interface ColoursController : UITableViewController
@end

@implementation ColoursController

- (NSInteger)tableView:(UITableView*)tableView numberOfRowsInSection:(NSInteger)section {
    return sizeof kColours / sizeof kColours[0];
}

- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath {
    UITableViewCell* cell = [tableView dequeueReusableCellWithIdentifier:@"colour"];
    if (!cell)
        cell = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleValue1
                                       reuseIdentifier:@"colour"] autorelease];
    const NSInteger row = [indexPath row];
    UIImage* disc = MakeDisc([UIColor colorWithRed:kColours[row].red
                                             green:kColours[row].green
                                              blue:kColours[row].blue
                                             alpha:1]);
    [[cell imageView] setImage:disc];
    [[cell textLabel] setText:[NSString stringWithUTF8String:kColours[row].name]];
    [[cell detailTextLabel] setText:TextOfMiddlePixel([disc CGImage])];
    return cell;
}

@end

@interface ColoursDelegate : NSObject <UIApplicationDelegate>
@end

@implementation ColoursDelegate

- (BOOL)application:(UIApplication*)application didFinishLaunchingWithOptions:(NSDictionary*)options {
    UIWindow* window = [[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]];
    [window setRootViewController:[[[ColoursController alloc] initWithStyle:UITableViewStylePlain] autorelease]];
    [window makeKeyAndVisible];
    return YES;
}

@end

int main(int argc, char* argv[]) { return UIApplicationMain(argc, argv, nil, @"ColoursDelegate"); }
