// Random walks: hundreds of things that a user might do, with tables and window looked at after each.
#include "core/aircraft_file.h"
#include "core/aircraft_table.h"
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "core/journal.h"
#include "core/undo.h"
#include "foundation/progress.h"
#include "platform/printer_choice.h"
#include "shell/update_commands.h"
#include "support/main_window.h"
#include "support/stand_in_tool.h"
#include "support/table_invariants.h"
#include "update/scripted_control.h"
#include "walks/random_user.h"
#include "world.h"

#include <QPrinter>

namespace vantor::test {
namespace {

// A desktop that opens nothing.
class WalkHost : public QtHost {
  public:
    void viewTextFile(std::string_view /*path*/) override {}
    void openFile(std::string_view /*path*/, std::function<void()> /*failed*/) override {}
    void openAddress(std::string_view /*address*/) override {}
    void startProgram(std::string_view /*program*/, std::string_view /*arguments*/) override {}
};

// Faults in the ring that a user's action may give, and why.
const std::vector<std::pair<std::string_view, std::string_view>> allowedFaults = {
    {"DBG: ", "a note of the updater's and no fault"},
    {"in sub cmdreload_click", "a default load that fails is silent"},
    {"Overflow(6) in sub cmdchangefl_click", "a level beyond 32 bits is refused"},
    {"Path/File access error(75) in sub savesc", "nothing was loaded, so that the file has no name"},
    {"Subscript out of range(9) in sub enablelegbuttons", "a leg's number may be older than its schedule"},
    {"Subscript out of range(9) in sub cmddeleteleg_click", "likewise"},
    {"Subscript out of range(9) in sub deleteleg", "no leg is current in the editor's list"},
    {"Subscript out of range(9) in sub cmbairport_click", "the editor shows leg 0, or none"}};

class RandomWalk : public Fixture, public testing::WithParamInterface<unsigned> {
  protected:
    void SetUp() override {
        useHost(&m_host);
        const std::string setup = VANTOR_UPDATE_SERVER "/setup.exe";
        m_server.replies[VANTOR_UPDATE_SERVER "/versions/VNT_current.txt"] = {"2.0.0\r\n" + setup};
        m_server.replies[setup] = {std::string(30000, 'x')};
        startAnew();
    }
    void TearDown() override {
        m_form.reset();
        currentPrinter().setOutputFileName(QString());
    }

    void walk(int steps) {
        for (int step = 1; step <= steps; ++step) {
            if (schedulecount == 0 && m_user.below(10) == 0) {
                startAnew(); // little can be done in an empty window
            }
            takeStep();
            if (!m_faults.lines().empty()) {
                std::string text = "step " + std::to_string(step) + ":\n";
                for (const std::string& fault : m_faults.lines()) {
                    text += "  " + fault + "\n";
                }
                text += "behind these actions:\n";
                for (const std::string& action : m_user.history) {
                    text += "  " + action + "\n";
                }
                FAIL() << text;
            }
        }
    }

    // Whatever the user made of the tables: what was saved and loaded saves to the same bytes from there on.
    void expectSavedStays() {
        std::vector<std::string> saved;
        for (int turn = 0; turn < 3; ++turn) {
            savesc(path("saved.txt"));
            saveaircraft();
            saved.push_back(readFile("saved.txt") + readFile("Aircraft.txt"));
            LoadAircraft(path("Aircraft.txt"), nullptr);
            SortAircraft();
            LoadSched(nullptr, path("saved.txt"));
        }
        EXPECT_EQ(saved[2], saved[1]);
        // A schedule whose legs are all deleted leaves a line that is read as none.
        const auto flown = [](const std::string& text) {
            return std::ranges::count_if(split(text, "\r\n"),
                                         [](std::string_view line) { return std::ranges::count(line, ',') > 8; });
        };
        EXPECT_EQ(flown(saved[1]), flown(saved[0]));
    }

  private:
    // The program's start, also after its end.
    void start() {
        m_form.reset();
        traffic = {};
        session = {};
        globalSettings().reset();
        pumpTimes() = {};
        exitCodeOf([] {}); // the loop that hears of the end of the run before
        currentPrinter().setOutputFormat(QPrinter::PdfFormat);
        currentPrinter().setOutputFileName(QString::fromStdString((folder() / "print.pdf").string()));
        m_host.setPointer(Pointer::Normal); // it goes with a program
        m_form = std::make_unique<frmMain>();
        m_form->updates().transferControl = [this] { return std::make_unique<ScriptedControl>(m_server); };
        m_form->formLoad();
        m_form->show();
        m_ringSeen = actionCount();
        control<QTimer>(*m_form, "Timer3").stop(); // the check by itself has its own tests
    }
    // A new start with the files of the world and nothing in the settings but their folder.
    void startAnew() {
        bench::writeWorld(folder(), {.schedules = 40, .airports = 8, .aircraft = 12, .seed = GetParam()});
        writeFile("FS\\aircraft\\New\\aircraft.cfg", "title=Brand new\r\ncruise_speed = 300.5\r\n");
        for (const std::string name : {"Aircraft", "Airports", "Flightplans"}) {
            writeFile(name + "030528.txt", readFile(name + ".txt"));
            writeFile("original\\" + name + ".txt", readFile(name + ".txt"));
        }
        writeFile("Vantor2.ini", "FSMODE, 2 \r\nFS2K2PATH," + path("FS\\") + "\r\nFS2K4PATH," + path("FS\\") + "\r\n");
        // The tool brings back what there was at the start.
        writeExecutable(folder() / "TTools.exe", "#!/bin/sh\nhere=$(dirname \"$0\")\n"
                                                 "case $1 in /de*) cp \"$here\"/original/*.txt \"$here\" ;; esac\n");
        start();
        click(*m_form, "cmdReload");
    }

