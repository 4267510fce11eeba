// Pictures of screens as files of the format that their names say.
#pragma once

#include <filesystem>
#include <string>

namespace tool {

// Where a picture goes: "-" is standard output, as PNG; other names end in .png, .jpg, .jpeg or .webp, or in nothing,
// which is PNG. Throws Problem for other endings and for places where no file can be put: the file that a link leads to
// is replaced, not the link, and nothing but a file.
class PictureFile {
  public:
    explicit PictureFile(const std::string& name);
    ~PictureFile();
    PictureFile(const PictureFile&) = delete;
    PictureFile& operator=(const PictureFile&) = delete;

    // Where a host is to draw the screen, as PNG.
    const std::filesystem::path& drawn() const { return drawn_; }
    // Makes the file, or writes it to standard output, once the host has drawn. Throws Problem when it cannot.
    void finish();

  private:
    enum class Format { png, jpeg, webp };

    std::string encoded() const;

    std::string name_;
    std::filesystem::path place_;   // empty: standard output
    std::filesystem::path folder_;  // of the picture that the host draws; empty when it draws in the place itself
    std::filesystem::path drawn_;
    Format format_ = Format::png;
};

}  // namespace tool
