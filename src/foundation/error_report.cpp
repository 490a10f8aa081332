#include "foundation/error_report.h"

#include "foundation/host.h"
#include "foundation/trap.h"

#include <utility>

namespace vantor {

namespace {

ErrorReporter& reporterInUse() {
    static ErrorReporter reporter;
    return reporter;
}

} // namespace

void useErrorReporter(ErrorReporter reporter) {
    reporterInUse() = std::move(reporter);
}

void showerr(std::string_view text, std::string_view topic) noexcept {
    const StandardTrap trap{"showerr", "mSHAREDShowError"};
    trap([&] {
        if (reporterInUse()) {
            reporterInUse()(text, topic);
        } else {
            host().message(text);
        }
    });
}

} // namespace vantor
