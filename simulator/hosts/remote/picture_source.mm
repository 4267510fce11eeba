#import "simulator/hosts/remote/picture_source.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <map>
#include <optional>

#include "simulator/frameworks/contacts_ui/ABUIPerson.h"
#include "simulator/frameworks/uikit/uikit.h"
#include "simulator/hosts/remote/pixels.h"

namespace hosts {
namespace {

constexpr size_t kSide = 40;            // pictures are compared at this many pixels a side
constexpr double kInnerRadius = 0.44;   // of the side: inside every shape that is cut out
constexpr double kSamePicture = 7;      // mean difference a byte that scaling and encoding explain
constexpr int kSameColour = 10;         // difference a byte that antialiasing's rounding explains
constexpr double kLetterShare = 0.004;  // of the disc that letters cover at least

NSString* const kBundle = @"/System/Library/PreferenceBundles/ZelkaCBSettings.bundle";

using Colour = std::array<int, 3>;

// Calls `visit(pixel of a, x, y)` for the inner disc.
template <class Visit>
void forInnerDisc(const Pixels& pixels, Visit visit) {
    const auto fromMiddle = [](size_t position, size_t length) {
        return (static_cast<double>(position) + 0.5) / static_cast<double>(length) - 0.5;
    };
    for (size_t y = 0; y < pixels.height; ++y) {
        for (size_t x = 0; x < pixels.width; ++x) {
            const double dx = fromMiddle(x, pixels.width);
            const double dy = fromMiddle(y, pixels.height);
            if (dx * dx + dy * dy <= kInnerRadius * kInnerRadius) visit(pixels.at(x, y), x, y);
        }
    }
}

// The mean difference a byte over the inner disc; infinite when there is nothing to compare.
double difference(const Pixels& a, const Pixels& b) {
    if (a.empty() || b.empty()) return std::numeric_limits<double>::infinity();
    double sum = 0;
    long bytes = 0;
    forInnerDisc(a, [&](const uint8_t* pixel, size_t x, size_t y) {
        const uint8_t* other = b.at(x, y);
        for (int i = 0; i < 4; ++i) sum += std::abs(pixel[i] - other[i]);
        bytes += 4;
    });
    return sum / static_cast<double>(bytes);
}

bool transparent(const Pixels& pixels) {
    for (size_t i = 3; i < pixels.rgba.size(); i += 4)
        if (pixels.rgba[i] != 0) return false;
    return true;
}

bool showsPhotoOf(const Pixels& shown, ABUIPerson* person) {
    NSData* data = [person preferredPhotoThumbnail];
    return [data length] > 0 && difference(shown, pixelsStretched([UIImage imageWithData:data], kSide)) < kSamePicture;
}

// The bundle's file for this screen; nil when it is missing.
UIImage* bundlePicture(NSString* name) {
    const int scale = (int)[[UIScreen mainScreen] scale];
    NSString* suffix = scale >= 2 ? [NSString stringWithFormat:@"@%dx.png", scale] : @".png";
    return [UIImage
        imageWithContentsOfFile:[[kBundle stringByAppendingPathComponent:name] stringByAppendingString:suffix]];
}

// That file's picture at the size of comparison; empty when it is missing. Read once: every row that is looked at is
// compared with all of them, and the bundle stays as it is while a host runs.
const Pixels& bundleFigure(NSString* name) {
    static std::map<std::string, Pixels> figures;
    const auto [figure, isNew] = figures.try_emplace([name UTF8String]);
    if (isNew) figure->second = pixelsStretched(bundlePicture(name), kSide);
    return figure->second;
}

// The colour that most pixels of the inner disc have; nothing when they are not opaque.
std::optional<Colour> commonColour(const Pixels& pixels) {
    std::map<Colour, long> counts;
    forInnerDisc(pixels, [&](const uint8_t* pixel, size_t, size_t) {
        if (pixel[3] >= 250) ++counts[{pixel[0], pixel[1], pixel[2]}];
    });
    if (counts.empty()) return std::nullopt;
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& a, const auto& b) { return a.second < b.second; })
        ->first;
}

std::string colourText(const Colour& colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", colour[0] & 255, colour[1] & 255, colour[2] & 255);
    return text;
}

// The colour that must lie behind `figure` for `shown` to come out, by its more transparent parts; nothing when it has
// none.
std::optional<Colour> colourBehind(const Pixels& shown, const Pixels& figure) {
    std::array<double, 3> sum{};
    long count = 0;
    forInnerDisc(figure, [&](const uint8_t* pixel, size_t x, size_t y) {
        if (pixel[3] > 128) return;
        for (size_t c = 0; c < 3; ++c) sum[c] += (shown.at(x, y)[c] - pixel[c]) * 255.0 / (255 - pixel[3]);
        ++count;
    });
    if (count == 0) return std::nullopt;
    Colour colour{};
    for (size_t c = 0; c < 3; ++c)
        colour[c] = std::clamp(static_cast<int>(std::lround(sum[c] / static_cast<double>(count))), 0, 255);
    return colour;
}

