#include "simulator/maker/calls/favorites.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "simulator/maker/calls/call_history.h"
#include "simulator/maker/contacts/call_records.h"
#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"
#include "simulator/maker/text/utf8.h"
#include "simulator/runtime/process/device.h"

namespace maker {
namespace {

constexpr std::size_t kGreatestCount = 12;

struct Favorite {
    int contact = 0;
    std::string address;
    int calls = 0;
    double latest = 0;
};

// The contact of every call of a store, by its address.
Status identify(const std::filesystem::path& root, const std::string& region, std::vector<Call>& calls) {
    const Result<Callers> callers = Callers::of(root, region);
    if (!callers) return failure(callers);
    std::map<std::string, int> known;
    for (Call& call : calls) {
        const auto [entry, isNew] = known.try_emplace(call.address, -1);
        if (isNew) {
            const Result<Caller> caller = callers->find(call.address);
            if (!caller) return failure(caller);
            entry->second = caller->contact;
        }
        call.contact = entry->second;
    }
    return {};
}

// The most frequent first; of equals the one that called last.
std::vector<Favorite> mostCalled(const std::vector<Call>& calls) {
    std::map<int, Favorite> byContact;
    for (const Call& call : calls) {
        if (call.contact <= 0) continue;
        Favorite& favorite = byContact[call.contact];
        favorite.contact = call.contact;
        favorite.address = std::max(favorite.address, call.address);
        favorite.latest = std::max(favorite.latest, call.date);
        ++favorite.calls;
    }
    std::vector<Favorite> favorites;
    for (auto& [contact, favorite] : byContact) favorites.push_back(std::move(favorite));
    std::stable_sort(favorites.begin(), favorites.end(), [](const Favorite& a, const Favorite& b) {
        return std::tie(b.calls, b.latest) < std::tie(a.calls, a.latest);
    });
    favorites.resize(std::min(favorites.size(), kGreatestCount));
    return favorites;
}

Result<std::vector<Call>> readCalls(const std::filesystem::path& root) {
    const Result<phone::Device> device = phone::readDevice(root);
    if (!device) return failure(device);
    const Result<Database> database = Database::openToRead(root / callsShape(*device).path);
    if (!database) return failure(database);
    Result<std::vector<Call>> calls = readCallRecords(*database);
    if (!calls || !isCallStore(*database)) return calls;
    return identify(root, device->region, *calls).map([&] { return std::move(*calls); });
}

// Written as PropertyList-1.0.dtd has it. XML knows no control characters but these.
bool isPlain(char c) { return static_cast<unsigned char>(c) >= 0x20 || c == '\t' || c == '\n'; }

// As XML, which is UTF-8.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : madeValid(text)) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (isPlain(c))
            result += c;
    }
    return result;
}

}  // namespace

std::filesystem::path favoritesPath(const std::filesystem::path& root) {
    return root / "private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist";
}

Status writeFavorites(const std::filesystem::path& root) {
    const Result<std::vector<Call>> calls = readCalls(root);
    if (!calls) return failure(calls);
    const std::filesystem::path file = favoritesPath(root);
    std::ofstream out(file, std::ios::binary);
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<array>\n";
    for (const Favorite& favorite : mostCalled(*calls)) {
        out << "<dict><key>ABUid</key><integer>" << favorite.contact << "</integer><key>Value</key><string>"
            << escaped(favorite.address) << "</string></dict>\n";
    }
    out << "</array>\n</plist>\n";
    out.close();
    if (!out) return failure(file.string() + ": cannot be written");
    return {};
}

}  // namespace maker
