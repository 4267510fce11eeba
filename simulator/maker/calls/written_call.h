// A call as a file gives it.
#pragma once

#include "simulator/maker/contacts/contact.h"

namespace maker {

struct WrittenCall {
    Call call;  // the contact is not yet known; the name is the one that the file gives, for a caller who is no contact
    bool unlinked = false;
};

}  // namespace maker
