include(PhoneDependencies)
pkg_check_modules(EBOOK REQUIRED IMPORTED_TARGET libebook-contacts-1.2)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)
