// Changes in random order against running hosts, each step held against the model.
#include <gmock/gmock.h>

#include <cstdlib>
#include <functional>
#include <random>

#include "simulator/maker/database/schema.h"
#include "simulator/runtime/process/device.h"
#include "tests/phone/other_process.h"
#include "tests/phone/phone_test.h"
#include "tests/random/model.h"
#include "tests/support/parameter_name.h"

namespace test {
namespace {

constexpr int kShards = 20;
constexpr int kSequencesEach = 25;
constexpr int kStepsEach = 5;
constexpr int kWarmUp = 8;
constexpr int kContacts = 20;
const std::vector<std::string> kCounted = {"UIImage",
                                           "UIView",
                                           "UIImageView",
                                           "UILabel",
                                           "NSBlockOperation",
                                           "CallBarTableViewTransparentCell",
                                           "ABNameViewMemberCell"};

// A host beside the model of it.
struct Pair {
    Pair(HostKind kind, const hosts::HostOptions& options, const model::Phone& phone)
        : host(kind, options), process(phone, kind == HostKind::springBoard) {}
    HostProcess host;
    model::Process process;
};

// Cells that wait to be used again keep the picture view and the picture of their last row, or have lost them: that
// much may differ from one time to another, and no more. What is left over of every step soon exceeds it.
void expectNoGrowth(const Json& now, const Json& level) {
    EXPECT_EQ(now.at("NSBlockOperation"), level.at("NSBlockOperation"));
    const int cells = now.at("CallBarTableViewTransparentCell").get<int>() + now.at("ABNameViewMemberCell").get<int>();
    for (const std::string& name : kCounted)
        EXPECT_LE(now.at(name).get<int>(), level.at(name).get<int>() + cells) << name << " " << now << " " << level;
}

class RandomSequences : public PhoneTest, public testing::WithParamInterface<int> {
  protected:
    void fill(maker::AddressBookBuilder& book) override;
    void start();
    void reset();
    std::string calls() const { return maker::callsShape(phone::readDevice(root_).value()).path; }
    void runSequence(int seed);
    std::string step(std::mt19937& random);

    std::string flipSwitch(std::mt19937& random);
    std::string changePhoto(std::mt19937& random);
    std::string rename(std::mt19937& random);
    std::string removeContact(std::mt19937& random);
    std::string showList(std::mt19937& random);
    std::string scroll(std::mt19937& random);

    int anyContact(std::mt19937& random) const;
    std::string newColour();
    void bookChanged();
    void showIn(Pair& pair, model::List list, const std::string& searched = "");
    void check(Pair& pair);
    void checkRows(Pair& pair);
    void checkFavorites(Pair& pair);
    // Holds one reported picture against the model's: equal pictures are equal pixels, and others are not.
    void expectPicture(const Json& report, const std::string& expected, const std::function<Json()>& withSource);
    Json counts(Pair& pair) const;

