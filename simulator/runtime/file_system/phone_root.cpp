#include "simulator/runtime/file_system/phone_root.h"

#include <deque>
#include <system_error>

namespace phone {
namespace {

namespace fs = std::filesystem;

// As many as Linux follows in one path.
constexpr int kLinkLimit = 40;

fs::path& ownRoot() {
    static fs::path path;
    return path;
}

std::deque<std::string> split(std::string_view path) {
    std::deque<std::string> parts;
    while (!path.empty()) {
        const size_t end = path.find('/');
        const std::string_view part = path.substr(0, end);
        if (!part.empty() && part != ".") parts.emplace_back(part);
        if (end == std::string_view::npos) break;
        path.remove_prefix(end + 1);
    }
    return parts;
}

bool isInside(std::string_view path, std::string_view root) {
    return path.substr(0, root.size()) == root && (path.size() == root.size() || path[root.size()] == '/');
}

// Whether the kernel of this machine, which knows nothing of the root, would follow this link to a place inside it.
bool staysInside(const fs::path& link, const fs::path& target, const fs::path& root) {
    if (target.is_absolute()) return false;
    std::error_code error;
    const fs::path end = fs::weakly_canonical(link, error);
    return !error && isInside(end.native(), root.native());
}

// Walks the components of an absolute phone path inside the root.
std::string resolve(std::deque<std::string> parts, const fs::path& root) {
    fs::path at = root;
    for (int links = 0; !parts.empty();) {
        const std::string part = parts.front();
        parts.pop_front();
        if (part == "..") {
            if (at != root) at = at.parent_path();
            continue;
        }
        const fs::path next = at / part;
        std::error_code error;
        const fs::path target = fs::read_symlink(next, error);
        if (error || (parts.empty() && staysInside(next, target, root))) {
            at = next;
            continue;
        }
        if (++links > kLinkLimit) {
            at = next;
            break;
        }
        if (target.is_absolute()) at = root;
        std::deque<std::string> followed = split(target.native());
        parts.insert(parts.begin(), followed.begin(), followed.end());
    }
    return at.native();
}

bool climbs(std::string_view path) {
    for (const std::string& part : split(path)) {
        if (part == "..") return true;
    }
    return false;
}

// A relative path that climbs is made absolute first, so that it cannot leave the root.
std::string relativePath(std::string_view path, const fs::path& root) {
    std::error_code error;
    const fs::path here = fs::current_path(error);
    if (error || !climbs(path) || !isInside(here.native(), root.native())) return std::string(path);
    return resolve(split(here.native().substr(root.native().size()) + "/" + std::string(path)), root);
}

}  // namespace

const fs::path& root() { return ownRoot(); }

void setRoot(fs::path canonical) { ownRoot() = std::move(canonical); }

std::string hostPath(std::string_view phonePath, const fs::path& root) {
    if (phonePath.empty() || root.empty()) return std::string(phonePath);
    if (phonePath.front() != '/') return relativePath(phonePath, root);
    if (isInside(phonePath, root.native()) && !climbs(phonePath)) return std::string(phonePath);
    const bool isDirectory = phonePath.size() > 1 && phonePath.back() == '/';
    const std::string resolved = resolve(split(phonePath), root);
    return isDirectory ? resolved + "/" : resolved;
}

std::string hostPath(std::string_view phonePath) { return hostPath(phonePath, root()); }

std::string phonePath(std::string_view hostPath) {
    const std::string& base = root().native();
    if (base.empty() || !isInside(hostPath, base)) return std::string(hostPath);
    const std::string_view rest = hostPath.substr(base.size());
    return rest.empty() ? "/" : std::string(rest);
}

}  // namespace phone
