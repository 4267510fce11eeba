// What every row must show, worked out in the plainest way: a model of one served process, fed with the same changes as
// the real one.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace model {

struct Contact {
    std::string first, last;  // empty: none
    std::string organization;
    std::string number, email;
    std::string photo;  // its colour; empty: none
    int link = 0;       // contacts of one number above 0 are linked
    double modified = 0;
};

struct Call {
    int row;
    std::string address;
    int contact;  // that the history remembers, or -1
    bool missed;
};

// The phone's databases, the latest call first.
struct Phone {
    std::map<int, Contact> contacts;
    std::vector<Call> calls;
    std::vector<std::pair<int, std::string>> favorites;  // contact and the name that is kept
    std::map<std::string, bool> switches;

    void remove(int contact);
    // The one modified last, or -1.
    int latest() const;
    // Its own photo, else that of the first linked contact that has one; empty: none.
    std::string photoOf(int contact) const;
    std::string nameOf(int contact) const;
    int withNumber(const std::string& number) const;  // 0: nobody
    int withEmail(const std::string& email) const;    // -1: nobody
};

enum class List { recents, missed, contacts, favorites };

// A picture is a text that tells all that decides its pixels, such as "monogram AL 40 3 round"; "none" when the row has
// no picture view.
class Process {
  public:
    Process(const Phone& phone, bool isShell) : phone_(phone), isShell_(isShell) {}

    // What happens to the process, in the order of happening.
    void settingsChanged();
    void addressBookChanged();
    void show(List list);

    // What a row of Recents must show; a row that was in sight before keeps what it has.
    std::string recentsRow(size_t row);
    // Rows out of sight have no picture any more.
    void keepRecentsRows(const std::set<size_t>& visible);
    // The contact that the host knows for a row of Recents.
    int recentsContact(size_t row) const { return shownEntries().at(row).contact; }
    size_t recentsCount() const { return shownEntries().size(); }

    std::string contactsRow(int contact);
    const std::vector<std::string>& favorites() const { return favorites_; }
    List list() const { return list_; }

  private:
    struct Entry {
        std::string address, name;
        int contact;
        int kind;  // 0 answers uid, 1 a record ID, 2 neither
        bool answersName;
    };

    const std::vector<Entry>& shownEntries() const { return list_ == List::missed ? missed_ : all_; }
    bool on(const char* key) const;
    const char* shape() const { return on("ZelkaCBEnabledRoundedPictures") ? "round" : "square"; }
    bool monogramsWanted() const { return on("ZelkaCBEnabled") && on("ZelkaCBEnabledMonogramPictures"); }
    void readEntries();
    void rebuildFavorites();

    int contactID(const std::string& address);
    std::optional<std::string> initialsInBook(int contact) const;
    std::string silhouette() const;
    std::string recentPicture() const { return std::string("default ") + shape(); }
    std::string monogram(const std::optional<std::string>& text, int size, int contact, int colours) const;
    std::string lookUp(int contact, const std::optional<std::string>& text, int size, int colours);
    std::string favorite(int contact, const std::string& name);
    std::string fetchRecents(const Entry& entry);

    const Phone& phone_;
    bool isShell_;
    std::map<std::string, bool> switches_;
    std::map<int, std::string> cache_;
    std::map<std::string, int> memo_;
    // The address book's handle is made once, and gone for good once the cache was emptied.
    enum class Handle { untouched, live, gone } handle_ = Handle::untouched;
    List list_ = List::favorites;
    bool onlyMissed_ = false;
    std::vector<Entry> all_, missed_;
    std::map<size_t, std::string> visible_;
    std::vector<std::string> favorites_;
};

}  // namespace model
