# What the stand-in phone itself is made with; ZELKA_PHONE_DEPENDENCIES is all of it, for whoever links the phone.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(SQLite3 REQUIRED)
pkg_check_modules(CAIRO REQUIRED IMPORTED_TARGET cairo)
pkg_check_modules(PANGO REQUIRED IMPORTED_TARGET pangocairo)
pkg_check_modules(PIXBUF REQUIRED IMPORTED_TARGET gdk-pixbuf-2.0)
pkg_check_modules(ICU REQUIRED IMPORTED_TARGET icu-i18n)
pkg_check_modules(PLIST REQUIRED IMPORTED_TARGET libplist-2.0)
find_library(PHONENUMBER_LIBRARY phonenumber REQUIRED)
# libphonenumber's headers hold protobuf messages, which the sanitizers look into.
find_library(PROTOBUF_LIBRARY protobuf REQUIRED)
set(ZELKA_PHONE_DEPENDENCIES Threads::Threads SQLite::SQLite3 PkgConfig::CAIRO PkgConfig::PANGO PkgConfig::PIXBUF
                             PkgConfig::ICU PkgConfig::PLIST ${PHONENUMBER_LIBRARY} ${PROTOBUF_LIBRARY} ${CMAKE_DL_LIBS})
