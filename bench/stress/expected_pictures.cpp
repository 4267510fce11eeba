#include "bench/stress/expected_pictures.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"

namespace stress {
namespace {

maker::Database opened(const std::filesystem::path& file) {
    auto database = maker::Database::openToRead(file);
    if (!database) throw std::runtime_error(phone::problemOf(database));
    return std::move(*database);
}

}  // namespace

ExpectedPictures::ExpectedPictures(const std::filesystem::path& root) {
    const maker::Database images = opened(root / maker::imagesShape().path);
    maker::Statement thumbnails =
        images.prepare("SELECT record_id FROM ABThumbnailImage WHERE format = 0 AND length(data)");
    while (thumbnails.step()) photos_.insert(thumbnails.integer(0));
    const maker::Database book = opened(root / maker::addressBookShape().path);
    maker::Statement pairs = book.prepare(
        "SELECT a.ROWID, b.ROWID FROM ABPerson a JOIN ABPerson b ON b.PersonLink = a.PersonLink WHERE a.PersonLink > "
        "0");
    while (pairs.step()) linked_[pairs.integer(0)].insert(pairs.integer(1));
}

int ExpectedPictures::photoOf(int contact) const {
    if (photos_.count(contact) != 0) return contact;
    auto person = linked_.find(contact);
    if (person == linked_.end()) return 0;
    for (int other : person->second)
        if (photos_.count(other) != 0) return other;
    return 0;
}

std::string ExpectedPictures::problemOf(const nlohmann::json& row) const {
    const int contact = row.value("contact", 0);
    const nlohmann::json& picture = row.at("picture");
    const std::string source = picture.is_object() ? picture.value("source", "none") : "none";
    // The first settings change gives up the shared address book for good: a call that is known by its number alone is
    // nobody's from then on.
    const bool isKnown = contact >= 1 && row.value("answers", "") != "neither";
    const int owner = isKnown ? photoOf(contact) : 0;
    const bool isRight =
        owner != 0 ? (source == "photo" || source == "linked photo") && picture.value("sourceContact", 0) == owner
                   : source == "monogram" || source == "silhouette";
    if (isRight) return "";
    return "contact " + std::to_string(contact) + " shows \"" + source + "\" instead of " +
           (owner != 0 ? "the photo of " + std::to_string(owner) : std::string("a monogram"));
}

}  // namespace stress
