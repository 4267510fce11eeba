#include <filesystem>

#include "tests/simulator/uikit/phone_test.h"
#include "tests/simulator/uikit/table_source.h"

namespace {

using phone::Pixel;

// Lists as a person sees them. Each test leaves its picture in the folder "pictures" of the tests' build folder.
class PictureTest : public PhoneTest {
  protected:
    UIImage* pictureOf(UIView* view, const char* name) {
        NSError* error = nil;
        std::filesystem::create_directories(folder_);
        NSString* path = [NSString stringWithUTF8String:(folder_ / name).c_str()];
        EXPECT_TRUE(UIWriteSnapshotOfView(view, path, &error)) << [[error localizedDescription] UTF8String];
        return UISnapshotOfView(view);
    }

  private:
    // Booting changes the working directory.
    const std::filesystem::path folder_ = std::filesystem::current_path() / "pictures";
};

NameSource* people() {
    NameSource* source = sourceOf(@[ @"Ada Lovelace", @"Alan Turing", @"Annie Easley" ]);
    [source->sections addObject:@[ @"Barbara Liskov", @"Bartholomew Featherstonehaugh-Cholmondeley of Marjoribanks" ]];
    [source->sections addObject:@[ @"Claude Shannon", @"Cynthia Breazeal" ]];
    [source->titles setArray:@[ @"A", @"B", @"C" ]];
    source->style = UITableViewCellStyleSubtitle;
    return source;
}

// Whether something darker than the paper stands in the rectangle.
bool hasInk(UIImage* image, CGRect area) {
    for (double y = area.origin.y; y < CGRectGetMaxY(area); y += 0.5) {
        for (double x = area.origin.x; x < CGRectGetMaxX(area); x += 0.5) {
            const double scale = [image scale];
            const auto pixel = phone::pixelAt([image CGImage], size_t(x * scale), size_t(y * scale));
            if (pixel && pixel->r < 120) return true;
        }
    }
    return false;
}

TEST_F(PictureTest, AContactsListAtTwoPixelsAPoint) {
    start("iphone6-8.4");
    NameSource* source = people();
    source->indexed = YES;
    UIImage* image = pictureOf(makeTable(source, CGRectMake(0, 0, 375, 480)), "contacts-2x.png");
    EXPECT_EQ(at(image, 300, 10), (Pixel{247, 247, 247, 255})) << "a section's header";
    EXPECT_TRUE(hasInk(image, CGRectMake(15, 32, 100, 20))) << "the first name";
    EXPECT_FALSE(hasInk(image, CGRectMake(0, 28, 14, 44))) << "the margin";
    EXPECT_EQ(at(image, 200, 71.5), (Pixel{200, 199, 204, 255})) << "the hairline under the first row";
    EXPECT_EQ(at(image, 200, 71), (Pixel{255, 255, 255, 255})) << "is one pixel high";
    EXPECT_EQ(at(image, 14, 71.5), (Pixel{255, 255, 255, 255})) << "and inset";
}

TEST_F(PictureTest, ARecentsListAtThreePixelsAPoint) {
    start("iphone6plus-8.4");
    NameSource* source = people();
    [source->titles removeAllObjects];
    source->accessory = UITableViewCellAccessoryDetailButton;
    UITableView* table = makeTable(source, CGRectMake(0, 0, 414, 400));
    [table setRowHeight:52];
    UIImage* image = pictureOf(table, "recents-3x.png");
    EXPECT_EQ(CGImageGetWidth([image CGImage]), 1242u);
    const Pixel ring = at(image, 388, 14.5);
    EXPECT_GT(ring.b, ring.r) << "the detail button is blue";
}

TEST_F(PictureTest, AListBeingEdited) {
    start("iphone6-8.4");
    NameSource* source = people();
    source->accessory = UITableViewCellAccessoryDetailDisclosureButton;
    UITableView* table = makeTable(source, CGRectMake(0, 0, 375, 400));
    pictureOf(table, "before-editing-2x.png");
    [table setEditing:YES animated:NO];
    UIImage* image = pictureOf(table, "editing-2x.png");
    EXPECT_EQ(at(image, 17, 50), (Pixel{255, 59, 48, 255})) << "the delete control";
    EXPECT_EQ(at(image, 22, 49.5), (Pixel{255, 255, 255, 255})) << "and its bar";
    EXPECT_FALSE(hasInk(image, CGRectMake(320, 28, 55, 43))) << "accessories are gone";
}

TEST_F(PictureTest, AListReadFromTheRight) {
    start("iphone6-9.3", true);
    NameSource* source = people();
    source->accessory = UITableViewCellAccessoryDetailDisclosureButton;
    source->indexed = YES;
    UITableView* table = makeTable(source, CGRectMake(0, 0, 375, 400));
    UIImage* image = pictureOf(table, "right-to-left-2x.png");
    EXPECT_TRUE(hasInk(image, CGRectMake(260, 28, 100, 43)));
    EXPECT_FALSE(hasInk(image, CGRectMake(90, 28, 100, 43)));
    [table setEditing:YES animated:NO];
    pictureOf(table, "right-to-left-editing-2x.png");
}

TEST_F(PictureTest, AListReadFromTheRightBeforeMirroring) {
    start("iphone5s-7.1", true);
    NameSource* source = people();
    source->accessory = UITableViewCellAccessoryDetailButton;
    UIImage* image = pictureOf(makeTable(source, CGRectMake(0, 0, 320, 400)), "right-to-left-7.1-2x.png");
    EXPECT_TRUE(hasInk(image, CGRectMake(180, 22, 95, 43)));
}

TEST_F(PictureTest, AScreenOfParts) {
    start("iphone6-8.4");
    UIView* screen = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 375, 330)] autorelease];
    UISearchBar* bar = [[[UISearchBar alloc] initWithFrame:CGRectMake(0, 0, 375, 44)] autorelease];
    [bar setPlaceholder:@"Search"];
    [screen addSubview:bar];
    UISearchBar* typed = [[[UISearchBar alloc] initWithFrame:CGRectMake(0, 44, 375, 44)] autorelease];
    [typed setText:@"Ada"];
    [screen addSubview:typed];
    UITableView* grouped = [[[UITableView alloc] initWithFrame:CGRectMake(0, 88, 375, 200)
                                                         style:UITableViewStyleGrouped] autorelease];
    NameSource* source = sourceOf(@[ @"Home", @"Work" ]);
    [source->titles setArray:@[ @"Addresses" ]];
    source->style = UITableViewCellStyleValue1;
    source->accessory = UITableViewCellAccessoryDisclosureIndicator;
    [grouped setDelegate:source];
    [grouped setDataSource:source];
    [screen addSubview:grouped];
    UIButton* button = [UIButton buttonWithType:UIButtonTypeSystem];
    [button setTitle:@"Recents" forState:UIControlStateNormal];
    [button setFrame:CGRectMake(0, 290, 187, 40)];
    [screen addSubview:button];
    UIImage* image = pictureOf(screen, "parts-2x.png");
    EXPECT_EQ(at(image, 20, 22), (Pixel{255, 255, 255, 255})) << "the search field";
    EXPECT_EQ(at(image, 2, 22), (Pixel{201, 201, 206, 255})) << "the bar";
    EXPECT_TRUE(hasInk(image, CGRectMake(60, 290, 60, 40)));
}

}  // namespace
