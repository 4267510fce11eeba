#include "simulator/maker/common/findings.h"

#include <algorithm>

namespace maker {
namespace {

bool isAlike(const Finding& a, const Finding& b) { return a.kind == b.kind && a.file == b.file; }

std::string sentence(const Finding& finding) { return placeOf(finding.file, finding.line) + ": " + finding.text; }

}  // namespace

std::string placeOf(const std::string& file, int line) {
    return line > 0 ? file + ", line " + std::to_string(line) : file;
}

std::vector<std::string> sentences(const Findings& findings, bool all) {
    std::vector<std::string> result;
    for (auto finding = findings.begin(); finding != findings.end(); ++finding) {
        const auto isLikeThis = [&](const Finding& other) { return isAlike(other, *finding); };
        if (all) {
            result.push_back(sentence(*finding));
        } else if (std::none_of(findings.begin(), finding, isLikeThis)) {
            const auto more = std::count_if(finding + 1, findings.end(), isLikeThis);
            result.push_back(sentence(*finding));
            if (more > 0) result.back() += "; and " + std::to_string(more) + " more like it (--verbose lists them)";
        }
    }
    return result;
}

}  // namespace maker
