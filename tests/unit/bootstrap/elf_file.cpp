#include "tests/unit/bootstrap/elf_file.h"

#include <cxxabi.h>
#include <elf.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <span>

namespace test {
namespace {

std::string readable(const char* name) {
    int status = 0;
    char* demangled = abi::__cxa_demangle(name, nullptr, nullptr, &status);
    std::string text = status == 0 ? demangled : name;
    std::free(demangled);
    return text;
}

class Reader {
  public:
    explicit Reader(const std::vector<char>& bytes) : bytes_(bytes) {
        const auto& header = *at<Elf64_Ehdr>(0);
        sections_ = {at<Elf64_Shdr>(header.e_shoff), header.e_shnum};
    }

    LibraryFile read() const {
        LibraryFile file;
        const std::map<std::uint64_t, std::string> functions = functionNames();
        file.initialisers = functionArray(SHT_INIT_ARRAY, functions);
        file.finalisers = functionArray(SHT_FINI_ARRAY, functions);
        for (const Elf64_Dyn& entry : contents<Elf64_Dyn>(SHT_DYNAMIC)) {
            if (entry.d_tag == DT_INIT || entry.d_tag == DT_FINI) file.hasOldInitialisers = true;
            if (entry.d_tag == DT_NULL) break;
        }
        for (const Elf64_Sym& symbol : contents<Elf64_Sym>(SHT_DYNSYM)) {
            const bool isDefined = symbol.st_shndx != SHN_UNDEF && symbol.st_shndx != SHN_ABS;
            if (isDefined) file.exports.emplace_back(name(SHT_DYNSYM, symbol));
        }
        for (const Elf64_Sym& symbol : contents<Elf64_Sym>(SHT_SYMTAB)) {
            file.symbols.emplace_back(name(SHT_SYMTAB, symbol));
        }
        return file;
    }

  private:
    template <class T>
    const T* at(std::uint64_t offset) const {
        return reinterpret_cast<const T*>(bytes_.data() + offset);
    }

    const Elf64_Shdr* section(std::uint32_t type) const {
        for (const Elf64_Shdr& each : sections_) {
            if (each.sh_type == type) return &each;
        }
        return nullptr;
    }

    template <class T>
    std::span<const T> contents(std::uint32_t type) const {
        const Elf64_Shdr* found = section(type);
        if (found == nullptr) return {};
        return {at<T>(found->sh_offset), found->sh_size / sizeof(T)};
    }

    const char* name(std::uint32_t table, const Elf64_Sym& symbol) const {
        return at<char>(sections_[section(table)->sh_link].sh_offset + symbol.st_name);
    }

    std::map<std::uint64_t, std::string> functionNames() const {
        std::map<std::uint64_t, std::string> names;
        for (const Elf64_Sym& symbol : contents<Elf64_Sym>(SHT_SYMTAB)) {
            if (ELF64_ST_TYPE(symbol.st_info) == STT_FUNC) names[symbol.st_value] = readable(name(SHT_SYMTAB, symbol));
        }
        return names;
    }

    // The array's entries are filled in when the file is loaded: what with, the relocations tell.
    std::vector<std::string> functionArray(std::uint32_t type,
                                           const std::map<std::uint64_t, std::string>& functions) const {
        const Elf64_Shdr* array = section(type);
        if (array == nullptr) return {};
        std::vector<std::string> names(array->sh_size / sizeof(std::uint64_t), "not relocated");
        for (const Elf64_Shdr& each : sections_) {
            if (each.sh_type != SHT_RELA) continue;
            for (const Elf64_Rela& entry :
                 std::span(at<Elf64_Rela>(each.sh_offset), each.sh_size / sizeof(Elf64_Rela))) {
                if (entry.r_offset < array->sh_addr || entry.r_offset >= array->sh_addr + array->sh_size) continue;
                auto function = functions.find(static_cast<std::uint64_t>(entry.r_addend));
                names[(entry.r_offset - array->sh_addr) / sizeof(std::uint64_t)] =
                    function != functions.end() ? function->second : "unknown function";
            }
        }
        return names;
    }

    const std::vector<char>& bytes_;
    std::span<const Elf64_Shdr> sections_;
};

}  // namespace

LibraryFile readLibrary(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (bytes.size() < sizeof(Elf64_Ehdr) || std::memcmp(bytes.data(), ELFMAG, SELFMAG) != 0) {
        return {.problem = path + " is no ELF file"};
    }
    return Reader(bytes).read();
}

}  // namespace test
