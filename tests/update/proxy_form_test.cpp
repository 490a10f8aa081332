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

class ProxyForm : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        writeFile("Vantor2.ini", "PROXYPORT,3128\r\nPROXYPWD,s\xE9same\r\nPROXYSERVER,proxy.invalid\r\n"
                                 "PROXYTYPE, 2 \r\nPROXYUSER,me\r\n");
        LoadSettings(path("Vantor2.ini"));
    }
    static std::string stored(std::string_view key) { return sget(key, "none").text(); }
};

TEST_F(ProxyForm, ShowsWhatIsStoredAndMasksThePassword) {
    fSHAREDProxy form;
    form.show();
    EXPECT_TRUE(control<QRadioButton>(form, "optNamed").isChecked());
    const std::vector<std::pair<std::string, std::string>> boxes = {{"txtServer", "proxy.invalid"},
                                                                    {"txtPort", "3128"},
                                                                    {"txtUser", "me"},
                                                                    {"txtPassword", "s\xE9same"},
                                                                    {"txtPassword2", "s\xE9same"}};
    for (const auto& [name, text] : boxes) {
        const auto& box = control<QLineEdit>(form, name);
        EXPECT_EQ(fromQString(box.text()), text);
        EXPECT_EQ(box.echoMode() == QLineEdit::Password, name.starts_with("txtPassword")) << name;
    }
    for (const std::string option : {"optNoProxy", "optDefault", "optNamed"}) {
        click(form, option);
        EXPECT_EQ(control<QGroupBox>(form, "Frame1").isEnabled(), option == "optNamed");
    }
    sset("ProxyType", "x");
    const fSHAREDProxy other;
    EXPECT_TRUE(control<QRadioButton>(other, "optNoProxy").isChecked());
}

TEST_F(ProxyForm, OkStoresTheFieldsAndTheOption) {
    const std::vector<std::pair<std::string, std::string>> types = {
        {"optDefault", "0"}, {"optNoProxy", "1"}, {"optNamed", "2"}};
    for (const auto& [option, type] : types) {
        fSHAREDProxy form;
        form.show();
        click(form, "optNamed");
        for (const char* const name : {"txtServer", "txtPort", "txtUser", "txtPassword", "txtPassword2"}) {
            typeOver(control<QLineEdit>(form, name), option + ", " + std::string(name, 7));
        }
        typeOver(control<QLineEdit>(form, "txtPort"), "");
        click(form, option);
        click(form, "cmdHelp"); // there is none
        click(form, "cmdOK");
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(stored("ProxyType"), type);
        EXPECT_EQ(stored("ProxyServer"), option + ", txtServ");
        EXPECT_EQ(stored("ProxyPort"), "");
        EXPECT_EQ(stored("ProxyUser"), option + ", txtUser");
        EXPECT_EQ(stored("ProxyPwd"), option + ", txtPass");
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
    EXPECT_EQ(stored("ProxyServer"), "proxy.invalid");
    EXPECT_EQ(stored("ProxyPwd"), "s\xE9same");
}

} // namespace
} // namespace vantor::test
