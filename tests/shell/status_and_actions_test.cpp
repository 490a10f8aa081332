// The main window: its status line, and what keys, double clicks and context menus do beside the buttons.
#include "foundation/host.h"
#include "platform/colours.h"
#include "support/main_window.h"
#include "support/traffic.h"

namespace vantor::test {
namespace {

class StatusAndActions : public MainWindowFixture {
  protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        form().activateWindow();
        ASSERT_TRUE(waitFor([this] { return form().isActiveWindow(); }));
    }
    [[nodiscard]] std::string label(const char* name) const {
        const auto& shown = control<QLabel>(form(), name);
        return shown.isVisible() ? fromQString(shown.text()) : "";
    }
    [[nodiscard]] std::string state() const {
        std::string all;
        for (const char* const name : {"lblLoaded", "lblRows", "lblFile", "lblLoadedMode", "lblUnsaved", "lblOffset"}) {
            all += label(name) + "|";
        }
        return all;
    }
    [[nodiscard]] std::string focus() const { return fromQString(form().focusWidget()->objectName()); }
    void key(Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        pressKey(*form().focusWidget(), pressed, modifiers);
    }
    /// What the menu of a control, or of the second row of a box's list, offers, greyed entries in brackets; then the
    /// entry of this text is taken.
    [[nodiscard]] std::string menuOf(const char* name, const QString& taken) const {
        std::string texts;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &form(), [&] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr) {
                return;
            }
            look.stop();
            QAction* chosen = nullptr;
            for (QAction* const entry : menu->actions()) {
                const std::string text = fromQString(entry->text().remove(u'&'));
                texts += entry->isSeparator() ? "" : (entry->isEnabled() ? text : "[" + text + "]") + "|";
                chosen = entry->text() == taken ? entry : chosen;
            }
            if (chosen != nullptr) {
                menu->setActiveAction(chosen);
                pressKey(*menu, Qt::Key_Return);
            }
            menu->close();
        });
        look.start(0);
        form().activateWindow(); // a menu took that away
        EXPECT_TRUE(waitFor([this] { return form().isActiveWindow(); }));
        auto* where = &control<QWidget>(form(), name);
        where->setFocus();
        if (auto* const box = qobject_cast<ComboBox*>(where)) {
            box->showPopup();
            box->view()->setCurrentIndex(box->model()->index(1, 0));
            where = box->view();
        }
        pressKey(*where, Qt::Key_F10, Qt::ShiftModifier);
        return texts;
    }
};

TEST_F(StatusAndActions, TheLineTellsWhatHappenedAndWhatIsLoaded) {
    form().resize(1200, 700);
    EXPECT_EQ(label("lblHappened"), "Loaded " + path("Flightplans.txt"));
    const struct {
        const char* act;
        const char* happened;
        std::vector<BoxAnswer> boxes = {};
    } steps[] = {{"cmdListall", "Loaded "},
                 {"List1:0", "Loaded "},
                 {"cmdCopy", "Copy GAAA"},
                 {"List1+1", "Copy GAAA"},
                 {"cmdDeleteSchedule", "Delete 2 schedules"},
                 {"optDelByIcao", "Delete 2 schedules"},
                 {"txtDelByICAO=egll", "Delete 2 schedules"},
                 {"cmdDeleteByICAO",
                  "Delete by ICAO EGLL: 3 schedules, 0 legs",
                  {{"About to delete all flights matching 'EGLL'.  Are you sure?", QMessageBox::Yes}}},
                 {"optFS2k4", "Mode FS2004"}};
    for (const auto& step : steps) {
        const Expectation boxes = answerBoxes(step.boxes);
        act(step.act);
        EXPECT_TRUE(label("lblHappened").starts_with(step.happened)) << step.act << ": " << label("lblHappened");
    }
    gmtoffset = 0.0625F;
    press("cmdListall");
    EXPECT_EQ(state(), "0 schedules, 0 legs, 4 aircraft, 4 airports|5 rows, 1 selected|Flightplans.txt|"
                       "loaded for FS2002|unsaved|(GMT+1:30)|");
    const auto& offset = control<QLabel>(form(), "lblOffset");
    EXPECT_TRUE(offset.font().bold());
    for (const QColor& paper : {QColor(239, 239, 239), QColor(160, 160, 160), QColor(32, 32, 32)}) {
        QPalette palette = form().palette();
        palette.setColor(QPalette::Window, paper);
        form().setPalette(palette);
        EXPECT_GE(contrast(offset.palette().color(QPalette::WindowText), paper), legibleContrast);
    }
    form().resize(form().minimumSize());
    EXPECT_TRUE(waitFor([&] { return label("lblLoaded").empty(); })) << "the least wanted goes first";
    EXPECT_EQ(form().size(), form().minimumSize());
    EXPECT_EQ(label("lblUnsaved"), "unsaved");
}

