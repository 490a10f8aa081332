#include "explorer.h"

#include "core/tables.h"
#include "core/undo.h"
#include "explorer/checks.h"
#include "explorer/filter.h"
#include "explorer/leg_index.h"
#include "explorer/leg_sort.h"
#include "foundation/disk.h"
#include "foundation/native_path.h"
#include "shell/rescue_keeper.h"
#include "world.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <string>

namespace vantor::bench {

namespace {

constexpr double filterLimit = 0.15;
constexpr double sortLimit = 0.6;
constexpr double checksLimit = 0.6;
constexpr double pauseLimit = 50; // milliseconds
constexpr std::size_t rowsOnScreen = 60;

// Until the rows that can be seen at once are found, or all there are.
void findFirstRows(const char* text) {
    LegIndex index;
    index.start(Filter(text), RowKind::Legs, nullptr);
    index.step([&] { return index.rows().size() >= rowsOnScreen; });
}

void sortRows(LegColumn column) {
    static_cast<void>(sortedRows(RowKind::Legs, std::array{SortKey{.column = column}}));
}

void checkAll() {
    Checks checks;
    checks.start({});
    checks.step([] { return false; });
}

} // namespace

void addExplorerRows(const Prepared& floor, const Work& load) {
    const auto add = [&](const std::string& name, double limit, const Work& work) {
        // The caches are cold then, as they are behind the user's other work.
        const auto prepare = [=] {
            if (schedulecount == 0) {
                load();
            }
        };
        addRow({.name = name, .unit = "x floor", .limit = limit}, [=] { return holdAgainst(floor, {work, prepare}); });
    };
    for (const char* const text : {"aabc", "from:aabc to:aabd", "tail:n149999v", "dist>5000 dep>22:00", "nowhere"}) {
        add(std::string("explorer: first rows of ") + text, filterLimit, [=] { findFirstRows(text); });
    }
    for (std::size_t column = 0; column < legColumns; ++column) {
        const auto key = static_cast<LegColumn>(column);
        add("explorer: sort by " + std::string(columnTitle(key)), sortLimit, [=] { sortRows(key); });
    }
    add("explorer: all checks", checksLimit, checkAll);
}

void measureRescue(Window& window, int count) {
    const QTemporaryDir temporary;
    const std::filesystem::path folder = temporary.path().toStdString();
    writeWorld(folder, {.schedules = count});
    window.moveTo(folder);
    RescueKeeper& rescue = window.form().rescue();
    rescue.setPauses(std::chrono::milliseconds(0), std::chrono::milliseconds(0));
    rescue.start();
    window.form().files().loaddata();
    addRow({.name = "longest pause while the rescue copy is written", .unit = "ms", .limit = pauseLimit}, [&] {
        const std::string note = programFolder() + "\\Vantor2.rescue";
        EraseFile(note);
        {
            const Step step("Change");
            ScheduleRec schedule = schedules.HashGetSlot(1);
            schedule.rules = schedule.rules.text() == "IFR" ? "VFR" : "IFR";
            schedules.HashPutSlot(1, schedule);
        }
        // The copy begins behind the user's next key.
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier);
        QCoreApplication::sendEvent(&window.form(), &key);
        Spent longest;
        double whole = 0;
        while (!FileExists(note)) {
            const Spent pause = timeOf({[] { QCoreApplication::processEvents(); }, {}});
            longest.wall = std::max(longest.wall, pause.wall * 1000);
            longest.processor = std::max(longest.processor, pause.processor * 1000);
            whole += pause.wall;
        }
        return Finding{whole, longest};
    });
    measureRows();
}

} // namespace vantor::bench
