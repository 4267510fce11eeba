#include "tests/simulator/maker/workbench.h"

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <fstream>

#include "simulator/maker/database/schema.h"

namespace test {

namespace fs = std::filesystem;

Workbench::Workbench() {
    std::string pattern = (fs::temp_directory_path() / "workbench-XXXXXX").string();
    path_ = fs::canonical(mkdtemp(pattern.data()));
}

Workbench::~Workbench() {
    std::error_code error;
    fs::remove_all(path_, error);
}

fs::path Workbench::write(const std::string& name, std::string_view contents) const {
    fs::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << contents;
    return path_ / name;
}

maker::RootReport Workbench::makeFrom(const std::string& vcards) const {
    maker::RootOptions options;
    options.root = root();
    options.contacts = {write("contacts.vcf", vcards)};
    options.noCalls = true;
    phone::Result<maker::RootReport> report = maker::makeRoot(options);
    EXPECT_EQ(phone::problemOf(report), "");
    return report ? *report : maker::RootReport{};
}

std::vector<std::string> Workbench::names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(path_)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> query(const fs::path& database, const char* sql) {
    std::vector<std::string> values;
    phone::Result<maker::Database> opened = maker::Database::openToRead(database);
    EXPECT_EQ(phone::problemOf(opened), "");
    if (!opened) return values;
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(opened->get(), sql, -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(opened->get());
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
            const void* bytes = sqlite3_column_blob(statement, column);
            auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
            bool isNull = sqlite3_column_type(statement, column) == SQLITE_NULL;
            values.push_back(isNull ? "NULL" : std::string(static_cast<const char*>(bytes ? bytes : ""), length));
        }
    }
    sqlite3_finalize(statement);
    return values;
}

std::vector<std::string> queryBook(const fs::path& root, const char* sql) {
    return query(root / maker::addressBookShape().path, sql);
}
std::vector<std::string> queryImages(const fs::path& root, const char* sql) {
    return query(root / maker::imagesShape().path, sql);
}
std::vector<std::string> queryCalls(const fs::path& root, const char* sql) {
    return query(root / maker::callHistoryShape().path, sql);
}

std::string picture(int width, int height, unsigned colour, const char* kind) {
    GdkPixbuf* pixbuf = gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, width, height);
    gdk_pixbuf_fill(pixbuf, colour << 8 | 0xFF);
    gchar* bytes = nullptr;
    gsize length = 0;
    EXPECT_TRUE(gdk_pixbuf_save_to_buffer(pixbuf, &bytes, &length, kind, nullptr, nullptr));
    std::string encoded(bytes, length);
    g_free(bytes);
    g_object_unref(pixbuf);
    return encoded;
}

PictureFacts look(const std::string& encoded) {
    PictureFacts facts;
    GdkPixbufLoader* loader = gdk_pixbuf_loader_new();
    gdk_pixbuf_loader_write(loader, reinterpret_cast<const guchar*>(encoded.data()), encoded.size(), nullptr);
    gdk_pixbuf_loader_close(loader, nullptr);
    if (GdkPixbuf* pixbuf = gdk_pixbuf_loader_get_pixbuf(loader)) {
        facts.width = gdk_pixbuf_get_width(pixbuf);
        facts.height = gdk_pixbuf_get_height(pixbuf);
        const guchar* pixel = gdk_pixbuf_read_pixels(pixbuf) + facts.height / 2 * gdk_pixbuf_get_rowstride(pixbuf) +
                              facts.width / 2 * gdk_pixbuf_get_n_channels(pixbuf);
        facts.middle = static_cast<unsigned>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
        gchar* kind = gdk_pixbuf_format_get_name(gdk_pixbuf_loader_get_format(loader));
        facts.kind = kind;
        g_free(kind);
    }
    g_object_unref(loader);
    return facts;
}

std::string base64(const std::string& bytes) {
    gchar* text = g_base64_encode(reinterpret_cast<const guchar*>(bytes.data()), bytes.size());
    std::string result = text;
    g_free(text);
    return result;
}

}  // namespace test