TEST_F(StatusAndActions, AFaultIsToldAndItsClickOpensTheLog) {
    std::filesystem::remove(folder() / "Airports.txt");
    press("cmdReload");
    auto& happened = control<QLabel>(form(), "lblHappened");
    EXPECT_NE(label("lblHappened").find("Airports.txt missing or empty."), std::string::npos);
    EXPECT_TRUE(happened.toolTip().contains(QStringLiteral("sub cmdreload_click")));
    useHost(&recorder);
    click(happened);
    EXPECT_EQ(recorder.viewedFiles, std::vector<std::string>{path("log.txt")});
    EXPECT_EQ(logTexts().back(), "End of actions list") << "the fault is in it";
    logdebug("A note", "", "");
    logaction("A fault of another moment(9)", "", "");
    press("cmdListall");
    act("List1:1");
    press("cmdDeleteSchedule");
    EXPECT_EQ(label("lblHappened"), "Delete 1 schedule");
}

TEST_F(StatusAndActions, KeysGoWhereTheHandExpects) {
    key(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(seen() + focus(), "[1] 2 3 4 .||------List1");
    key(Qt::Key_Space);
    EXPECT_EQ(seen(), "[1] 2 3 4 .|[1001] 1002|++++++") << "a click on the row that was only highlighted";
    key(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(focus(), "List2");
    key(Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(focus(), "List3");
    press("cmdListall");
    for (const bool byKey : {true, false}) { // Enter clicks first; a double click comes behind a click
        const Expectation dialog = expectDialog("frmSchedEdit", [](QDialog& editor) { click(editor, "cmdCancel"); });
        byKey ? key(Qt::Key_Return) : doubleClickRow(list("List1"), 2);
    }
    clickRow(list("List1"), 1, Qt::ControlModifier);
    key(Qt::Key_Return);
    EXPECT_EQ(list("List1").selectedRowCount(), 2) << "Edit is off, and nothing happens";
    typeOver(combo("cmbICAO"), "egss");
    key(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return focus() == "List1"; }));
    EXPECT_TRUE(seen().starts_with("[2] .|")) << seen();
    combo("cmbICAO").setFocus();
    const Expectation dialog = expectDialog("frmFind", [](QDialog& find) { click(find, "cmdExit"); });
    key(Qt::Key_F, Qt::ControlModifier);
}

TEST_F(StatusAndActions, TheManualOpensOrTheLineTellsWhyNot) {
    useHost(&recorder);
    key(Qt::Key_F1);
    EXPECT_TRUE(label("lblHappened").starts_with("The manual is missing"));
    writeFile("Vantor-manual\\manual.html", "");
    key(Qt::Key_F1);
    EXPECT_EQ(recorder.openedFiles, std::vector<std::string>{path("Vantor-manual\\manual.html")});
    recorder.opensFiles = false;
    key(Qt::Key_F1);
    EXPECT_EQ(label("lblHappened"), "No program opens the manual, " + path("Vantor-manual\\manual.html"));
}

TEST_F(StatusAndActions, FlightPlansAreDroppedAndPickedAmongTheLatest) {
    writeFile("other\\Flightplans.txt", schedule("AC#1,GZZZ", "LFPG", "EGLL"));
    writeFile("picture.png", "");
    const auto drop = [this](const char* file) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(toQtPath(path(file)))});
        auto& box = *combo("cmbAC").lineEdit(); // which would take a text
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QDropEvent dropped(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&box, &enter);
        QCoreApplication::sendEvent(&box, &dropped);
        QCoreApplication::processEvents();
    };
    const std::string loses = "You will lose any changes if you do this. Are you sure?";
    drop("other\\Flightplans.txt");
    drop("picture.png");
    EXPECT_EQ(label("lblHappened"), "Loaded " + path("other\\Flightplans.txt"));
    form().workspace().unsavedchanges = true;
    {
        const Expectation boxes = answerBoxes({{loses, QMessageBox::No}});
        drop("Flightplans.txt");
    }
    EXPECT_EQ(schedulecount, 1);
    const std::string front = "1  Flightplans.txt   " + path("other\\") + "|";
    const std::string second = "2  Flightplans.txt   " + path("");
    const Expectation boxes = answerBoxes({{loses, QMessageBox::Yes}});
    EXPECT_EQ(menuOf("cmdLoadFlightPlan", toQString("&" + second)), front + second + "|");
    EXPECT_EQ(schedulecount, 4);
    std::filesystem::remove_all(folder() / "other");
    EXPECT_EQ(menuOf("cmdLoadFlightPlan", {}),
              "1  Flightplans.txt   " + path("") + "|[2  Flightplans.txt   " + path("other\\") + "]|");
}