    std::vector<std::unique_ptr<Pair>> pairs_;
    std::unique_ptr<OtherProcess> other_;
    Json otherRows_;
    model::Phone phone_, untouched_;
    std::map<std::string, std::string> lookOf_;  // of each picture of the model that was seen
    int colours_ = 0;
};

// Of one size, and equal give or take what antialiasing rounds.
bool sameLook(const std::string& a, const std::string& b) {
    constexpr long kSteps = 3;
    const size_t size = a.find(' ') + 1;
    if (a.size() != b.size() || a.compare(0, size, b, 0, size) != 0) return false;
    for (size_t i = size; i + 1 < a.size(); i += 2) {
        const long x = std::strtol(a.substr(i, 2).c_str(), nullptr, 16);
        const long y = std::strtol(b.substr(i, 2).c_str(), nullptr, 16);
        if (std::labs(x - y) > kSteps) return false;
    }
    return true;
}

int below(std::mt19937& random, int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

std::string word(std::mt19937& random) {
    return std::string(1, static_cast<char>('A' + below(random, 26))) + static_cast<char>('a' + below(random, 26));
}

void RandomSequences::fill(maker::AddressBookBuilder& book) {
    std::mt19937 random(static_cast<unsigned>(GetParam()) + 1000);
    for (int id = 1; id <= kContacts; ++id) {
        model::Contact& made = phone_.contacts[id];
        if (id != 7) made.first = word(random);
        if (id != 7 && id % 6 != 0) made.last = word(random);
        if (id == 8) {
            made.first = made.last = "";
            made.organization = "Acme Pumps";
        }
        if (id % 5 == 0)
            made.email = "c" + std::to_string(id) + "@example.com";
        else
            made.number = "+12125550" + std::to_string(100 + id);
        if (id % 3 == 0) made.photo = newColour();
        if (id == 10 || id == 12) made.link = 1;
        made.modified = id;
        maker::Person person;
        if (!made.first.empty()) person.first = made.first;
        if (!made.last.empty()) person.last = made.last;
        if (!made.organization.empty()) person.organization = made.organization;
        if (!made.number.empty()) person.phones = {{made.number, ""}};
        if (!made.email.empty()) person.emails = {{made.email, ""}};
        person.modified = made.modified;
        ASSERT_EQ(book.addPerson(person).value(), id);
        if (!made.photo.empty()) must(book.setThumbnail(id, picture(made.photo)));
    }
    must(book.link({10, 12}));
    // The oldest first. Each caller calls once, so that no two rows race for one picture.
    for (int i = 1; i <= kContacts - 2; ++i) {
        const bool stranger = i % 9 == 0;
        const model::Contact& caller = phone_.contacts.at(i);
        maker::Call call;
        call.address =
            stranger ? "+164655501" + std::to_string(10 + i) : (caller.email.empty() ? caller.number : caller.email);
        call.date = 1'400'000'000 + i * 100'000.0;
        call.kind = i % 2 == 0 ? maker::CallKind::missed : maker::CallKind::incoming;
        call.duration = i % 2 == 0 ? 0 : 9;
        call.contact = stranger ? -1 : i;
        const int row = book.addCall(call).value();
        phone_.calls.insert(phone_.calls.begin(), model::Call{row, call.address, call.contact, i % 2 == 0});
    }
}

void RandomSequences::start() {
    makePhone(GetParam() % 2 == 0 ? "iphone6-8.4" : "iphone4-7.1");
    std::string list = "<?xml version=\"1.0\"?><plist version=\"1.0\"><array>";
    for (const int id : {3, 4, 8, 12, 15}) {
        const std::string name = phone_.nameOf(id);
        phone_.favorites.emplace_back(id, name);
        list += "<dict><key>ABUid</key><integer>" + std::to_string(id) + "</integer><key>Name</key><string>" + name +
                "</string></dict>";
    }
    write("private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist", list + "</array></plist>");
    loadInto(kOtherIdentifier);
    set("ZelkaCBEnabled", true);
    phone_.switches = switches_;
    untouched_ = phone_;
    for (const std::string& database : {std::string(kBookPath), std::string(kImagesPath), calls()})
        std::filesystem::copy_file(host(database), host(database) + ".untouched");
    hosts::HostOptions fixed = options();
    fixed.environment.emplace_back("PHONESIM_RANDOM", "0");
    fixed.environment.emplace_back("PHONESIM_COUNT_OBJECTS", "1");
    for (const HostKind kind : {HostKind::springBoard, HostKind::callBarViewService}) {
        pairs_.push_back(std::make_unique<Pair>(kind, fixed, phone_));
        // Favourites are made and Recents are read when the window is.
        pairs_.back()->process.show(model::List::favorites);
        showIn(*pairs_.back(), model::List::recents);
    }
    other_ = std::make_unique<OtherProcess>(fixed, true);
    ASSERT_EQ(other_->libraries(), 1);
    otherRows_ = other_->rows();
}

void RandomSequences::reset() {
    for (const std::string& database : {std::string(kBookPath), std::string(kImagesPath), calls()}) {
        std::filesystem::copy_file(host(database) + ".untouched", host(database) + ".new");
        std::filesystem::rename(host(database) + ".new", host(database));
    }
    phone_ = untouched_;
    switches_ = phone_.switches;
    set("ZelkaCBEnabled", true);
    for (auto& pair : pairs_) pair->process.settingsChanged();
    for (auto& pair : pairs_) check(*pair);
    bookChanged();
    for (auto& pair : pairs_) {
        showIn(*pair, model::List::contacts);
        showIn(*pair, model::List::recents);
    }
}

Json RandomSequences::counts(Pair& pair) const {
    return pair.host.call({{"do", "objects"}, {"classes", kCounted}}).at("counts");
}

int RandomSequences::anyContact(std::mt19937& random) const {
    return std::next(phone_.contacts.begin(), below(random, static_cast<int>(phone_.contacts.size())))->first;
}

// Colours that no monogram has.
std::string RandomSequences::newColour() {
    char text[8];
    ++colours_;
    std::snprintf(text, sizeof text, "#%02x%02x%02x", 16 + colours_ % 12 * 20, 10 + colours_ / 12 % 12 * 20,
                  5 + colours_ / 144 % 12 * 20);
    return text;
}

void RandomSequences::bookChanged() {
    post("__ABDataBaseChangedByOtherProcessNotification");
    for (auto& pair : pairs_) pair->process.addressBookChanged();
}

std::string RandomSequences::flipSwitch(std::mt19937& random) {
    auto chosen = std::next(phone_.switches.begin(), below(random, static_cast<int>(phone_.switches.size())));
    // The master switch hides everything: seldom off.
    if (chosen->first == "ZelkaCBEnabled" && chosen->second && below(random, 3) > 0) chosen = std::next(chosen);
    chosen->second = !chosen->second;
    set(chosen->first, chosen->second);
    for (auto& pair : pairs_) pair->process.settingsChanged();
    return chosen->first + (chosen->second ? " on" : " off");
}

std::string RandomSequences::changePhoto(std::mt19937& random) {
    const int id = anyContact(random);
    const std::string colour = below(random, 3) == 0 ? "" : newColour();
    maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root_).value();
    must(colour.empty() ? book.removePhoto(id) : book.setThumbnail(id, picture(colour)));
    must(book.setModificationDate(id, ++modified_));
    must(book.finish());
    phone_.contacts.at(id).photo = colour;
    phone_.contacts.at(id).modified = modified_;
    bookChanged();
    return "photo of " + std::to_string(id) + " is " + (colour.empty() ? "gone" : colour);
}

std::string RandomSequences::rename(std::mt19937& random) {
    const int id = anyContact(random);
    model::Contact& contact = phone_.contacts.at(id);
    contact.first = word(random);
    contact.last = below(random, 4) == 0 ? "" : word(random);
    maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root_).value();
    must(book.setNames(id, contact.first,
                       contact.last.empty() ? std::nullopt : std::optional<std::string>(contact.last)));
    must(book.setModificationDate(id, ++modified_));
    must(book.finish());
    contact.modified = modified_;
    bookChanged();
    return std::to_string(id) + " is now " + phone_.nameOf(id);
}

std::string RandomSequences::removeContact(std::mt19937& random) {
    const int id = anyContact(random);
    maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root_).value();
    must(book.removePerson(id));
    must(book.finish());
    phone_.remove(id);
    bookChanged();
    return std::to_string(id) + " is deleted";
}

