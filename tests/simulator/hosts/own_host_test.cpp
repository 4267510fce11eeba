// The sample host: what a stranger's program gets from the library that hosts link.
#include <gdk-pixbuf/gdk-pixbuf.h>
#include <gmock/gmock.h>

#include <array>

#include "simulator/runtime/glib_pointers.h"
#include "tests/simulator/hosts/host_fixture.h"

namespace {

using hosts::HostProcess;

using Colour = std::array<int, 3>;

class Picture {
  public:
    explicit Picture(const std::filesystem::path& file) : picture_(gdk_pixbuf_new_from_file(file.c_str(), nullptr)) {}
    bool loaded() const { return picture_ != nullptr; }
    Colour at(int x, int y) const {
        const guchar* pixel = gdk_pixbuf_read_pixels(picture_.get()) + y * gdk_pixbuf_get_rowstride(picture_.get()) +
                              x * gdk_pixbuf_get_n_channels(picture_.get());
        return {pixel[0], pixel[1], pixel[2]};
    }
    // How many pixels of a column's part are darker than half: where text is.
    int inkOf(int left, int right, int top, int bottom) const {
        int dark = 0;
        for (int y = top; y < bottom; ++y)
            for (int x = left; x < right; ++x)
                if (const Colour colour = at(x, y); colour[0] + colour[1] + colour[2] < 3 * 160) ++dark;
        return dark;
    }

  private:
    phone::GObjectPointer<GdkPixbuf> picture_;
};

class OwnHostTest : public HostTest {
  protected:
    hosts::HostOptions sample() const {
        hosts::HostOptions options = this->options();
        options.program = SAMPLE_HOST;
        return options;
    }
};

TEST_F(OwnHostTest, RunsAsAProcessOfThePhoneUnderItsProgramsName) {
    makePhone();
    HostProcess host(hosts::HostKind::springBoard, sample());
    const Json info = host.call({{"do", "info"}});
    EXPECT_EQ(info.at("bundleIdentifier"), "colours");
    EXPECT_EQ(info.at("windows"), 1);
    EXPECT_EQ(host.quit(), 0);
}

TEST_F(OwnHostTest, ShowsARowForEachColourWithItsDiscAndTexts) {
    makePhone("iphone6-8.4");
    HostProcess host(hosts::HostKind::springBoard, sample());
    host.call({{"do", "settle"}, {"timeout", 10}});
    const auto file = folder_ / "shot.png";
    const Json size = host.call({{"do", "shot"}, {"out", file.string()}});
    EXPECT_EQ(size.at("width"), 750);
    const Picture picture(file);
    ASSERT_TRUE(picture.loaded());
    const std::array<Colour, 4> colours{{{255, 0, 0}, {0, 128, 0}, {0, 0, 255}, {255, 128, 0}}};
    for (int row = 0; row < 4; ++row) {
        const int middle = 88 * row + 43;  // rows of 44 points at two pixels a point
        EXPECT_EQ(picture.at(60, middle), colours[row]) << "the disc of row " << row;
        EXPECT_EQ(picture.at(400, middle), (Colour{255, 255, 255})) << "between the texts of row " << row;
        EXPECT_GT(picture.inkOf(120, 240, middle - 20, middle + 20), 50) << "the name of row " << row;
        EXPECT_GT(picture.inkOf(600, 720, middle - 20, middle + 20), 50) << "the pixel of row " << row;
    }
    EXPECT_EQ(picture.at(60, 88 * 4 + 43), (Colour{255, 255, 255})) << "below the last row";
}

TEST_F(OwnHostTest, ReportsCommandsThatOnlyCallBarKnows) {
    makePhone();
    HostProcess host(hosts::HostKind::springBoard, sample());
    EXPECT_THAT(errorOf(host, {{"do", "rows"}}), testing::HasSubstr("no command \"rows\""));
}

}  // namespace
