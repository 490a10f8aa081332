#include "foundation/error_report.h"

#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/trap.h"

#include <string>
#include <utility>

namespace vantor {

namespace {

constexpr std::string_view procedureName = "showerr";
constexpr std::string_view moduleName = "mSHAREDShowError";

// True while a failure is being shown.
bool showing = false;

ErrorReporter& reporterInUse() {
    static ErrorReporter reporter;
    return reporter;
}

void show(std::string_view text, std::string_view topic) {
    if (reporterInUse()) {
        reporterInUse()(text, topic);
    } else {
        host().message(text);
    }
}

} // namespace

void useErrorReporter(ErrorReporter reporter) {
    reporterInUse() = std::move(reporter);
}

void showerr(std::string_view text, std::string_view topic) noexcept {
    const StandardTrap trap{procedureName, moduleName};
    if (showing) {
        // A failure met while one is shown goes to the ring: no dialog opens over another.
        trap(logaction, text, procedureName, moduleName);
        return;
    }
    showing = true;
    trap(show, text, topic);
    showing = false;
}

} // namespace vantor