TEST_F(StatusAndActions, ContextMenusOfferWhatTheButtonsDo) {
    press("cmdListall");
    EXPECT_EQ(menuOf("List1", QStringLiteral("Select all")),
              "[Undo]|[Redo]|Add|[Edit]|[Copy]|[Delete]|[Swap Aircraft]|Flights of AC#1|Flights of AC#1 in the "
              "explorer|Copy text|Select all|");
    EXPECT_EQ(seen(), "[1] (2) (3) (4) (.)|[1001] 1002|--++++") << "a click as the user's";
    act("List1:1");
    EXPECT_EQ(menuOf("List2", QStringLiteral("Flights of EGSS")),
              "[Undo]|[Redo]|Edit|Delete|[Print]|Flights of LFPG|Map of LFPG|Flights of LFPG in the explorer|Flights "
              "of EGSS|Map of EGSS|Flights of EGSS in the explorer|"
              "Copy text|Select all|");
    EXPECT_EQ(seen(), "[2] .||----++");
    act("List1:0");
    EXPECT_EQ(menuOf("List1", QStringLiteral("&Delete")), "[Undo]|[Redo]|Add|Edit|Copy|Delete|Swap Aircraft|Flights of "
                                                          "AC#2|Flights of AC#2 in the explorer|Copy text|Select all|");
    EXPECT_TRUE(
        menuOf("List3", QStringLiteral("Undo Delete 1 schedule")).starts_with("Undo Delete 1 schedule|[Redo]|"));
    EXPECT_FALSE(schedules.peek(2).deleted);
    (void)menuOf("cmbAC", QStringLiteral("Fli&ghts"));
    EXPECT_EQ(combo("cmbAC").text() + seen(), "AC#2 - \"Gone\"[2] 3 .||----++") << "of that row, and not of the box";
    EXPECT_FALSE(combo("cmbAC").view()->isVisible());
    changeSchedule(2, [](ScheduleRec& schedule) { // as the editor leaves it when leg 1 is deleted there
        schedule.legs.erase(1);
        schedule.legcount = 1;
    });
    press("cmdListall");
    act("List1:1");
    EXPECT_EQ(menuOf("List2", QStringLiteral("-")), "[Undo]|[Redo]|Edit|Delete|[Print]|Copy text|Select all|")
        << "the row leads to no leg";
    press("cmdDeleteSchedule");
    EXPECT_NE(menuOf("List1", QStringLiteral("-")).find("|Flights of AC#2|"), std::string::npos);
    (void)menuOf("List1", QStringLiteral("Flights of AC#2 in the explorer"));
    QWidget* const explorer = QApplication::activeWindow();
    EXPECT_EQ(fromQString(control<QLineEdit>(*explorer, "txtFilter").text()), "ac:AC#2");
    explorer->close();
    press("cmdExplorer");
    EXPECT_TRUE(explorer->isVisible());
}

} // namespace
} // namespace vantor::test
