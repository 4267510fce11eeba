// What the page's own texts are found by in its tables. The texts of its list are named there, by the framework's keys.
#pragma once

#include <array>
#include <cstddef>

namespace zelka {

// Index into kTextKeys.
enum class Text : std::size_t {
    cancel,
    cannotDeleteLog,
    cannotReadSettings,
    cannotWriteSettings,
    deleteLog,
    deleteLogQuestion,
    noLog,
    ok,
    restoreDefaults,
    restoreDefaultsQuestion,
    count
};

// What the tables have the texts under.
constexpr std::array<const char*, static_cast<std::size_t>(Text::count)> kTextKeys{"cancel",
                                                                                   "cannotDeleteLog",
                                                                                   "cannotReadSettings",
                                                                                   "cannotWriteSettings",
                                                                                   "deleteLog",
                                                                                   "deleteLogQuestion",
                                                                                   "noLog",
                                                                                   "ok",
                                                                                   "restoreDefaults",
                                                                                   "restoreDefaultsQuestion"};

}  // namespace zelka