void RandomSequences::showIn(Pair& pair, model::List list, const std::string& searched) {
    // What was scrolled goes back first, so that the list is not read at its old place when it is shown again.
    if (pair.process.list() != model::List::favorites) pair.host.call({{"do", "scroll"}, {"offset", 0}});
    check(pair);
    pair.process.show(list);
    const char* const names[] = {"recents", "missed", "contacts", "favorites"};
    if (searched.empty())
        pair.host.call({{"do", "show"}, {"screen", names[static_cast<int>(list)]}});
    else
        pair.host.call({{"do", "show"}, {"screen", "search"}, {"text", searched}});
    check(pair);
}

std::string RandomSequences::showList(std::mt19937& random) {
    Pair& pair = *pairs_[static_cast<size_t>(below(random, 2))];
    const int choice = below(random, 5);
    std::string searched;
    if (choice == 4) searched = std::string(1, static_cast<char>('a' + below(random, 26)));
    const auto list = choice == 4 ? model::List::contacts : static_cast<model::List>(choice);
    showIn(pair, list, searched);
    return "process " + std::string(&pair == pairs_[0].get() ? "0" : "1") + " shows " +
           (searched.empty() ? std::to_string(choice) : "what is found for " + searched);
}

std::string RandomSequences::scroll(std::mt19937& random) {
    Pair& pair = *pairs_[static_cast<size_t>(below(random, 2))];
    if (pair.process.list() == model::List::favorites) return "nothing";
    const int offset = below(random, 600);
    pair.host.call({{"do", "scroll"}, {"offset", offset}});
    return "scrolled to " + std::to_string(offset);
}

std::string RandomSequences::step(std::mt19937& random) {
    switch (below(random, 12)) {
        case 0:
        case 1:
        case 2:
            return flipSwitch(random);
        case 3:
        case 4:
            return changePhoto(random);
        case 5:
            return rename(random);
        case 6:
            return removeContact(random);
        case 7:
        case 8:
        case 9:
            return showList(random);
        default:
            return scroll(random);
    }
}

