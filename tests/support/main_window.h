// Test support: one include for every test of the main window, over a small traffic of its own, loaded from files as
// the user loads it.
#pragma once

#include "shell/frmMain.h"
#include "shell/lists.h"
#include "support/form_driver.h"

namespace vantor::test {

/// What exitCodeOf gives when the program went on.
inline constexpr int stillRuns = 99;

/// Runs the application's event loop, lets the user act in it, and gives the program's exit code.
inline int exitCodeOf(const std::function<void()>& user) {
    QTimer act;
    act.setSingleShot(true);
    QTimer after;
    after.setSingleShot(true);
    QObject::connect(&after, &QTimer::timeout, qApp, [] { QCoreApplication::exit(stillRuns); });
    QObject::connect(&act, &QTimer::timeout, qApp, [&] {
        user();
        after.start(0); // behind all that the user's act has posted
    });
    act.start(0);
    return QCoreApplication::exec();
}

/// A main window that the test opens, and the ways to its controls.
class WindowFixture : public Fixture {
  protected:
    void SetUp() override { useHost(&m_host); }

    void TearDown() override { m_form.reset(); }

    /// Opens a window, in place of one that stands.
    frmMain& open() {
        m_form = std::make_unique<frmMain>();
        return *m_form;
    }
    [[nodiscard]] frmMain& form() const { return *m_form; }
    void press(std::string_view button) const { click(*m_form, button); }
    /// Presses a button that these message boxes answer, in this order.
    void press(std::string_view button, std::vector<BoxAnswer> answers) const {
        const Expectation boxes = answerBoxes(std::move(answers));
        press(button);
    }
    /// Presses a button that opens this dialog, which is handed to `user`.
    void press(std::string_view button, std::string_view dialog, std::function<void(QDialog&)> user) const {
        const Expectation expected = expectDialog(dialog, std::move(user));
        press(button);
    }
    void type(std::string_view box, std::string_view text) const { typeOver(control<QLineEdit>(*m_form, box), text); }
    [[nodiscard]] std::string box(std::string_view name) const {
        return fromQString(control<QLineEdit>(*m_form, name).text());
    }
    [[nodiscard]] ListBox& list(std::string_view name) const { return control<ListBox>(*m_form, name); }
    [[nodiscard]] ComboBox& combo(std::string_view name) const { return control<ComboBox>(*m_form, name); }

    void act(std::string_view what) const { test::act(*m_form, what); }

    /// One thing that a user does, what then is seen in the window (empty: nobody looks), and the answers to the boxes
    /// that come up.
    struct Step {
        std::string act;
        std::string seen = {};
        std::vector<BoxAnswer> boxes = {};
    };
    void play(const std::vector<Step>& steps) const {
        for (const Step& step : steps) {
            SCOPED_TRACE(step.act);
            const Expectation boxes = answerBoxes(step.boxes);
            act(step.act);
            if (!step.seen.empty()) {
                EXPECT_EQ(seen(), step.seen);
            }
        }
    }
    /// What stands in the window, as in "*1 [x2] (3) .|[2001] 2002|--++++": a star while changes are unsaved; the rows
    /// of List1 and List2, each by its item data or else its code, x for deleted, [current], (selected too), and a mark
    /// in place of a list that can't be seen or picked in; whether the six buttons under them can be pressed.
    [[nodiscard]] std::string seen() const {
        std::string text = m_form->workspace().unsavedchanges ? "*" : "";
        text += seenIn(list("List1")) + "|" + seenIn(list("List2")) + "|";
        for (const char* const name :
             {"cmdEditSchedule", "cmdCopy", "cmdDeleteSchedule", "cmdSwapAC", "cmdEditLeg", "cmdDeleteLeg"}) {
            text += control<QWidget>(*m_form, name).isEnabled() ? '+' : '-';
        }
        return text;
    }

  private:
    [[nodiscard]] static std::string seenIn(const ListBox& box) {
        std::string text = !box.isVisible()        ? "hidden "
                           : !box.updatesEnabled() ? "frozen "
                           : !box.isEnabled()      ? "off "
                                                   : "";
        for (int row = 0; row < box.rowCount(); ++row) {
            const bool deleted = box.rowText(row).starts_with("(DEL) ");
            std::string shown = box.itemData(row) != 0 ? std::to_string(box.itemData(row))
                                                       : box.rowText(row).substr(0, box.rowText(row).find(" - "));
            shown = (deleted ? "x" : "") + (shown.empty() ? "." : shown);
            if (row == box.currentRow()) {
                shown = "[" + shown + "]";
            } else if (box.isRowSelected(row)) {
                shown = "(" + shown + ")";
            }
            text += (row > 0 ? " " : "") + shown;
        }
        return text;
    }

    QtHost m_host;
    std::unique_ptr<frmMain> m_form;
};

/// Two missing aircraft of four, four airports, four schedules, and a simulator with three titles. The window stands
/// with all of it loaded.
class MainWindowFixture : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        writeFile("Aircraft.txt", "AC#1,250,\"Boeing 737\"\r\nAC#2,300,\"Gone\"\r\nAC#3,400,\"Airbus\"\r\n"
                                  "AC#5,120,\"Lost\"\r\n");
        writeFile("Airports.txt", "EGLL,N51* 28.39',W0* 27.41',80\r\nLFPG,N49* 0.46',E2* 33.00',392\r\n"
                                  "EGKK,N51* 8.53',W0* 11.25',202\r\nEGSS,N51* 53.06',E0* 14.06',348\r\n");
        writeFile("Flightplans.txt", schedule("AC#1,GAAA", "LFPG", "EGLL") + schedule("AC#2,GBBB", "EGSS", "LFPG") +
                                         schedule("AC#2,GCCC", "LFPG", "EGLL") + schedule("AC#3,GDDD", "EGLL", "EGKK"));
        writeFile("FS\\aircraft\\A\\aircraft.cfg", "title=Boeing 737\r\ntitle=Airbus\r\ntitle=New one\r\n");
        writeFile("Vantor2.ini", "FSMODE, 2 \r\nFS2K2PATH," + path("FS\\") + "\r\n");
        open().formLoad();
        form().show();
        press("cmdReload");
    }

    /// A line of the flight plan file with two legs, as the program writes it.
    static std::string schedule(const std::string& front, const std::string& first, const std::string& second,
                                const std::string& percent = "100%", const std::string& level = "200") {
        return front + "," + percent + ",24HR,IFR,06:00:00,07:00:00, " + level + " ,F,1," + first +
               ",12:00:00,13:00:00, 200 ,F,2," + second + "\r\n";
    }

    /// Saves the flight plans, loads them anew and gives the file.
    std::string saveAndReload() const {
        const std::string file = path("Flightplans.txt");
        press("cmdSaveFlights", {{"Overwrite " + file + "?", QMessageBox::Yes}, {"Flight plans saved to " + file}});
        EXPECT_FALSE(form().workspace().unsavedchanges);
        press("cmdReload");
        return readFile("Flightplans.txt");
    }
};

} // namespace vantor::test
