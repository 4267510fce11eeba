#include "simulator/tool/picture_file.h"

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <stdlib.h>
#include <webp/encode.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <system_error>

#include "simulator/maker/common/read_file.h"
#include "simulator/runtime/glib_pointers.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

using Pixbuf = phone::GObjectPointer<GdkPixbuf>;

fs::path placeOf(const std::string& name) {
    fs::path out = fs::weakly_canonical(fs::absolute(name));
    if (fs::is_directory(out)) throw Problem(name + ": is a folder; name the picture to write in it");
    if (fs::exists(out) && !fs::is_regular_file(out)) throw Problem(name + ": is no file that a picture could replace");
    if (!fs::is_directory(out.parent_path())) throw Problem(out.parent_path().string() + ": there is no such folder");
    return out;
}

std::string endingOf(const fs::path& place) {
    std::string ending = place.extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(), [](unsigned char c) { return std::tolower(c); });
    return ending;
}

Pixbuf load(const fs::path& file) {
    GError* error = nullptr;
    Pixbuf picture(gdk_pixbuf_new_from_file(file.c_str(), &error));
    const std::string reason = error != nullptr ? error->message : "";
    g_clear_error(&error);
    if (!picture) throw Problem("the picture cannot be read: " + reason);
    return picture;
}

std::string jpegOf(const fs::path& file) {
    const Pixbuf picture = load(file);
    gchar* bytes = nullptr;
    gsize length = 0;
    if (!gdk_pixbuf_save_to_buffer(picture.get(), &bytes, &length, "jpeg", nullptr, "quality", "92", nullptr))
        throw Problem("the picture cannot be made a JPEG");
    const phone::GText owner(bytes);
    return {bytes, length};
}

// Without loss: a screen is letters and flat colours.
std::string webpOf(const fs::path& file) {
    const Pixbuf picture = load(file);
    const auto encode = gdk_pixbuf_get_has_alpha(picture.get()) ? WebPEncodeLosslessRGBA : WebPEncodeLosslessRGB;
    std::uint8_t* bytes = nullptr;
    const std::size_t length =
        encode(gdk_pixbuf_read_pixels(picture.get()), gdk_pixbuf_get_width(picture.get()),
               gdk_pixbuf_get_height(picture.get()), gdk_pixbuf_get_rowstride(picture.get()), &bytes);
    if (length == 0) throw Problem("the picture cannot be made a WebP");
    std::string result(reinterpret_cast<const char*>(bytes), length);
    WebPFree(bytes);
    return result;
}

}  // namespace

PictureFile::PictureFile(const std::string& name) : name_(name) {
    if (name != "-") place_ = placeOf(name);
    const std::string ending = endingOf(place_);
    if (ending == ".jpg" || ending == ".jpeg") {
        format_ = Format::jpeg;
    } else if (ending == ".webp") {
        format_ = Format::webp;
    } else if (!ending.empty() && ending != ".png") {
        throw Problem(name + ": a picture's name ends in .png, .jpg or .webp");
    }
    drawn_ = place_;
    if (format_ == Format::png && !place_.empty()) return;
    std::string pattern = (fs::temp_directory_path() / "phonesim-shot-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw Problem(pattern + ": cannot be made");
    folder_ = pattern;
    drawn_ = folder_ / "screen.png";
}

PictureFile::~PictureFile() {
    std::error_code error;
    if (!folder_.empty()) fs::remove_all(folder_, error);
}

std::string PictureFile::encoded() const {
    switch (format_) {
        case Format::png:
            return maker::readFile(drawn_).value();
        case Format::jpeg:
            return jpegOf(drawn_);
        case Format::webp:
            return webpOf(drawn_);
    }
    return {};
}

void PictureFile::finish() {
    if (folder_.empty()) return;
    const std::string bytes = encoded();
    if (place_.empty()) {
        if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size() || std::fflush(stdout) != 0)
            throw Problem("the picture cannot be written to standard output");
        return;
    }
    const fs::path part = place_.string() + ".part";
    std::ofstream out(part, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    std::error_code error;
    if (out) fs::rename(part, place_, error);
    if (out && !error) return;
    fs::remove(part, error);
    throw Problem(name_ + ": cannot be written");
}

}  // namespace tool
