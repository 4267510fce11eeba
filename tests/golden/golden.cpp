#include "tests/golden/golden.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "simulator/runtime/glib_pointers.h"

namespace test {
namespace {

namespace fs = std::filesystem;

using Pixbuf = phone::GObjectPointer<GdkPixbuf>;

Pixbuf load(const fs::path& file) { return Pixbuf(gdk_pixbuf_new_from_file(file.c_str(), nullptr)); }

const guchar* at(GdkPixbuf* picture, int x, int y) {
    return gdk_pixbuf_read_pixels(picture) + y * gdk_pixbuf_get_rowstride(picture) +
           x * gdk_pixbuf_get_n_channels(picture);
}

// Means of squares, without the alpha, which a screen does not have; rounded to 16 steps so that the file stays small.
Pixbuf smaller(GdkPixbuf* picture, int divisor) {
    const int width = gdk_pixbuf_get_width(picture) / divisor;
    const int height = gdk_pixbuf_get_height(picture) / divisor;
    Pixbuf result(gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, width, height));
    guchar* pixels = gdk_pixbuf_get_pixels(result.get());
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            for (int c = 0; c < 3; ++c) {
                int sum = 0;
                for (int dy = 0; dy < divisor; ++dy)
                    for (int dx = 0; dx < divisor; ++dx) sum += at(picture, x * divisor + dx, y * divisor + dy)[c];
                const int mean = sum / (divisor * divisor);
                pixels[y * gdk_pixbuf_get_rowstride(result.get()) + 3 * x + c] =
                    static_cast<guchar>((mean * 15 + 127) / 255 * 17);
            }
        }
    }
    return result;
}

std::string save(GdkPixbuf* picture, const fs::path& file) {
    GError* error = nullptr;
    if (gdk_pixbuf_save(picture, file.c_str(), "png", &error, "compression", "9", nullptr) != FALSE) return "";
    const std::string problem = file.string() + ": " + error->message;
    g_error_free(error);
    return problem;
}

std::string difference(GdkPixbuf* a, GdkPixbuf* b, const Tolerance& tolerance) {
    const int width = gdk_pixbuf_get_width(a);
    const int height = gdk_pixbuf_get_height(a);
    if (gdk_pixbuf_get_width(b) != width || gdk_pixbuf_get_height(b) != height) return "has another size";
    long strange = 0;
    double sum = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            int widest = 0;
            for (int c = 0; c < 3; ++c) {
                const int d = std::abs(at(a, x, y)[c] - at(b, x, y)[c]);
                widest = d > widest ? d : widest;
                sum += d;
            }
            if (widest > tolerance.sameColour) ++strange;
        }
    }
    const double pixels = static_cast<double>(width) * height;
    if (static_cast<double>(strange) <= tolerance.strange * pixels && sum / (3 * pixels) <= tolerance.meanDifference)
        return "";
    char text[120];
    std::snprintf(text, sizeof text, "%ld of %.0f pixels differ, the mean difference is %.2f", strange, pixels,
                  sum / (3 * pixels));
    return text;
}

}  // namespace

std::string compareWithGolden(const fs::path& shot, int divisor, const std::string& name) {
    const fs::path golden = fs::path(ZELKA_GOLDEN) / (name + ".png");
    const Pixbuf large = load(shot);
    if (!large) return shot.string() + ": cannot be read";
    const Pixbuf screen = smaller(large.get(), divisor);
    if (std::getenv("ZELKA_UPDATE_GOLDEN") != nullptr) return save(screen.get(), golden);
    const Pixbuf expected = load(golden);
    const std::string problem =
        expected ? difference(screen.get(), expected.get(), Tolerance{}) : "there is no golden picture yet";
    if (problem.empty()) return "";
    const fs::path kept = fs::path(ZELKA_GOLDEN_OUT) / (name + ".png");
    fs::create_directories(kept.parent_path());
    const std::string unsaved = save(screen.get(), kept);
    return name + ": " + problem + "; " + (unsaved.empty() ? "what was drawn is " + kept.string() : unsaved) +
           ", what was expected is " + golden.string();
}

}  // namespace test
