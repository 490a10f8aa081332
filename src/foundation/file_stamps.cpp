#include "foundation/file_stamps.h"

#include "foundation/disk.h"
#include "foundation/native_path.h"

#include <system_error>
#include <utility>

namespace vantor {

namespace {

std::filesystem::path systemPath(std::string_view path) {
    std::error_code failure;
    std::filesystem::path native = nativePath(path);
    std::filesystem::path canonical = std::filesystem::weakly_canonical(native, failure);
    return failure ? native : canonical;
}

} // namespace

void FileStamps::remember(std::string_view path) {
    set(path, fileStamp(path));
}

void FileStamps::set(std::string_view path, std::string stamp) {
    m_stamps[systemPath(path)] = std::move(stamp);
}

std::string FileStamps::of(std::string_view path) const {
    const auto known = m_stamps.find(systemPath(path));
    return known == m_stamps.end() ? std::string() : known->second;
}

bool FileStamps::changed(std::string_view path) const {
    const std::string now = fileStamp(path);
    const std::string known = of(path);
    return !known.empty() && !now.empty() && known != now;
}

} // namespace vantor
