#include "update/file_server.h"

#include "foundation/path_text.h"
#include "foundation/text.h"

#include <algorithm>

namespace vantor {

FileServerCommands fileServerCommands(std::string_view url, std::string_view local) {
    const std::string address = replaceAll(trim(url), "\\", "/");
    std::size_t begin = 0;
    if (!equalNoCase(address.substr(0, 4), "FTP.")) {
        const std::size_t scheme = address.find("//");
        if (scheme == std::string::npos) {
            return {};
        }
        begin = scheme + 2;
    }
    const std::size_t end = std::min(address.find('/', begin), address.size());
    if (end == begin) {
        return {};
    }
    const std::string path = address.substr(end);
    // A blank would end the name inside the command.
    const std::string file = replaceAll(fileonly(path), " ", "%20");
    return {"FTP://" + address.substr(begin, end - begin),
            {"CD " + pathonly(path), "GET " + file + " " + std::string(local), "CLOSE"}};
}

} // namespace vantor
