// Random walks: a thousand things that a user might do, with the tables looked at after each, and a save and a load at
// the end that must give back what they held.
#include "core/aircraft_file.h"
#include "core/aircraft_table.h"
#include "core/codes.h"
#include "core/tables.h"
#include "foundation/log.h"
#include "foundation/progress.h"
#include "foundation/settings_store.h"
#include "platform/code_page.h"
#include "platform/printer_choice.h"
#include "platform/qt_host.h"
#include "shell/application_loop.h"
#include "shell/frmMain.h"
#include "shell/lists.h"
#include "shell/update_commands.h"
#include "simulator/aircraft_changes.h"
#include "support/fixture.h"
#include "support/form_driver.h"
#include "support/stand_in_tool.h"
#include "support/table_invariants.h"
#include "update/fSHAREDUpdater.h"
#include "update/scripted_control.h"
#include "walks/random_user.h"
#include "walks/read_back.h"
#include "walks/walk_world.h"

#include <QApplication>
#include <QPrinter>
#include <QRadioButton>
#include <QTimer>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vantor::test {
namespace {

// A desktop that opens nothing.
class WalkHost : public QtHost {
  public:
    void viewTextFile(std::string_view /*path*/) override {}
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
        Fixture::SetUp();
        useHost(&m_host);
        const std::string setup = VANTOR_UPDATE_SERVER "/setup.exe";
        m_server.replies[VANTOR_UPDATE_SERVER "/versions/VNT_current.txt"] = {"2.0.0\r\n" + setup};
        m_server.replies[setup] = {std::string(30000, 'x')};
        startAnew();
    }
    void TearDown() override {
        m_form.reset();
        currentPrinter().setOutputFileName(QString());
        Fixture::TearDown();
    }

    void walk(int steps) {
        while (m_step < steps && !m_told) {
            if ((m_loadFailed || schedulecount == 0) && m_user.below(20) == 0) {
                startAnew(); // little can be done in an empty window
            }
            step();
        }
        RecordProperty("actions", m_user.actions);
        RecordProperty("stepsOverTraffic", m_whole);
    }

    // Saves both files as the user does and reads them again: the flight plans against the aircraft in memory, so that
    // nothing else moves.
    void endBySaveAndLoad() {
        if (m_told) {
            return;
        }
        if (m_loadFailed || m_form->workspace().flightsname.empty()) {
            startAnew();
        }
        const std::vector<ScheduleRec> expectedSchedules = readBack(trafficNow().schedules);
        m_user.answers = {true, true}; // the question and what is told behind it
        click(at("cmdSaveFlights"));
        ASSERT_TRUE(m_user.answers.empty());
        if (!expectedSchedules.empty()) { // a file without a line is refused
            m_user.fileName = m_form->workspace().flightsname.substr(m_form->workspace().flightsname.rfind('\\') + 1);
            m_user.answers = {false}; // aircraft and airports stay
            click(at("cmdLoadFlightPlan"));
            m_user.answers.clear(); // a name without a suffix asks nothing
            ASSERT_FALSE(m_form->ended()) << newestAction();
            const std::vector<ScheduleRec> read = trafficNow().schedules;
            ASSERT_EQ(read.size(), expectedSchedules.size());
            for (std::size_t i = 0; i < read.size(); ++i) {
                EXPECT_EQ(read[i], expectedSchedules[i]) << "schedule " << i + 1;
            }
        }
        const std::vector<AircraftRec> expectedAircraft = readBack(trafficNow().aircraft);
        m_user.answers = {true, true};
        click(at("cmdSaveAircraft"));
        if (!expectedAircraft.empty()) {
            LoadAircraft(path("Aircraft.txt"), nullptr);
            SortAircraft();
            EXPECT_EQ(trafficNow().aircraft, expectedAircraft);
        }
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
        m_loadFailed = false;
        m_form = std::make_unique<frmMain>();
        m_form->updates().transferControl = [this] { return std::make_unique<ScriptedControl>(m_server); };
        m_form->formLoad();
        m_form->show();
        at<QTimer>("Timer3").stop(); // its time comes when the user's draw says so
    }
    // A new start with the files of the world and nothing in the settings but their folder.
    void startAnew() {
        for (const auto& [name, text] : walkWorld(GetParam())) {
            writeFile(name, text);
        }
        writeFile("Vantor2.ini", "FSMODE, 2 \r\nFS2K2PATH," + path("FS\\") + "\r\nFS2K4PATH," + path("FS\\") + "\r\n");
        // The tool brings back what there was at the start.
        writeExecutable(folder() / "TTools.exe", "#!/bin/sh\nhere=$(dirname \"$0\")\n"
                                                 "case $1 in /de*) cp \"$here\"/original/*.txt \"$here\" ;; esac\n");
        start();
        click(at("cmdReload"));
    }

