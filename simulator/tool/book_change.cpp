#include "simulator/tool/book_change.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

#include "simulator/maker/common/read_file.h"
#include "simulator/maker/contacts/photo.h"
#include "simulator/maker/database/check_database.h"
#include "simulator/maker/database/schema.h"
#include "simulator/runtime/notifications/notification_log.h"
#include "simulator/runtime/process/device.h"
#include "simulator/tool/verbs.h"

namespace tool {

void requireSoundDatabases(const std::filesystem::path& root) {
    const phone::Device device = phone::readDevice(root).value();
    for (const maker::DatabaseShape* shape : maker::databaseShapes(device)) {
        phone::require(maker::checkDatabase(root / shape->path, *shape));
    }
}

std::string readPicture(const std::string& file) {
    if (file.empty()) return {};
    std::string bytes = maker::readFile(file).value();
    phone::Result<maker::Photo> photo = maker::makePhoto(bytes);
    if (!photo) throw Problem(file + ": " + photo.error().message);
    return bytes;
}

maker::Database openBook(const std::filesystem::path& root) {
    return maker::Database::openToRead(root / maker::addressBookShape().path).value();
}

int findContact(const maker::Database& book, const std::string& wanted) {
    maker::Statement find = book.prepare(
        "SELECT ROWID FROM ABPerson WHERE CAST(ROWID AS TEXT) = ?1 OR "
        "trim(coalesce(First, '') || ' ' || coalesce(Last, '')) = ?1 OR Organization = ?1 ORDER BY ROWID");
    find.bind(1, std::string_view(wanted));
    std::vector<int> found;
    while (find.step()) found.push_back(find.integer(0));
    phone::require(find.status());
    if (found.size() == 1) return found.front();
    if (found.empty()) throw Problem("there is no contact \"" + wanted + "\"");
    std::string identifiers;
    for (int identifier : found) identifiers += " " + std::to_string(identifier);
    throw Problem("several contacts are \"" + wanted + "\": give one of the IDs" + identifiers);
}

double nextModificationDate(const maker::Database& book) {
    maker::Statement latest = book.prepare("SELECT coalesce(max(ModificationDate), 0) FROM ABPerson");
    double after = latest.step() ? latest.integer(0) + 1 : 0;
    phone::require(latest.status());
    std::chrono::duration<double> now = std::chrono::system_clock::now().time_since_epoch();
    return std::max(after, std::floor(now.count() - maker::kAddressBookEpoch));
}

void postBookChanged(const std::filesystem::path& root) {
    phone::require(phone::postNotification(root, "__ABDataBaseChangedByOtherProcessNotification"));
}

void postCallsChanged(const std::filesystem::path& root) {
    // The stand-in's own name, which its hosts observe.
    phone::require(phone::postNotification(root, "phonesim.callHistoryChanged"));
}

}  // namespace tool
