// The updater's form, over a scripted transfer, and its proxy dialog.
#include "support/form_driver.h"
#include "update/fSHAREDProxy.h"
#include "update/fSHAREDUpdater.h"
#include "update/scripted_control.h"

namespace vantor::test {
namespace {

const std::string setup = "http://u.invalid/setup.exe";
const UpdateSource source{"http://u.invalid/current", "http://u.invalid/details", "VantorUpd.exe"};

class UpdaterFormTest : public Fixture {
  protected:
    void SetUp() override {
        useHost(&m_host);
        LoadSettings(path("Vantor2.ini"));
        script.replies[source.currenturl] = {"2.0.0\r\n" + setup};
        script.replies[source.detailsurl] = {"New in 2.0.0:\n- maps"};
        script.replies[setup] = {std::string(30000, 'x')};
        form = std::make_unique<fSHAREDUpdater>(nullptr, std::make_unique<ScriptedControl>(script));
    }
    void TearDown() override { form.reset(); }

    [[nodiscard]] std::string label(std::string_view name) const {
        return fromQString(control<QLabel>(*form, name).text());
    }
    [[nodiscard]] QColor updateColour() const {
        return control<QLabel>(*form, "lblUpdate").palette().color(QPalette::WindowText);
    }

    TransferScript script;
    std::unique_ptr<fSHAREDUpdater> form;

  private:
    QtHost m_host;
};

TEST_F(UpdaterFormTest, ShowsTheCheckAndItsDetails) {
    form->updater().ShowandCheck(source);
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(form->isModal());
    EXPECT_EQ(fromQString(form->windowTitle()), "Vantor Updater");
    EXPECT_EQ(label("lblProgram"), "Vantor version 1.0.0");
    EXPECT_EQ(label("lblUpdate"), "Version 2.0.0 is available!");
    EXPECT_EQ(updateColour(), QColor(0, 128, 0));
    click(*form, "cmdShowDetail");
    EXPECT_EQ(control<QPlainTextEdit>(*form, "txtDetails").toPlainText(), QStringLiteral("New in 2.0.0:\n- maps"));

    script.replies[source.currenturl] = {"<html>"};
    auto& again = control<QPushButton>(*form, "cmdCheckAgain");
    again.setFocus();
    pressKey(again, Qt::Key_Space);
    EXPECT_EQ(form->focusWidget(), &again) << "ready for the next one";
    EXPECT_EQ(label("lblUpdate"), "Could not retrieve update status");
    EXPECT_EQ(updateColour(), QColor(192, 0, 0));
    pressKey(*form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    // As good as new when it comes back.
    script.replies[source.currenturl] = {"1.0.0\n"};
    const Expectation dialog = expectDialog("fSHAREDUpdater", [this](QDialog& shown) {
        EXPECT_TRUE(shown.isModal());
        EXPECT_EQ(label("lblUpdate"), "Could not read update status from file");
        EXPECT_EQ(updateColour(), form->palette().color(QPalette::WindowText));
        EXPECT_TRUE(control<QPlainTextEdit>(*form, "txtDetails").toPlainText().isEmpty());
        click(shown, "cmdExit");
    });
    form->updater().ShowandCheck(source);
}

TEST_F(UpdaterFormTest, TheBoxIsStoredByAClickAndKeptByACheck) {
    form->updater().ShowandCheck(source);
    auto& box = control<QCheckBox>(*form, "chkDisableAutoUpdate");
    EXPECT_TRUE(box.isChecked()) << "off until the user allows it";
    click(box);
    EXPECT_FALSE(sget("DisableAutoUpdateCheck", true).flag());
    click(*form, "cmdCheckAgain");
    EXPECT_FALSE(box.isChecked());
}

TEST_F(UpdaterFormTest, ADownloadGoesOnUnderTheProxyDialog) {
    form->updater().ShowandCheck(source);
    script.onRequest = [this] {
        script.onRequest = {};
        QTimer::singleShot(0, form.get(), [this] { click(*form, "cmdProxy"); });
    };
    const Expectation dialog = expectDialog("fSHAREDProxy", [this](QDialog& shown) {
        EXPECT_TRUE(waitFor([this] { return exists("VantorUpd.exe"); }));
        click(shown, "optDefault");
        click(shown, "cmdOK");
    });
    click(*form, "cmdDownload");
    EXPECT_EQ(sget("ProxyType", std::int16_t{1}).int16(), 0);
}

const std::vector<std::string> fields = {"txtServer", "txtPort", "txtUser", "txtPassword", "txtPassword2"};

class ProxyForm : public Fixture {
  protected:
    void SetUp() override {
        writeFile("Vantor2.ini", "PROXYPORT,3128\r\nPROXYPWD,s\xE9same\r\nPROXYSERVER,proxy.invalid\r\n"
                                 "PROXYTYPE, 2 \r\nPROXYUSER,me\r\n");
        LoadSettings(path("Vantor2.ini"));
    }
    /// All that is stored, with bars between.
    static std::string stored() {
        std::string all = std::to_string(sget("ProxyType", -1).int16());
        for (const char* const key : {"ProxyServer", "ProxyPort", "ProxyUser", "ProxyPwd"}) {
            all += "|" + sget(key, "none").text();
        }
        return all;
    }
};

TEST_F(ProxyForm, OkStoresTheFieldsAndTheOption) {
    const std::vector<std::pair<std::string, std::string>> types = {
        {"optDefault", "0"}, {"optNoProxy", "1"}, {"optNamed", "2"}};
    for (const auto& [option, type] : types) {
        fSHAREDProxy form;
        form.show();
        click(form, "optNamed");
        for (const std::string& name : fields) {
            typeOver(control<QLineEdit>(form, name), name == "txtPort" ? "" : option + "," + name.substr(0, 7));
        }
        click(form, option);
        EXPECT_EQ(control<QGroupBox>(form, "Frame1").isEnabled(), type == "2");
        click(form, "cmdOK");
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(stored(), type + "|" + option + ",txtServ||" + option + ",txtUser|" + option + ",txtPass");
    }
}

TEST_F(ProxyForm, DifferentPasswordsStayAndCancelStoresNothing) {
    fSHAREDProxy form;
    form.show();
    EXPECT_TRUE(control<QRadioButton>(form, "optNamed").isChecked());
    std::string shown;
    for (const std::string& name : fields) {
        shown += fromQString(control<QLineEdit>(form, name).text()) + "|";
    }
    EXPECT_EQ(shown, "proxy.invalid|3128|me|s\xE9same|s\xE9same|");
    typeOver(control<QLineEdit>(form, "txtServer"), "other.invalid");
    typeOver(control<QLineEdit>(form, "txtPassword2"), "typo");
    click(form, "cmdOK");
    EXPECT_EQ(recorder.messages, std::vector<std::string>{"Your passwords don't match.  Please retype them."});
    EXPECT_EQ(form.focusWidget(), &control<QWidget>(form, "txtPassword"));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(control<QLineEdit>(form, "txtPassword").echoMode(), QLineEdit::Password);
    click(form, "cmdCancel");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(stored(), "2|proxy.invalid|3128|me|s\xE9same");
}

} // namespace
} // namespace vantor::test