    void takeStep() {
        const Traffic before = trafficNow();
        const std::int64_t stateBefore = journal().state();
        const bool flagBefore = m_form->workspace().unsavedchanges;
        clock.advance(0.2);
        const std::vector<QWidget*> windows = openWindows();
        QWidget& window = *windows[static_cast<std::size_t>(m_user.below(static_cast<int>(windows.size())))];
        window.activateWindow();
        const std::string did = m_user.act(window);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (m_form->ended()) {
            start();
        } else if (lookAtRing()) {
            lookAtFlag(did, before, flagBefore);
            lookAtLists();
            lookAtUndo(before, stateBefore);
            for (const std::string& fault : tableFaults()) {
                m_faults.expect(false, fault);
            }
            m_faults.expect(QApplication::overrideCursor() == nullptr, "the pointer stayed busy");
        } else {
            startAnew(); // the tables are what a failing load left behind
        }
    }
    // The windows that stand side by side; a dialog has gone with its command.
    [[nodiscard]] std::vector<QWidget*> openWindows() {
        std::vector<QWidget*> windows(2, m_form.get());
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            m_faults.expect(!window->isVisible() || !window->isModal(),
                            "a dialog stayed open: " + fromQString(window->objectName()));
            if (window->isVisible() && window != m_form.get()) {
                windows.push_back(window);
            }
        }
        return windows;
    }
    // What is done inside a dialog changes nothing until it is left.
    void serve(QDialog& dialog) {
        const Traffic before = trafficNow();
        m_user.serve(dialog);
        m_faults.expect(trafficNow() == before, "the tables changed inside a dialog");
    }
    // Whether the traffic is whole: no load has failed.
    bool lookAtRing() {
        bool whole = true;
        for (; m_ringSeen < actionCount(); ++m_ringSeen) { // the oldest of more than forty are in the log alone
            const std::string entry = actionText(static_cast<int>(m_ringSeen % recentActions) + 1);
            const bool allowed =
                std::ranges::any_of(allowedFaults, [&](const auto& one) { return contains(entry, one.first); });
            m_faults.expect(allowed, "in the ring: " + entry);
            whole = whole && !contains(entry, "sub cmdreload_click");
        }
        return whole;
    }
    // What changes traffic sets the flag, and a save alone clears it.
    void lookAtFlag(const std::string& did, const Traffic& before, bool flagBefore) {
        // A load gives other tables, and a delete by airport leaves the flag; it is meant.
        const bool meant =
            did == "cmdReload" || did == "cmdLoadFlightPlan" || did == "window" || did == "cmdDeleteByICAO";
        m_faults.expect(m_form->workspace().unsavedchanges || meant || trafficNow() == before,
                        "a change without the flag");
        m_faults.expect(m_form->workspace().unsavedchanges || !flagBefore || did == "cmdSaveFlights" || did == "window",
                        "the flag fell without a save");
    }
    // Undo gives back what stood ahead of the action, and redo what stood behind it.
    void lookAtUndo(const Traffic& before, std::int64_t stateBefore) {
        const Traffic after = trafficNow();
        int steps = 0;
        for (; journal().state() != stateBefore && undo(); ++steps) {
        }
        m_faults.expect(steps == 0 || trafficNow() == before, "undo gives other tables");
        while (steps-- > 0 && redo()) {
        }
        m_faults.expect(trafficNow() == after, "redo gives other tables");
    }
    void lookAtLists() {
        const ListRows list1 = control<ListBox>(*m_form, "List1").rows();
        for (const ListRow& row : list1) {
            const bool holds =
                row.itemData == 0 || (row.itemData <= schedulecount && schedules.peek(row.itemData).recnum != 0 &&
                                      row.text.starts_with("(DEL) ") == schedules.peek(row.itemData).deleted);
            m_faults.expect(holds, "List1 differs from its schedule: " + row.text);
        }
        m_faults.expect(list1.empty() || list1.back().text.empty(), "no closing row");
        for (const ListRow& row : control<ListBox>(*m_form, "List3").rows()) {
            const std::int32_t found = aircraftrecord(extractcode(row.text));
            m_faults.expect(found != -1 && aircraft[found].missing && !aircraft[found].deleted,
                            "List3 shows what is not missing: " + row.text);
        }
        for (const ListRow& row : control<ComboBox>(*m_form, "cmbAC").rows()) {
            const AircraftRec& shown = aircraft[row.itemData];
            m_faults.expect(shown.acnum.text() == extractcode(row.text) && !shown.deleted,
                            "cmbAC differs from the aircraft: " + row.text);
        }
    }

    WalkHost m_host;
    TransferScript m_server;
    RandomUser m_user{GetParam()};
    DialogService m_everyDialog{[this](QDialog& dialog) { serve(dialog); }};
    std::unique_ptr<frmMain> m_form;
    Faults m_faults;
    std::int64_t m_ringSeen = 0; // entries of the ring that were looked at
};

TEST_P(RandomWalk, KeepsTheTablesWhole) {
    walk(1000);
    if (!HasFatalFailure()) {
        expectSavedStays();
    }
}

INSTANTIATE_TEST_SUITE_P(, RandomWalk, testing::Range(1U, 5U),
                         [](const auto& seed) { return "Seed" + std::to_string(seed.param); });

} // namespace
} // namespace vantor::test
