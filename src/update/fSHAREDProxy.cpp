#include "update/fSHAREDProxy.h"

#include "core/settings_keys.h"
#include "foundation/host.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "ui_fSHAREDProxy.h"

#include <cstdint>

namespace vantor {

namespace {

constexpr std::string_view moduleName = "fSHAREDProxy";

// Values of the key ProxyType.
constexpr std::int16_t systemProxy = 0;
constexpr std::int16_t noProxy = 1;
constexpr std::int16_t manualProxy = 2;

} // namespace

fSHAREDProxy::fSHAREDProxy(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::fSHAREDProxy>()) {
    m_ui->setupUi(this);
    for (const QRadioButton* const option : {m_ui->optNoProxy, m_ui->optDefault, m_ui->optNamed}) {
        connect(option, &QRadioButton::toggled, this, &fSHAREDProxy::enableFrame);
    }
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &fSHAREDProxy::cmdOK_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    // cmdHelp does nothing: there is no help on a topic.
    const QFontMetrics metrics = fontMetrics();
    m_ui->layoutForm->setSpacing(metrics.height() * 2 / 3);
    m_ui->layoutForm->setContentsMargins(QMargins(1, 1, 1, 1) * metrics.height());
    m_ui->txtServer->setMinimumWidth(metrics.averageCharWidth() * 40);
    Form_Load();
}

fSHAREDProxy::~fSHAREDProxy() = default;

void fSHAREDProxy::Form_Load() noexcept {
    const StandardTrap trap{"sub form_load", moduleName};
    const auto fill = [](QLineEdit* box, std::string_view key) { box->setText(toQString(sget(key, "").text())); };
    fill(m_ui->txtServer, keys::proxyServer);
    fill(m_ui->txtPort, keys::proxyPort);
    fill(m_ui->txtUser, keys::proxyUser);
    fill(m_ui->txtPassword, keys::proxyPwd);
    fill(m_ui->txtPassword2, keys::proxyPwd);
    std::int16_t type = noProxy; // also where the store holds something else
    trap.set(type, setting<std::int16_t>, keys::proxyType);
    QRadioButton* const option = type == systemProxy   ? m_ui->optDefault
                                 : type == manualProxy ? m_ui->optNamed
                                                       : m_ui->optNoProxy;
    option->setChecked(true);
    option->setFocus();
    enableFrame();
}

void fSHAREDProxy::enableFrame() noexcept {
    m_ui->Frame1->setEnabled(m_ui->optNamed->isChecked());
}

void fSHAREDProxy::cmdOK_Click() noexcept {
    const StandardTrap trap{"sub cmdok_click", moduleName};
    if (m_ui->txtPassword->text() != m_ui->txtPassword2->text()) {
        trap(&Host::message, host(), "Your passwords don't match.  Please retype them.");
        m_ui->txtPassword->setFocus();
        return;
    }
    const auto store = [](std::string_view key, const QLineEdit* box) { sset(key, fromQString(box->text())); };
    store(keys::proxyServer, m_ui->txtServer);
    store(keys::proxyPort, m_ui->txtPort);
    store(keys::proxyUser, m_ui->txtUser);
    store(keys::proxyPwd, m_ui->txtPassword); // as it was typed; transfers need it in plain
    sset(keys::proxyType, m_ui->optDefault->isChecked() ? systemProxy
                          : m_ui->optNamed->isChecked() ? manualProxy
                                                        : noProxy);
    accept();
}

} // namespace vantor
