// Names of parameterised tests.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace test {

// The last argument of INSTANTIATE_TEST_SUITE_P: a test is named after its parameter as it prints, by what letters and
// digits that has; a plus sign counts as the word, for telephone numbers. A structure prints by its own PrintTo.
struct ParameterName {
    template <class Parameter>
    std::string operator()(const testing::TestParamInfo<Parameter>& test) const {
        return nameOf(testing::PrintToString(test.param));
    }
    std::string operator()(const testing::TestParamInfo<const char*>& test) const { return nameOf(test.param); }

  private:
    static std::string nameOf(const std::string& text) {
        const auto belongs = [](char letter) {
            return (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
                   (letter >= 'a' && letter <= 'z');
        };
        std::string name;
        for (const char letter : text) {
            if (belongs(letter))
                name += letter;
            else if (letter == '+')
                name += "plus";
            else if (!name.empty() && name.back() != '_')
                name += '_';
        }
        if (!name.empty() && name.back() == '_') name.pop_back();
        return name.empty() ? "Nothing" : name;
    }
};

}  // namespace test
