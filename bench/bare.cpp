#include "bench/bare.h"

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <pango/pangocairo.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <iterator>
#include <numbers>
#include <string>

namespace bench {
namespace {

constexpr const char* kImages = "/private/var/mobile/Library/AddressBook/AddressBookImages.sqlitedb";
constexpr const char* kBook = "/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
constexpr int kSide = 80;

std::string readThumbnail(int contact) {
    sqlite3* database = nullptr;
    sqlite3_open(kImages, &database);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database,
                       "SELECT data FROM ABThumbnailImage WHERE RECORD_ID=? AND FORMAT=0 AND DATA IS NOT NULL", -1,
                       &statement, nullptr);
    sqlite3_bind_int(statement, 1, contact);
    std::string bytes;
    if (sqlite3_step(statement) == SQLITE_ROW) {
        bytes.assign(static_cast<const char*>(sqlite3_column_blob(statement, 0)),
                     static_cast<std::size_t>(sqlite3_column_bytes(statement, 0)));
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return bytes;
}

// The address book keeps its connection, as the system's does.
sqlite3* book() {
    static sqlite3* database = [] {
        sqlite3* opened = nullptr;
        sqlite3_open_v2(kBook, &opened, SQLITE_OPEN_READONLY, nullptr);
        return opened;
    }();
    return database;
}

std::vector<int> identifiers(const char* sql, int contact) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(book(), sql, -1, &statement, nullptr);
    sqlite3_bind_int(statement, 1, contact);
    std::vector<int> found;
    while (sqlite3_step(statement) == SQLITE_ROW) found.push_back(sqlite3_column_int(statement, 0));
    sqlite3_finalize(statement);
    return found;
}

std::vector<int> linkedContacts(int contact) {
    if (identifiers("SELECT 1 FROM ABPerson WHERE ROWID = ?", contact).empty()) return {};
    return identifiers(
        "SELECT ROWID FROM ABPerson WHERE PersonLink = "
        "(SELECT PersonLink FROM ABPerson WHERE ROWID = ? AND PersonLink > 0) ORDER BY ROWID",
        contact);
}

// The line that the library writes when a contact has no thumbnail of its own, behind what the log puts before all.
void logSearch(int contact) {
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    tm local;
    localtime_r(&now.tv_sec, &local);
    char date[32];
    std::strftime(date, sizeof date, "%F %T", &local);
    dprintf(STDERR_FILENO,
            "%s.%03ld bench_pictures[%d:%d] com.norvex.ZelkaCB: Information => +[ZelkaCBUtils "
            "getContactImageDataFromAB:], [Line 52], Getting image for %d\n",
            date, now.tv_nsec / 1000000, getpid(), gettid(), contact);
}

Picture decode(const void* bytes, std::size_t length, const char* type) {
    GdkPixbufLoader* loader = gdk_pixbuf_loader_new_with_type(type, nullptr);
    gdk_pixbuf_loader_write(loader, static_cast<const guchar*>(bytes), length, nullptr);
    gdk_pixbuf_loader_close(loader, nullptr);
    GdkPixbuf* picture = gdk_pixbuf_loader_get_pixbuf(loader);
    const int width = gdk_pixbuf_get_width(picture), height = gdk_pixbuf_get_height(picture);
    Picture surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
    const guint8* from = gdk_pixbuf_read_pixels(picture);
    unsigned char* to = cairo_image_surface_get_data(surface.get());
    const std::ptrdiff_t fromStride = gdk_pixbuf_get_rowstride(picture);
    const std::ptrdiff_t toStride = cairo_image_surface_get_stride(surface.get());
    for (int y = 0; y < height; ++y) {
        auto* words = reinterpret_cast<std::uint32_t*>(to + y * toStride);
        const guint8* pixel = from + y * fromStride;
        for (int x = 0; x < width; ++x, pixel += 3)
            words[x] = 0xFF000000U | std::uint32_t{pixel[0]} << 16 | std::uint32_t{pixel[1]} << 8 | pixel[2];
    }
    cairo_surface_mark_dirty(surface.get());
    g_object_unref(loader);
    return surface;
}

void roundedPath(cairo_t* cairo, double side, double radius) {
    constexpr double kQuarter = std::numbers::pi / 2;
    cairo_new_path(cairo);
    cairo_arc(cairo, side - radius, radius, radius, -kQuarter, 0);
    cairo_arc(cairo, side - radius, side - radius, radius, 0, kQuarter);
    cairo_arc(cairo, radius, side - radius, radius, kQuarter, 2 * kQuarter);
    cairo_arc(cairo, radius, radius, radius, 2 * kQuarter, 3 * kQuarter);
    cairo_close_path(cairo);
}

// The whole picture in a square with rounded corners.
Picture shape(cairo_surface_t* source, double radius) {
    Picture surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSide, kSide));
    cairo_t* cairo = cairo_create(surface.get());
    roundedPath(cairo, kSide, radius);
    cairo_clip(cairo);
    cairo_rectangle(cairo, 0, 0, kSide, kSide);
    cairo_set_source_surface(cairo, source, 0, 0);
    cairo_matrix_t matrix;
    cairo_matrix_init_scale(&matrix, double(cairo_image_surface_get_width(source)) / kSide,
                            double(cairo_image_surface_get_height(source)) / kSide);
    cairo_pattern_set_matrix(cairo_get_source(cairo), &matrix);
    cairo_pattern_set_filter(cairo_get_source(cairo), CAIRO_FILTER_GOOD);
    cairo_pattern_set_extend(cairo_get_source(cairo), CAIRO_EXTEND_PAD);
    cairo_fill(cairo);
    cairo_destroy(cairo);
    return surface;
}

