#include "simulator/maker/contacts/contact_files.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

#include "simulator/maker/contacts/csv_import.h"
#include "simulator/maker/contacts/ldif_import.h"
#include "simulator/maker/contacts/vcard_import.h"
#include "simulator/maker/text/charset.h"
#include "simulator/runtime/glib_pointers.h"

namespace maker {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 6> kEndings = {".vcf", ".vcard", ".csv", ".tsv", ".ldif", ".ldi"};

std::string lower(const std::string& text) { return phone::GText(g_ascii_strdown(text.c_str(), -1)).get(); }

bool isNamedAsContacts(fs::path file) {
    if (lower(file.extension().string()) == ".gz") file.replace_extension();
    const std::string ending = lower(file.extension().string());
    return std::find(kEndings.begin(), kEndings.end(), ending) != kEndings.end();
}

Result<std::vector<fs::path>> filesOf(const fs::path& place) {
    std::error_code error;
    if (!fs::is_directory(place, error)) return std::vector<fs::path>{place};
    std::vector<fs::path> files;
    for (fs::recursive_directory_iterator entry(place, error), end; !error && entry != end; entry.increment(error)) {
        if (isNamedAsContacts(entry->path()) && fs::is_regular_file(entry->path(), error))
            files.push_back(entry->path());
    }
    if (error) return failure(place.string() + ": cannot be read: " + error.message());
    if (files.empty()) {
        return failure(place.string() +
                       ": there is no file of contacts in this folder (.vcf, .csv or .ldif, also with .gz)");
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool isVCards(const std::string& bytes) {
    const std::vector<TextLine> lines = linesOf(bytes);
    return std::any_of(lines.begin(), lines.end(), [](const TextLine& line) {
        return g_ascii_strncasecmp(std::string(line.bytes).c_str(), "BEGIN:VCARD", 11) == 0;
    });
}

bool isLdif(const std::string& bytes) {
    for (const TextLine& line : linesOf(bytes)) {
        if (line.bytes.empty() || line.bytes[0] == '#') continue;
        const std::string start = lower(std::string(line.bytes.substr(0, 8)));
        return start.rfind("dn:", 0) == 0 || start == "version:";
    }
    return false;
}

// The first row alone, for a table that cannot be read to its end.
bool beginsAsContacts(const Text& text) {
    const Text first{text.file, text.bytes.substr(0, text.bytes.find('\n'))};
    const Result<std::vector<CsvRow>> rows = readCsv(first, false);
    return rows && !rows->empty() && isContactsHeader(rows->front());
}

Status importText(Text text, const ImportOptions& options, ImportedContacts& imported, const Progress& progress) {
    if (isVCards(text.bytes)) return importVCards(text, options, imported, progress);
    const bool ldif = isLdif(text.bytes);
    makeUtf8(text, options.charset, imported.findings);
    if (ldif) return importLdif(text, options, imported);
    Result<std::vector<CsvRow>> rows = readCsv(text, false);
    if (rows && !rows->empty() && isContactsHeader(rows->front())) {
        importCsv(text.file, *rows, options, imported);
        return {};
    }
    if (!rows && beginsAsContacts(text)) return failure(rows);
    // A table of something else is told from what is no table at all.
    if (rows && !rows->empty() && rows->front().fields.size() > 2) {
        return failure(placeOf(text.file, rows->front().line) +
                       ": is CSV, but this row names no column of contacts such as \"First Name\" or \"Phone\"");
    }
    return failure(text.file + ": there is no vCard in it, and it is neither CSV of contacts nor LDIF");
}

}  // namespace

Result<ImportedContacts> importContacts(const std::vector<fs::path>& places, const ImportOptions& options,
                                        const Progress& progress) {
    if (!options.charset.empty() && !isCharset(options.charset))
        return failure("--charset: there is no character set \"" + options.charset + "\"");
    ImportedContacts imported;
    for (const fs::path& place : places) {
        const Result<std::vector<fs::path>> files = filesOf(place);
        if (!files) return failure(files);
        for (const fs::path& file : *files) {
            const std::size_t before = imported.persons.size();
            Result<Text> text = readText(file, imported.findings, progress);
            if (!text) return failure(text);
            Status read = importText(std::move(*text), options, imported, progress);
            if (!read) return failure(read);
            if (imported.persons.size() == before)
                imported.findings.push_back({FindingKind::skipped, file.string(), 0, "there is no contact in it"});
        }
    }
    return imported;
}

}  // namespace maker
