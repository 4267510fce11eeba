#include "simulator/tool/summary.h"

#include <algorithm>
#include <system_error>

#include "simulator/maker/calls/favorites.h"
#include "simulator/maker/contacts/call_records.h"
#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"
#include "simulator/tool/run_lock.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

std::optional<long> countIn(const fs::path& file, const char* sql) {
    const phone::Result<maker::Database> database = maker::Database::openToRead(file);
    if (!database) return std::nullopt;
    maker::Statement count = database->prepare(sql);
    if (!count.step()) return std::nullopt;
    return count.integer(0);
}

void countCalls(Summary& summary) {
    const auto calls = maker::Database::openToRead(summary.root / maker::callsShape(summary.device).path)
                           .and_then([](const maker::Database& database) { return maker::readCallRecords(database); });
    if (!calls) return;
    summary.calls = static_cast<long>(calls->size());
    summary.missed = std::count_if(calls->begin(), calls->end(),
                                   [](const maker::Call& call) { return call.kind == maker::CallKind::missed; });
}

std::string libraryOf(const fs::path& root) {
    for (const char* name : {"ZelkaCB.dylib", "ZelkaCB.so"}) {
        std::error_code error;
        if (fs::exists(root / "Library/MobileSubstrate/DynamicLibraries" / name, error)) return name;
    }
    return {};
}

nlohmann::ordered_json orNull(const std::optional<long>& number) {
    return number ? nlohmann::ordered_json(*number) : nlohmann::ordered_json();
}

}  // namespace

Summary summaryOf(const fs::path& root) {
    requireRoot(root.string());
    Summary summary;
    summary.root = root;
    summary.device = phone::readDevice(root).value();
    summary.contacts = countIn(root / maker::addressBookShape().path, "SELECT count(*) FROM ABPerson");
    summary.pictures = countIn(root / maker::imagesShape().path,
                               "SELECT count(DISTINCT record_id) FROM ABThumbnailImage WHERE length(data)");
    countCalls(summary);
    const phone::Result<long> favorites = maker::countFavorites(root);
    if (favorites) summary.favorites = *favorites;
    summary.library = libraryOf(root);
    summary.running = RunLock::isHeld(root);
    return summary;
}

nlohmann::ordered_json jsonOf(const Summary& summary) {
    const phone::Device& device = summary.device;
    return {{"root", summary.root.string()},
            {"model", device.model},
            {"machine", device.machine},
            {"name", device.name},
            {"system", device.systemVersion},
            {"processor", device.processor},
            {"region", device.region},
            {"language", device.language},
            {"rightToLeft", device.rightToLeft},
            {"width", device.width},
            {"height", device.height},
            {"scale", device.scale},
            {"contacts", orNull(summary.contacts)},
            {"pictures", orNull(summary.pictures)},
            {"calls", orNull(summary.calls)},
            {"missed", orNull(summary.missed)},
            {"favorites", orNull(summary.favorites)},
            {"library", summary.library.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(summary.library)},
            {"running", summary.running}};
}

std::string written(const std::optional<long>& number) { return number ? std::to_string(*number) : "?"; }

}  // namespace tool
