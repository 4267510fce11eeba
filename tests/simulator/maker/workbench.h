// A temporary directory for making phones in, and a look into what was made.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/maker/database/database.h"
#include "simulator/maker/make_root.h"

namespace test {

class Workbench {
  public:
    Workbench();
    ~Workbench();
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path root() const { return path_ / "phone"; }
    // Writes a file here; its path.
    std::filesystem::path write(const std::string& name, std::string_view contents) const;
    // Makes a phone from a vCard text; fails the test when it cannot.
    maker::RootReport makeFrom(const std::string& vcards) const;
    // Everything that lies here, by name.
    std::vector<std::string> names() const;

  private:
    std::filesystem::path path_;
};

// All values of a query, "NULL" for NULL, row after row.
std::vector<std::string> query(const std::filesystem::path& database, const char* sql);
std::vector<std::string> queryBook(const std::filesystem::path& root, const char* sql);
std::vector<std::string> queryImages(const std::filesystem::path& root, const char* sql);
std::vector<std::string> queryCalls(const std::filesystem::path& root, const char* sql);

// A picture of one colour (0xRRGGBB), encoded; `kind` as gdk-pixbuf names it.
std::string picture(int width, int height, unsigned colour, const char* kind = "png");
// Width, height and the colour in the middle (0xRRGGBB) of an encoded picture; zeroes when it is none.
struct PictureFacts {
    int width = 0, height = 0;
    unsigned middle = 0;
    std::string kind;
};
PictureFacts look(const std::string& encoded);

std::string base64(const std::string& bytes);

}  // namespace test
