#include "foundation/run_state.h"

#include "foundation/action_ring.h"
#include "foundation/clock.h"
#include "foundation/error_report.h"
#include "foundation/host.h"
#include "foundation/locale_words.h"
#include "foundation/log.h"
#include "foundation/progress.h"
#include "foundation/replacing_file.h"
#include "foundation/settings_store.h"

namespace vantor {

void startRun() {
    actionRing() = ActionRing(dumpactions);
    logFile().clear();
    globalSettings().reset();
    localeState() = {};
    pumpTimes() = {};
    forgetBackups();
    useClock(nullptr);
    useHost(nullptr);
    useErrorReporter({});
}

} // namespace vantor
