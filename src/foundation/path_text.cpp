#include "foundation/path_text.h"

#include "foundation/text.h"

#include <algorithm>

namespace vantor {

std::string addbackslash(std::string_view path) {
    std::string result(path);
    if (!result.empty() && result.back() != '\\') {
        result.push_back('\\');
    }
    return result;
}

std::string pathonly(std::string_view name) {
    const std::size_t last = name.find_last_of("\\/");
    return last == std::string_view::npos ? std::string(".\\") : std::string(name.substr(0, last + 1));
}

std::string fileonly(std::string_view name) {
    std::string result(name);
    std::ranges::replace(result, '/', '\\');
    if (const std::size_t last = result.rfind('\\'); last != std::string::npos) {
        result.erase(0, last + 1);
    }
    return result;
}

std::string fileexpath(std::string_view name) {
    return fileonly(name);
}

std::string filewithoutext(std::string_view name) {
    // Quirk: a dot in a folder's name counts.
    return std::string(name.substr(0, name.rfind('.')));
}

std::string fileroot(std::string_view name) {
    return filewithoutext(name);
}

std::string stripnull(std::string_view text) {
    return std::string(trim(text.substr(0, text.find('\0'))));
}

} // namespace vantor
