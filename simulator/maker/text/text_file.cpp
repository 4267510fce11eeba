#include "simulator/maker/text/text_file.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <memory>

#include "simulator/maker/common/read_file.h"
#include "simulator/maker/text/charset.h"
#include "simulator/maker/text/utf8.h"

namespace maker {
namespace {

constexpr std::size_t kLargestText = std::size_t{1} << 30;  // of a compressed file, unpacked

bool startsWith(std::string_view text, std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
}

Result<std::string> unpacked(const std::string& packed, const std::string& file, const Progress& progress) {
    z_stream stream{};
    constexpr int gzipOnly = 16 + MAX_WBITS;
    if (inflateInit2(&stream, gzipOnly) != Z_OK) return failure(file + ": not enough memory to unpack it");
    const std::unique_ptr<z_stream, decltype(&inflateEnd)> end(&stream, inflateEnd);
    // zlib does not write to its input, but does not say so.
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    std::string text;
    std::vector<char> piece(1 << 16);
    while (stream.avail_in > 0) {
        reportGoingOn(progress);
        stream.next_out = reinterpret_cast<Bytef*>(piece.data());
        stream.avail_out = static_cast<uInt>(piece.size());
        const int code = inflate(&stream, Z_NO_FLUSH);
        if (code != Z_OK && code != Z_STREAM_END) return failure(file + ": cannot be unpacked: it is damaged");
        text.append(piece.data(), piece.size() - stream.avail_out);
        if (text.size() > kLargestText) return failure(file + ": unpacked, it has more than a gigabyte");
        // Several packed texts, one after the other, are one.
        if (code == Z_STREAM_END) {
            if (stream.avail_in == 0) return text;
            inflateReset(&stream);
        }
    }
    return failure(file + ": cannot be unpacked: it is cut short");
}

struct Wide {
    std::string_view mark;
    const char* charset;
};
// The longer marks first: one of them begins as a shorter one does.
constexpr std::array<Wide, 5> kMarks = {{{{"\xFF\xFE\0\0", 4}, "UTF-32LE"},
                                         {{"\0\0\xFE\xFF", 4}, "UTF-32BE"},
                                         {{"\xFF\xFE", 2}, "UTF-16LE"},
                                         {{"\xFE\xFF", 2}, "UTF-16BE"},
                                         {{"\xEF\xBB\xBF", 3}, ""}}};

// Without a mark: every format here begins with a letter, a digit or a sign of ASCII.
const char* wideCharset(std::string_view bytes) {
    if (bytes.size() < 4 || bytes.size() % 2 != 0) return "";
    if (bytes[0] != 0 && bytes[1] == 0 && bytes[3] == 0) return "UTF-16LE";
    if (bytes[0] == 0 && bytes[1] != 0 && bytes[2] == 0) return "UTF-16BE";
    return "";
}

int lineOfFirstReplacement(std::string_view text) {
    const std::size_t place = std::min(text.find("\uFFFD"), text.size());
    return 1 + static_cast<int>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place), '\n'));
}

void unifyLineEnds(std::string& text) {
    std::size_t written = 0;
    for (std::size_t read = 0; read < text.size(); ++read) {
        const bool isReturn = text[read] == '\r';
        if (isReturn && read + 1 < text.size() && text[read + 1] == '\n') continue;
        text[written++] = isReturn ? '\n' : text[read];
    }
    text.resize(written);
}

std::string countOf(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

Result<Text> readText(const std::filesystem::path& file, Findings& findings, const Progress& progress) {
    Result<std::string> content = readFile(file, progress);
    if (content && startsWith(*content, "\x1F\x8B")) content = unpacked(*content, file.string(), progress);
    if (!content) return failure(content);
    Text text{file.string(), std::move(*content)};
    std::string charset = wideCharset(text.bytes);
    for (const Wide& wide : kMarks) {
        if (!startsWith(text.bytes, wide.mark)) continue;
        charset = wide.charset;
        text.bytes.erase(0, wide.mark.size());
        break;
    }
    if (!charset.empty()) {
        Result<Converted> converted = toUtf8(text.bytes, charset);
        if (!converted) return failure(text.file + ": " + converted.error().message);
        text.bytes = std::move(converted->text);
        unifyLineEnds(text.bytes);
        if (converted->replaced > 0) {
            findings.push_back({FindingKind::characters, text.file, lineOfFirstReplacement(text.bytes),
                                countOf(converted->replaced, "place") + " from here on is not sound " + charset +
                                    " and became U+FFFD"});
        }
        return text;
    }
    unifyLineEnds(text.bytes);
    return text;
}

std::vector<TextLine> linesOf(std::string_view text) {
    std::vector<TextLine> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        lines.push_back({text.substr(start, end - start), static_cast<int>(lines.size()) + 1});
        start = end + 1;
    }
    return lines;
}

std::string madeUtf8(std::string_view bytes, const Charsets& charsets, const std::string& file, int line,
                     Findings& findings) {
    const std::string& charset = charsets.named.empty() ? charsets.given : charsets.named;
    const auto find = [&](const std::string& text) { findings.push_back({FindingKind::characters, file, line, text}); };
    // Only a set that is named in the file may change what is sound already: one of seven bits looks so.
    const bool sound = isUtf8(bytes);
    if (sound && charsets.named.empty()) return std::string(bytes);
    if (!charset.empty()) {
        const Result<Converted> converted = toUtf8(bytes, charset);
        if (converted) {
            if (converted->replaced > 0)
                find(countOf(converted->replaced, "character") + " here is not " + charset + " and became U+FFFD");
            return converted->text;
        }
        find(converted.error().message + (sound ? "; it is read as UTF-8" : "; what is not UTF-8 became U+FFFD"));
    } else {
        find("it is not UTF-8, and nothing says what else; --charset NAME does. It became U+FFFD");
    }
    return madeValid(std::string(bytes));
}

void makeUtf8(Text& text, const std::string& charset, Findings& findings) {
    if (isUtf8(text.bytes)) return;
    std::string converted;
    for (const TextLine& line : linesOf(text.bytes)) {
        converted += madeUtf8(line.bytes, {{}, charset}, text.file, line.number, findings) + "\n";
    }
    text.bytes = std::move(converted);
}

}  // namespace maker