Pixels over(const Pixels& figure, const Colour& colour) {
    Pixels result = figure;
    for (size_t i = 0; i < result.rgba.size(); i += 4) {
        const int through = 255 - result.rgba[i + 3];
        for (size_t c = 0; c < 3; ++c)
            result.rgba[i + c] = static_cast<uint8_t>(std::min(255, result.rgba[i + c] + colour[c] * through / 255));
        result.rgba[i + 3] = 255;
    }
    return result;
}

// Which of the bundle's pictures is shown. A silhouette on a greyish colour is not far from the default picture, nor
// the default picture from a silhouette on grey: the nearest is meant.
std::optional<PictureSource> bundlePictureShown(const Pixels& shown) {
    double nearest = kSamePicture;
    std::optional<PictureSource> found;
    const auto offer = [&](const Pixels& candidate, const PictureSource& source) {
        const double distance = difference(shown, candidate);
        if (distance >= nearest) return;
        nearest = distance;
        found = source;
    };

    offer(bundleFigure(@"recent"), {"default", 0, ""});
    for (NSString* name in @[ @"user_monogram_round", @"user_monogram" ]) {
        const Pixels& figure = bundleFigure(name);
        if (figure.empty()) continue;
        offer(figure, {"silhouette", 0, ""});
        const std::optional<Colour> colour = colourBehind(shown, figure);
        if (colour) offer(over(figure, *colour), {"silhouette", 0, colourText(*colour)});
    }
    return found;
}

// Whether the colour lies between `from` and white, as the edge of a white letter does; `share` is how far.
bool towardsWhite(const uint8_t* pixel, const Colour& from, double& share) {
    int widest = 0;
    for (int c = 1; c < 3; ++c)
        if (255 - from[c] > 255 - from[widest]) widest = c;
    const int range = 255 - from[widest];
    share = range > 0 ? static_cast<double>(pixel[widest] - from[widest]) / range : 0;
    if (share < -0.1) return false;
    for (int c = 0; c < 3; ++c)
        if (std::abs(from[c] + share * (255 - from[c]) - pixel[c]) > kSameColour) return false;
    return true;
}

std::optional<PictureSource> monogram(const Pixels& shown) {
    const std::optional<Colour> colour = commonColour(shown);
    if (!colour) return std::nullopt;
    long all = 0;
    long letters = 0;
    long strange = 0;
    forInnerDisc(shown, [&](const uint8_t* pixel, size_t, size_t) {
        double share = 0;
        ++all;
        if (pixel[3] < 250 || !towardsWhite(pixel, *colour, share)) ++strange;
        if (share > 0.8) ++letters;
    });
    if (strange > 0) return std::nullopt;
    const bool written = static_cast<double>(letters) >= kLetterShare * static_cast<double>(all);
    return PictureSource{written ? "monogram" : "plain", 0, colourText(*colour)};
}

// The grey goes from lighter to darker down the middle of the disc's left part, where no letter stands.
bool systemMonogram(const Pixels& shown) {
    const auto grey = [&shown](double y, Colour expected) {
        const uint8_t* pixel = shown.at(shown.width / 2, static_cast<size_t>(y * static_cast<double>(shown.height)));
        bool same = pixel[3] >= 250;
        for (int c = 0; c < 3; ++c) same = same && std::abs(pixel[c] - expected[c]) <= kSameColour;
        return same;
    };
    return grey(0.06, {163, 169, 183}) && grey(0.94, {135, 139, 150});
}

}  // namespace

PictureSource sourceOfPicture(UIImage* image, int contact) {
    if (image == nil) return {"none", 0, ""};
    const Pixels shown = pixelsOf(image);
    if (transparent(shown)) return {"empty", 0, ""};
    const Pixels small = pixelsStretched(image, kSide);
    ABUIPerson* person = contact > 0 ? [ABUIPerson personWithRecordID:contact] : nil;
    if (showsPhotoOf(small, person)) return {"photo", contact, ""};
    for (ABUIPerson* linked in [person linkedPeople])
        if ([linked recordID] != contact && showsPhotoOf(small, linked)) return {"linked photo", [linked recordID], ""};
    if (const auto found = bundlePictureShown(small)) return *found;
    if (systemMonogram(shown)) return {"system monogram", 0, ""};
    if (const auto found = monogram(shown)) return *found;
    return {"other", 0, ""};
}

}  // namespace hosts
