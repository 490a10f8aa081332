// The version file of the update server: whatever comes back, a version and an address.
#include "foundation/text.h"
#include "fuzz.h"
#include "update/version_file.h"

namespace vantor::fuzz {

void check(std::string_view input) {
    const VersionFile file = ExtractVersion(input);
    const Version& version = file.version;
    require(version.suffix.size() < 2, "a suffix is one letter");
    require(contains(input, "\n") || file.url.empty(), "the address is the second line");
    require(file.url.size() <= input.size() * 12, "an address holds the version in place of its marks");

    const Version own = ExtractVersion("1.2.14b").version;
    require(!isNewer(version, version), "no version is newer than itself");
    require(!isNewer(version, own) || !isNewer(own, version), "of two versions one is newer at most");
    const Version again = ExtractVersion(version.text()).version;
    require(again.major == version.major && again.minor == version.minor && again.revision == version.revision,
            "a printed version comes back");
}

} // namespace vantor::fuzz