    void step() {
        ++m_step;
        m_form->activateWindow();
        const Traffic before = trafficNow();
        const bool flagBefore = m_form->workspace().unsavedchanges;
        clock.advance(0.2);
        QWidget* const other = updater(); // no modal window behind a check
        m_done = m_user.act(other != nullptr && m_user.below(3) == 0 ? *other : *m_form);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (m_form->ended()) {
            test::forgetActions();
            start();
            return;
        }
        Faults faults;
        lookAtRing(faults);
        if (!m_loadFailed) {
            m_whole += schedulecount == 0 ? 0 : 1;
            lookAtFlag(faults, before, flagBefore);
            lookAtLists(faults);
            tell(tableFaults());
        }
        lookAtWindow(faults);
        tell(faults.lines());
    }
    // What is done inside a dialog changes nothing until it is left.
    void serve(QDialog& dialog) {
        m_atDialog.push_back(trafficNow());
        m_user.serve(dialog);
        m_atDialog.pop_back();
    }
    void lookInDialog() {
        if (trafficNow() != m_atDialog.back()) {
            tell({"the tables changed inside a dialog"});
        }
    }
    void lookAtRing(Faults& faults) {
        for (int index = 1; index <= recentActions; ++index) {
            const std::string entry = actionText(index);
            const bool allowed =
                std::ranges::any_of(allowedFaults, [&](const auto& one) { return contains(entry, one.first); });
            faults.expect(entry.empty() || allowed, "in the ring: " + entry);
            m_loadFailed = m_loadFailed || contains(entry, "sub cmdreload_click");
        }
        test::forgetActions();
    }
    [[nodiscard]] bool did(std::initializer_list<std::string_view> names) const {
        return std::ranges::any_of(names, [&](std::string_view name) { return m_done.starts_with(name); });
    }
    // What changes traffic sets the flag, and a save alone clears it.
    void lookAtFlag(Faults& faults, const Traffic& before, bool flagBefore) const {
        // A delete by airport leaves the flag; it is meant.
        const bool told = did({"cmdReload", "cmdLoadFlightPlan", "window: key F5", "cmdDeleteByICAO"});
        faults.expect(m_form->workspace().unsavedchanges || told || trafficNow() == before,
                      "a change without the flag");
        faults.expect(m_form->workspace().unsavedchanges || !flagBefore ||
                          did({"cmdSaveFlights", "window: key Ctrl+S"}),
                      "the flag fell without a save");
    }
    void lookAtLists(Faults& faults) const {
        const auto& list1 = at<ListBox>("List1");
        for (int row = 0; row < list1.rowCount(); ++row) {
            const std::int32_t slot = list1.itemData(row);
            const bool holds = slot == 0 || (slot >= 1 && slot <= schedulecount && schedules.peek(slot).recnum != 0 &&
                                             list1.rowText(row).starts_with("(DEL) ") == schedules.peek(slot).deleted);
            faults.expect(holds, "List1 differs from its schedule: " + list1.rowText(row));
        }
        const int closing = list1.rowCount() - 1;
        faults.expect(closing < 0 || (list1.rowText(closing).empty() && list1.itemData(closing) == 0),
                      "no closing row");
        for (const ListRow& row : at<ListBox>("List2").rows()) {
            faults.expect(row.itemData >= 0 && row.itemData / 1000 <= schedulecount,
                          "List2 leads nowhere: " + row.text);
        }
        for (const ListRow& row : at<ListBox>("List3").rows()) {
            const std::int32_t found = aircraftrecord(extractcode(row.text));
            faults.expect(found != -1 && aircraft[found].missing && !aircraft[found].deleted,
                          "List3 shows what is not missing: " + row.text);
        }
        for (const ListRow& row : at<ComboBox>("cmbAC").rows()) {
            const AircraftRec& shown = aircraft[row.itemData];
            faults.expect(shown.acnum.text() == extractcode(row.text) && !shown.deleted,
                          "cmbAC differs from the aircraft: " + row.text);
        }
        for (const ListRow& row : at<ComboBox>("cmbICAO").rows()) {
            faults.expect(airports.peek(row.itemData).icao.text() == extractcode(row.text),
                          "cmbICAO differs from the airports: " + row.text);
        }
    }
    void lookAtWindow(Faults& faults) const {
        faults.expect(at("cmdPrint").isEnabled() == !m_form->lists().timetableicao().empty(),
                      "cmdPrint without its timetable");
        faults.expect(QApplication::overrideCursor() == nullptr || m_loadFailed, "the pointer stayed busy");
        for (const QWidget* const window : QApplication::topLevelWidgets()) {
            faults.expect(!window->isVisible() || window == m_form.get() || window == updater(),
                          "a window stayed open: " + fromQString(window->objectName()));
        }
        for (const auto& [option, frame] :
             std::initializer_list<std::pair<const char*, const char*>>{{"optmass", "frameMassUpdate"},
                                                                        {"optATCPercent", "frameSetATCPercent"},
                                                                        {"optDelByIcao", "frameDelByIcao"},
                                                                        {"optSplit", "frameSplit"},
                                                                        {"optSplitAC", "frameSplitAC"}}) {
            faults.expect(at<QRadioButton>(option).isChecked() == at(frame).isVisible(), "the wrong panel shows");
        }
    }
    void tell(const std::vector<std::string>& faults) {
        if (faults.empty() || std::exchange(m_told, true)) {
            return;
        }
        std::string text = "seed " + std::to_string(GetParam()) + ", step " + std::to_string(m_step) + ":\n";
        for (const std::string& fault : faults) {
            text += "  " + fault + "\n";
        }
        text += "behind these actions:\n";
        for (const std::string& action : m_user.history) {
            text += "  " + action + "\n";
        }
        ADD_FAILURE() << text;
    }
    // The updater's window while it is on the screen.
    [[nodiscard]] QWidget* updater() const {
        auto* const found = m_form->findChild<fSHAREDUpdater*>();
        return found != nullptr && found->isVisible() ? found : nullptr;
    }
    template <class Widget = QWidget>
    [[nodiscard]] Widget& at(std::string_view name) const {
        return control<Widget>(*m_form, name);
    }

    WalkHost m_host;
    TransferScript m_server;
    RandomUser m_user{GetParam(), [this] { lookInDialog(); }};
    DialogService m_everyDialog{[this](QDialog& dialog) { serve(dialog); }};
    std::unique_ptr<frmMain> m_form;
    std::vector<Traffic> m_atDialog; // the tables as each open dialog found them
    std::string m_done;              // the latest action in the main window
    int m_step = 0;
    int m_whole = 0;           // steps over traffic that was loaded whole
    bool m_loadFailed = false; // the tables are what a failing load left behind
    bool m_told = false;       // a fault was found: the walk ends
};

TEST_P(RandomWalk, KeepsTheTablesWhole) {
    walk(1000);
    endBySaveAndLoad();
}

INSTANTIATE_TEST_SUITE_P(, RandomWalk, testing::Range(1U, 11U),
                         [](const auto& seed) { return "Seed" + std::to_string(seed.param); });

} // namespace
} // namespace vantor::test
