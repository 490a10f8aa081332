// Tests of the proxy dialog.
#include "foundation/settings_store.h"
#include "platform/code_page.h"
#include "support/fixture.h"
#include "support/form_driver.h"
#include "update/fSHAREDProxy.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>

namespace vantor::test {
namespace {

const std::vector<std::string> fields = {"txtServer", "txtPort", "txtUser", "txtPassword", "txtPassword2"};

class ProxyForm : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        writeFile("Vantor2.ini", "PROXYPORT,3128\r\nPROXYPWD,s\xE9same\r\nPROXYSERVER,proxy.invalid\r\n"
                                 "PROXYTYPE, 2 \r\nPROXYUSER,me\r\n");
        LoadSettings(path("Vantor2.ini"));
    }
    /// All that is stored, with bars between.
    static std::string stored() {
        std::string all = std::to_string(sget("ProxyType", -1).int32());
        for (const char* const key : {"ProxyServer", "ProxyPort", "ProxyUser", "ProxyPwd"}) {
            all += "|" + sget(key, "none").text();
        }
        return all;
    }
};

TEST_F(ProxyForm, ShowsWhatIsStoredAndMasksThePassword) {
    fSHAREDProxy form;
    form.show();
    EXPECT_TRUE(control<QRadioButton>(form, "optNamed").isChecked());
    std::string shown;
    for (const std::string& name : fields) {
        const auto& box = control<QLineEdit>(form, name);
        shown += fromQString(box.text()) + "|";
        EXPECT_EQ(box.echoMode() == QLineEdit::Password, name.starts_with("txtPassword")) << name;
    }
    EXPECT_EQ(shown, "proxy.invalid|3128|me|s\xE9same|s\xE9same|");
    for (const std::string option : {"optNoProxy", "optDefault", "optNamed"}) {
        click(form, option);
        EXPECT_EQ(control<QGroupBox>(form, "Frame1").isEnabled(), option == "optNamed");
    }
    sset("ProxyType", "x");
    EXPECT_TRUE(control<QRadioButton>(fSHAREDProxy(), "optNoProxy").isChecked());
}

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
        click(form, "cmdHelp"); // there is none
        click(form, "cmdOK");
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(stored(), type + "|" + option + ",txtServ||" + option + ",txtUser|" + option + ",txtPass");
    }
}

TEST_F(ProxyForm, DifferentPasswordsStayAndCancelStoresNothing) {
    fSHAREDProxy form;
    form.show();
    typeOver(control<QLineEdit>(form, "txtServer"), "other.invalid");
    typeOver(control<QLineEdit>(form, "txtPassword2"), "typo");
    click(form, "cmdOK");
    EXPECT_EQ(recorder.messages, std::vector<std::string>{"Your passwords don't match.  Please retype them."});
    EXPECT_TRUE(form.isVisible());
    click(form, "cmdCancel");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(stored(), "2|proxy.invalid|3128|me|s\xE9same");
}

} // namespace
} // namespace vantor::test