void RandomSequences::expectPicture(const Json& report, const std::string& expected,
                                    const std::function<Json()>& withSource) {
    if (expected == "none" || report.is_null()) {
        EXPECT_EQ(report.is_null() ? "none" : report.dump(), expected);
        return;
    }
    const std::string look = report.at("size").dump() + " " + report.at("look").get<std::string>();
    if (const auto known = lookOf_.find(expected); known != lookOf_.end() && sameLook(look, known->second)) return;
    for (const auto& [picture, known] : lookOf_) {
        EXPECT_FALSE(sameLook(look, known)) << "shows " << picture << " instead of " << expected;
    }
    ASSERT_EQ(lookOf_.count(expected), 0u) << "shows something else than " << expected << "\n"
                                           << lookOf_[expected] << "\n"
                                           << look;
    lookOf_[expected] = look;
    const std::string kind = expected.substr(0, expected.find(' '));
    if (expected.rfind("photo ", 0) == 0 || expected.rfind("system photo ", 0) == 0) {
        const std::string colour = expected.substr(expected.find('#'), 7);
        EXPECT_EQ(report.at("centre"), colour);
    } else if (expected.rfind("system ", 0) == 0) {
        EXPECT_EQ(withSource().at("source"), "system monogram");
    } else {
        EXPECT_EQ(withSource().at("source"), kind == "bare" ? "silhouette" : kind) << expected;
    }
    // The system's pictures are round whatever the switch says, and the bundle's bare figure has corners of its own.
    if (expected.rfind("system", 0) != 0 && kind != "bare") {
        EXPECT_EQ(report.at("corner"), expected.find("round") != std::string::npos ? 0 : 255) << expected;
    }
}

void RandomSequences::checkRows(Pair& pair) {
    const Json shown = rows(pair.host, false);
    model::Process& process = pair.process;
    const bool calls = process.list() != model::List::contacts;
    std::set<size_t> visible;
    for (const Json& row : shown) visible.insert(row.at("row").get<size_t>());
    if (calls) process.keepRecentsRows(visible);
    for (size_t i = 0; i < shown.size(); ++i) {
        const Json& row = shown[i];
        SCOPED_TRACE("row " + row.at("row").dump() + ", contact " + row.at("contact").dump() + " " +
                     row.at("name").dump());
        if (calls) {
            ASSERT_LT(row.at("row").get<size_t>(), process.recentsCount());
            EXPECT_EQ(row.at("contact"), process.recentsContact(row.at("row")));
        }
        const std::string expected = calls ? process.recentsRow(row.at("row")) : process.contactsRow(row.at("contact"));
        EXPECT_EQ(row.at("hasPictureView"), expected != "none");
        expectPicture(row.at("picture"), expected, [&] { return rows(pair.host).at(i).at("picture"); });
    }
}

void RandomSequences::checkFavorites(Pair& pair) {
    settle(pair.host);
    const Json buttons = pair.host.call({{"do", "favorites"}, {"sources", false}}).at("buttons");
    const std::vector<std::string>& expected = pair.process.favorites();
    ASSERT_EQ(buttons.size(), expected.size());
    for (size_t i = 0; i < buttons.size(); ++i) {
        SCOPED_TRACE("favourite " + buttons[i].dump());
        expectPicture(buttons[i].at("picture"), expected[i], [&] { return favorites(pair.host).at(i).at("picture"); });
    }
}

void RandomSequences::check(Pair& pair) {
    SCOPED_TRACE(&pair == pairs_[0].get() ? "SpringBoard" : "view service");
    pair.process.list() == model::List::favorites ? checkFavorites(pair) : checkRows(pair);
}

void RandomSequences::runSequence(int seed) {
    std::mt19937 random(static_cast<unsigned>(seed));
    std::string history = "seed " + std::to_string(seed);
    for (int i = 0; i < kStepsEach; ++i) {
        history += "\n  " + step(random);
        SCOPED_TRACE(history);
        for (auto& pair : pairs_) check(*pair);
        if (HasFailure()) return;
    }
}

TEST_P(RandomSequences, EveryVisibleRowShowsWhatTheModelSays) {
    start();
    std::vector<Json> level;
    for (int i = 0; i < kSequencesEach; ++i) {
        const int seed = GetParam() * kSequencesEach + i;
        SCOPED_TRACE("sequence " + std::to_string(seed));
        runSequence(seed);
        if (HasFailure()) return;
        reset();
        ASSERT_EQ(other_->rows(), otherRows_);
        if (HasFailure()) return;
        // What all lists need once is there after a few sequences.
        for (size_t each = 0; i >= kWarmUp && each < pairs_.size(); ++each) {
            const Json now = counts(*pairs_[each]);
            if (level.size() <= each) level.push_back(now);
            expectNoGrowth(now, level[each]);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shards, RandomSequences, testing::Range(0, kShards), ParameterName());

}  // namespace
}  // namespace test
