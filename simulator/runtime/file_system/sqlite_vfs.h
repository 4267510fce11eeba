#pragma once

namespace phone {

// Makes SQLite open databases by phone paths: from now on its default file system is the machine's own with every name
// mapped into the phone root. Answers an SQLite result code. Before the first database is opened.
int registerPhoneFileSystem();

}  // namespace phone