Picture finish(const void* bytes, std::size_t length, const char* type = "jpeg") {
    constexpr double kDisc = kSide / 2.0;
    const Picture decoded = decode(bytes, length, type);
    return shape(decoded.get(), kDisc);
}

PangoContext* textContext() {
    static PangoContext* context = [] {
        PangoContext* made = pango_font_map_create_context(pango_cairo_font_map_new());
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
        cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
        cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
        pango_cairo_context_set_font_options(made, options);
        cairo_font_options_destroy(options);
        pango_context_set_round_glyph_positions(made, FALSE);
        return made;
    }();
    return context;
}

// Each draw is a call of the system: drawn as often as the library does, which picks one of 30 colours.
std::uint32_t drawColor(int contact) {
    constexpr std::uint32_t kColors = 30;
    const std::uint32_t first = arc4random() % kColors;
    std::uint32_t index = first + (contact < 1 ? arc4random() : static_cast<std::uint32_t>(contact)) % kColors;
    while (index >= kColors) index = 2 * (arc4random() % kColors);
    return 0x010101U * (index * 8);
}

void drawInitials(cairo_t* cairo, const char* initials, double points) {
    constexpr double kFontSize = 17, kAscent = 16.5;
    PangoFontDescription* font = pango_font_description_new();
    pango_font_description_set_family_static(font, "Inter,Noto Sans");
    pango_font_description_set_absolute_size(font, kFontSize * PANGO_SCALE);
    PangoLayout* layout = pango_layout_new(textContext());
    pango_layout_set_font_description(layout, font);
    pango_layout_set_text(layout, initials, -1);
    pango_layout_set_width(layout, int(points * PANGO_SCALE));
    pango_layout_set_height(layout, -1);
    pango_layout_set_ellipsize(layout, PANGO_ELLIPSIZE_END);
    PangoLayoutLine* line = pango_layout_get_line_readonly(layout, 0);
    PangoRectangle logical;
    pango_layout_line_get_extents(line, nullptr, &logical);
    cairo_set_source_rgb(cairo, 1, 1, 1);
    cairo_move_to(cairo, (points - double(logical.width) / PANGO_SCALE) / 2, (points - kFontSize - 4) / 2 + kAscent);
    pango_cairo_show_layout_line(cairo, line);
    g_object_unref(layout);
    pango_font_description_free(font);
}

}  // namespace

Picture barePhoto(int contact) {
    const std::string bytes = readThumbnail(contact);
    return bytes.empty() ? nullptr : finish(bytes.data(), bytes.size());
}

Picture bareLinkedPhoto(int contact) {
    if (Picture own = barePhoto(contact)) return own;
    logSearch(contact);
    for (int linked : linkedContacts(contact)) {
        if (linked == contact) continue;
        if (Picture theirs = barePhoto(linked)) return theirs;
    }
    return nullptr;
}

Picture bareMonogram(const char* initials, int contact) {
    constexpr double kPoints = 40, kScale = 2, kCorner = 5;
    Picture disc(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSide, kSide));
    cairo_t* cairo = cairo_create(disc.get());
    cairo_scale(cairo, kScale, kScale);
    const std::uint32_t color = drawColor(contact);
    cairo_set_source_rgb(cairo, (color & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0, (color >> 16 & 0xFF) / 255.0);
    cairo_arc(cairo, kPoints / 2, kPoints / 2, kPoints / 2, 0, 2 * std::numbers::pi);
    cairo_fill(cairo);
    drawInitials(cairo, initials, kPoints);
    cairo_destroy(cairo);
    return shape(disc.get(), kCorner * kScale);
}

Picture bareDefaultPicture() {
    std::ifstream file(ZELKA_BUNDLE "/recent@2x.png", std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    return bytes.empty() ? nullptr : finish(bytes.data(), bytes.size(), "png");
}

std::vector<Picture> barePreload() {
    std::vector<Picture> pictures;
    sqlite3* database = nullptr;
    sqlite3_open(kImages, &database);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, "SELECT record_id, data FROM ABThumbnailImage WHERE FORMAT=0 AND DATA IS NOT NULL", -1,
                       &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        const void* data = sqlite3_column_blob(statement, 1);
        pictures.push_back(finish(data, static_cast<std::size_t>(sqlite3_column_bytes(statement, 1))));
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return pictures;
}

}  // namespace bench
