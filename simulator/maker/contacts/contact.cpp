#include "simulator/maker/contacts/contact.h"

namespace maker {

std::string Person::displayName() const {
    std::string name;
    for (const auto& part : {first, last}) {
        if (!part || part->empty()) continue;
        name += (name.empty() ? "" : " ") + *part;
    }
    if (!name.empty()) return name;
    if (organization && !organization->empty()) return *organization;
    if (nickname && !nickname->empty()) return *nickname;
    if (!phones.empty()) return phones.front().value;
    return emails.empty() ? std::string() : emails.front().value;
}

}  // namespace maker
