#include "tests/unit/bootstrap/elf_file.h"

#include <cstdint>
#include <cstdio>
#include <map>
#include <nlohmann/json.hpp>

namespace test {
namespace {

using Json = nlohmann::json;

// What llvm-readelf prints of the file; null when it does not take it for one of this format.
Json printed(const std::string& path) {
    const std::string command =
        "llvm-readelf-19 --elf-output-style=JSON --demangle --sections --dynamic-table --relocations --dyn-syms "
        "--symbols '" +
        path + "' 2>/dev/null";
    std::string text;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return nullptr;
    char part[65536];
    for (size_t got = 0; (got = fread(part, 1, sizeof part, pipe)) > 0;) text.append(part, got);
    const bool succeeded = pclose(pipe) == 0;
    const Json files = Json::parse(text, nullptr, false);
    return succeeded && files.is_array() && files.size() == 1 && files[0].contains("Sections") ? files[0] : Json();
}

using Functions = std::map<std::uint64_t, std::string>;

Functions functionsOf(const Json& file) {
    Functions names;
    for (const Json& each : file.at("Symbols")) {
        const Json& symbol = each.at("Symbol");
        if (symbol.at("Type").at("Name") == "Function") names[symbol.at("Value")] = symbol.at("Name").at("Name");
    }
    return names;
}

// The array's entries are filled in when the file is loaded: what with, the relocations tell.
std::vector<std::string> functionArray(const Json& file, const char* type, const Functions& functions) {
    std::uint64_t begin = 0, size = 0;
    for (const Json& each : file.at("Sections")) {
        const Json& section = each.at("Section");
        if (section.at("Type").at("Name") != type) continue;
        begin = section.at("Address");
        size = section.at("Size");
    }
    std::vector<std::string> names(size / sizeof(void*), "not relocated");
    for (const Json& section : file.at("Relocations")) {
        for (const Json& each : section.at("Relocs")) {
            const Json& relocation = each.at("Relocation");
            const std::uint64_t offset = relocation.at("Offset");
            if (offset < begin || offset >= begin + size) continue;
            const auto function = functions.find(relocation.at("Addend").get<std::uint64_t>());
            names[(offset - begin) / sizeof(void*)] =
                function != functions.end() ? function->second : "unknown function";
        }
    }
    return names;
}

}  // namespace

LibraryFile readLibrary(const std::string& path) {
    const Json read = printed(path);
    if (read.is_null()) return {.problem = path + " is no ELF file"};
    LibraryFile file;
    const Functions functions = functionsOf(read);
    file.initialisers = functionArray(read, "SHT_INIT_ARRAY", functions);
    file.finalisers = functionArray(read, "SHT_FINI_ARRAY", functions);
    for (const Json& entry : read.at("DynamicSection")) {
        if (entry.at("Type") == "INIT" || entry.at("Type") == "FINI") file.hasOldInitialisers = true;
    }
    for (const Json& each : read.at("DynamicSymbols")) {
        const Json& symbol = each.at("Symbol");
        const std::string section = symbol.at("Section").at("Name");
        if (section != "Undefined" && section != "Absolute") file.exports.push_back(symbol.at("Name").at("Name"));
    }
    for (const Json& each : read.at("Symbols")) file.symbols.push_back(each.at("Symbol").at("Name").at("Name"));
    return file;
}

}  // namespace test
