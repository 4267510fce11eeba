#include "tests/random/model.h"

#include <algorithm>

namespace model {
namespace {

// The first letters of the first and of the last word, as monograms show them. Names here are plain words.
std::string initials(const std::string& name) {
    const size_t blank = name.rfind(' ');
    std::string result = name.substr(0, 1);
    if (blank != std::string::npos) result += name[blank + 1];
    return result;
}

bool isEmail(const std::string& address) { return address.find('@') != std::string::npos; }

}  // namespace

void Phone::remove(int contact) {
    contacts.erase(contact);
    for (Call& call : calls)
        if (call.contact == contact) call.contact = -1;
}

int Phone::latest() const {
    int found = -1;
    double date = -1;
    for (const auto& [id, contact] : contacts) {
        if (contact.modified <= date) continue;
        date = contact.modified;
        found = id;
    }
    return found;
}

std::string Phone::photoOf(int id) const {
    const auto own = contacts.find(id);
    if (own == contacts.end()) return "";
    if (!own->second.photo.empty() || own->second.link == 0) return own->second.photo;
    for (const auto& [other, contact] : contacts)
        if (contact.link == own->second.link && !contact.photo.empty()) return contact.photo;
    return "";
}

std::string Phone::nameOf(int id) const {
    const auto found = contacts.find(id);
    if (found == contacts.end()) return "";
    const Contact& contact = found->second;
    if (contact.first.empty() && contact.last.empty()) return contact.organization;
    const bool both = !contact.first.empty() && !contact.last.empty();
    return contact.first + (both ? " " : "") + contact.last;
}

int Phone::withNumber(const std::string& number) const {
    for (const auto& [id, contact] : contacts)
        if (contact.number == number) return id;
    return 0;
}

int Phone::withEmail(const std::string& email) const {
    for (const auto& [id, contact] : contacts)
        if (contact.email == email) return id;
    return -1;
}

bool Process::on(const char* key) const {
    const auto& loaded = switches_.empty() ? phone_.switches : switches_;
    return loaded.at(key);
}

void Process::settingsChanged() {
    cache_.clear();
    memo_.clear();
    if (handle_ == Handle::live) handle_ = Handle::gone;
    switches_ = phone_.switches;
    visible_.clear();
    rebuildFavorites();
}

void Process::addressBookChanged() {
    const int contact = phone_.latest();
    if (contact < 1) return;
    const bool dropped = cache_.erase(contact) > 0;
    const auto known =
        std::find_if(memo_.begin(), memo_.end(), [&](const auto& each) { return each.second == contact; });
    if (known != memo_.end()) memo_.erase(known);
    if (!dropped) return;
    visible_.clear();
    rebuildFavorites();
}

void Process::show(List list) {
    const bool wasRecents = list_ == List::recents || list_ == List::missed;
    const bool isRecents = list == List::recents || list == List::missed;
    list_ = list;
    if (list == List::favorites) rebuildFavorites();
    if (!isRecents) return;
    if (!wasRecents) readEntries();
    if (!wasRecents || onlyMissed_ != (list == List::missed)) visible_.clear();
    onlyMissed_ = list == List::missed;
}

void Process::readEntries() {
    all_.clear();
    missed_.clear();
    for (const Call& call : phone_.calls) {
        int contact = phone_.contacts.count(call.contact) > 0 ? call.contact : -1;
        if (contact < 0 && !isEmail(call.address)) contact = phone_.withNumber(call.address);
        if (contact == 0) contact = -1;
        const std::string name = phone_.nameOf(contact);
        const Entry entry{call.address, name, contact, call.row % 3, !name.empty() && call.row % 4 != 3};
        all_.push_back(entry);
        if (call.missed) missed_.push_back(entry);
    }
}

void Process::rebuildFavorites() {
    favorites_.clear();
    for (const auto& [contact, name] : phone_.favorites) favorites_.push_back(favorite(contact, name));
}

int Process::contactID(const std::string& address) {
    if (const auto known = memo_.find(address); known != memo_.end()) return known->second;
    int found = 0;
    if (isEmail(address)) {
        found = phone_.withEmail(address);
    } else {
        if (handle_ == Handle::untouched) handle_ = Handle::live;
        found = handle_ == Handle::live ? phone_.withNumber(address) : 0;
    }
    if (found >= 1) memo_[address] = found;
    return found;
}

std::optional<std::string> Process::initialsInBook(int contact) const {
    const auto found = phone_.contacts.find(contact);
    if (found == phone_.contacts.end() || (found->second.first.empty() && found->second.last.empty()))
        return std::nullopt;
    return initials(phone_.nameOf(contact));
}

std::string Process::silhouette() const {
    return std::string(on("ZelkaCBEnabledMonogramPictures") ? "silhouette " : "bare silhouette ") + shape();
}

std::string Process::monogram(const std::optional<std::string>& text, int size, int contact, int colours) const {
    if (!text || text->empty()) return silhouette();
    if (!on("ZelkaCBEnabledMonogramPictures")) return recentPicture();
    // The lot being fixed, the colour goes by the contact alone. Whoever brings a font gets one of the 13 dark ones.
    return "monogram " + *text + " " + std::to_string(size) + " colour " + std::to_string(contact % colours) + " of " +
           std::to_string(colours) + " " + shape();
}

std::string Process::lookUp(int contact, const std::optional<std::string>& text, int size, int colours) {
    if (const auto known = cache_.find(contact); known != cache_.end()) return known->second;
    std::string picture = phone_.photoOf(contact);
    if (!picture.empty())
        picture = "photo " + picture + " " + shape();
    else if (on("ZelkaCBEnabledMonogramPictures"))
        picture = monogram(text, size, contact, colours);
    else
        picture = recentPicture();
    return cache_[contact] = picture;
}

std::string Process::favorite(int contact, const std::string& name) {
    const bool own = isShell_ && on("ZelkaCBEnabled") && on("ZelkaCBEnabledFavorites");
    if (phone_.contacts.count(contact) == 0)
        return own ? monogram(initials(name), 60, 0, 13) : "system monogram " + initials(name);
    if (own && !on("ZelkaCBEnabledRoundedPictures"))
        return lookUp(contact, monogramsWanted() ? initialsInBook(contact) : std::nullopt, 60, 13);
    const std::string photo = phone_.photoOf(contact);
    if (!photo.empty()) return "system photo " + photo;
    return "system monogram " + initialsInBook(contact).value_or("");
}

std::string Process::fetchRecents(const Entry& entry) {
    if (!on("ZelkaCBEnabled") || !on("ZelkaCBEnabledRecents")) return "none";
    const int contact = entry.kind == 2 ? contactID(entry.address) : entry.contact;
    if (contact < 1) return silhouette();
    std::optional<std::string> text;
    if (monogramsWanted()) text = entry.answersName ? initials(entry.name) : initialsInBook(contact);
    return lookUp(contact, text, 40, 13);
}

std::string Process::recentsRow(size_t row) {
    if (const auto seen = visible_.find(row); seen != visible_.end()) return seen->second;
    return visible_[row] = fetchRecents(shownEntries().at(row));
}

void Process::keepRecentsRows(const std::set<size_t>& visible) {
    for (auto row = visible_.begin(); row != visible_.end();)
        row = visible.count(row->first) > 0 ? std::next(row) : visible_.erase(row);
}

std::string Process::contactsRow(int contact) {
    if (!on("ZelkaCBEnabled") || !on("ZelkaCBEnabledContacts")) return "none";
    return lookUp(contact, monogramsWanted() ? initialsInBook(contact) : std::nullopt, 40, 30);
}

}  // namespace model
