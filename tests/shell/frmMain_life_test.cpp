// Tests of the main window's life: its start, the switch of the mode, its end.
#include "core/tables.h"
#include "foundation/settings_store.h"
#include "platform/code_page.h"
#include "shell/frmMain.h"
#include "support/fixture.h"
#include "support/form_driver.h"

#include <QApplication>
#include <QGroupBox>
#include <QRadioButton>
#include <QTimer>

#include <memory>

namespace vantor {
namespace {

using test::click;
using test::control;

constexpr std::string_view chooseMode =
    "Select FS2002 or FS2004 mode, then set up the file locations in the settings screen.";
constexpr std::string_view loseChanges = "If you exit now you will lose your changes.  Are you sure?";

class FrmMainLife : public test::Fixture {
  protected:
    void TearDown() override {
        form.reset();
        // The end of the process was asked for without an event loop to hear it: the next loop must not.
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QApplication::exec();
        Fixture::TearDown();
    }

    void start() {
        form = std::make_unique<frmMain>();
        form->formLoad();
        if (!form->ended()) {
            form->show();
        }
    }

    [[nodiscard]] bool chosen(std::string_view option) const {
        return control<QRadioButton>(*form, option).isChecked();
    }
    [[nodiscard]] std::string missingCaption() const {
        return fromQString(control<QGroupBox>(*form, "FrameFSAC").title());
    }

    std::unique_ptr<frmMain> form;
};

TEST_F(FrmMainLife, AFirstRunAsksForAModeOnce) {
    start();
    EXPECT_EQ(recorder.messages, std::vector<std::string>{std::string(chooseMode)});
    EXPECT_TRUE(chosen("optFS2k2"));
    EXPECT_EQ(missingCaption(), "AI Aircraft missing from FS2002");
    EXPECT_FALSE(exists("Vantor2.ini"));
    click(*form, "cmdExit");
    EXPECT_TRUE(form->ended());
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(readFile("Vantor2.ini"), "FSMODE, 2 \r\n");

    recorder.messages.clear();
    start();
    EXPECT_TRUE(recorder.messages.empty()) << "the default stands in the file by now";
}

TEST_F(FrmMainLife, AModeThatIsNoNumberGivesTheDefault) {
    writeFile("Vantor2.ini", "FSMODE,two\r\n");
    start();
    EXPECT_EQ(recorder.messages, std::vector<std::string>{std::string(chooseMode)});
    EXPECT_EQ(fsmode, 2);
    EXPECT_EQ(missingCaption(), "AI Aircraft missing from FS2002");
}

TEST_F(FrmMainLife, AnyOtherModeStartsAsFs2004AndKeepsItsNumber) {
    writeFile("Vantor2.ini", "FSMODE, 3 \r\n");
    start();
    EXPECT_TRUE(recorder.messages.empty());
    EXPECT_TRUE(chosen("optFS2k4"));
    EXPECT_EQ(plansuffix, "030528");
    EXPECT_EQ(sget("FSMode", std::int16_t{0}).int16(), 3);
}

TEST_F(FrmMainLife, AStartThatFailsTellsItAndEnds) {
    std::filesystem::create_directory(folder() / "log.txt");
    start();
    EXPECT_EQ(recorder.messages, std::vector<std::string>{"Error 75 - Path/File access error"});
    EXPECT_TRUE(form->ended());
    EXPECT_TRUE(recorder.questions.empty());
}

} // namespace
} // namespace vantor
