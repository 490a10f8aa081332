#include "update/fSHAREDUpdater.h"

#include "core/settings_keys.h"
#include "foundation/log.h"
#include "foundation/trap.h"
#include "locale/translation.h"
#include "platform/code_page.h"
#include "platform/colours.h"
#include "platform/picture_box.h"
#include "platform/qt_host.h"
#include "ui_fSHAREDUpdater.h"
#include "update/fSHAREDProxy.h"

namespace vantor {

namespace {
constexpr std::string_view moduleName = "fSharedUpdater";
} // namespace

fSHAREDUpdater::fSHAREDUpdater(QWidget* parent, std::unique_ptr<TransferControl> control)
    : QDialog(parent), m_ui(std::make_unique<Ui::fSHAREDUpdater>()), m_updater(*this, std::move(control)) {
    m_ui->setupUi(this);
    fitForm();
    connect(m_ui->cmdCheckAgain, &QPushButton::clicked, this, [this] { m_updater.checkAgain(); });
    connect(m_ui->cmdShowDetail, &QPushButton::clicked, this, [this] { m_updater.showDetails(); });
    connect(m_ui->cmdDownload, &QPushButton::clicked, this, [this] { m_updater.download(); });
    connect(m_ui->cmdDownloadInstall, &QPushButton::clicked, this, [this] { m_updater.downloadAndInstall(); });
    connect(m_ui->cmdProxy, &QPushButton::clicked, this, &fSHAREDUpdater::cmdProxy_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, [this] { m_updater.StopAll(); });
    // Stored at once as well as at the close, so that neither another check nor the program's end loses it.
    connect(m_ui->chkDisableAutoUpdate, &QCheckBox::clicked, this, [this] { m_updater.storeAutoCheck(); });
    connect(m_ui->picStatus, &PictureBox::resized, this, [this] { m_updater.redrawStatus(); });
}

fSHAREDUpdater::~fSHAREDUpdater() = default;

void fSHAREDUpdater::fitForm() {
    const QFontMetrics metrics = fontMetrics();
    m_ui->layoutForm->setSpacing(metrics.height() * 3 / 4);
    m_ui->layoutForm->setContentsMargins(QMargins(1, 1, 1, 1) * metrics.height());
    m_ui->picStatus->setFixedHeight(metrics.height() * 3); // the longest texts take two lines
    m_ui->picStatus->setMinimumWidth(metrics.averageCharWidth() * 100);
    m_ui->txtDetails->setMinimumHeight(metrics.height() * 10);
    for (QPushButton* const button : findChildren<QPushButton*>()) {
        button->setMinimumWidth(button->sizeHint().width() + metrics.averageCharWidth() * 3);
    }
}

void fSHAREDUpdater::Form_Load() noexcept {
    const StandardTrap trap{"sub form_load", moduleName};
    setWindowTitle(QStringLiteral("Vantor Updater"));
    setProgram("Vantor version " + AppVersion());
    setUpdate("", std::nullopt);
    setDetails("");
    m_ui->picStatus->useSystemColours();
    bool off = true; // also where the store holds no flag
    trap.set(off, setting<bool>, keys::disableAutoUpdateCheck);
    setDisableAutoUpdate(off);
}

void fSHAREDUpdater::load() {
    if (!m_loaded) {
        m_loaded = true;
        Form_Load();
    }
}

void fSHAREDUpdater::showForm() {
    if (!isVisible()) {
        setModal(false);
        show();
    }
    raise();
    activateWindow();
}

void fSHAREDUpdater::showModally() {
    // A window that is on the screen can't become modal.
    const bool shown = isVisible();
    const QRect place = geometry();
    hide();
    if (shown) {
        setGeometry(place);
    }
    exec();
}

void fSHAREDUpdater::unload() {
    m_loaded = false;
    QDialog::done(Rejected);
}

void fSHAREDUpdater::done(int /*result*/) {
    // Escape and the window's own control come by here, and are as good as cmdExit.
    m_updater.StopAll();
}

void fSHAREDUpdater::cmdProxy_Click() noexcept {
    const StandardTrap trap{"sub cmdproxy_click", moduleName};
    fSHAREDProxy form(this);
    translateform(form);
    trap(&QDialog::exec, &form);
}

void fSHAREDUpdater::setProgram(std::string_view text) {
    m_ui->lblProgram->setText(toQString(text));
}

void fSHAREDUpdater::setUpdate(std::string_view text, std::optional<Colour> colour) {
    QPalette colours = palette();
    if (colour) {
        const QColor told(*colour & 0xFF, (*colour >> 8) & 0xFF, (*colour >> 16) & 0xFF);
        colours.setColor(QPalette::WindowText, legible(told, colours.color(QPalette::Window)));
    }
    m_ui->lblUpdate->setPalette(colours);
    m_ui->lblUpdate->setText(toQString(text));
}

void fSHAREDUpdater::setDetails(std::string_view text) {
    m_ui->txtDetails->setPlainText(boxText(text));
}

void fSHAREDUpdater::setDisableAutoUpdate(bool value) {
    m_ui->chkDisableAutoUpdate->setChecked(value);
}

bool fSHAREDUpdater::disableAutoUpdate() const {
    return m_ui->chkDisableAutoUpdate->isChecked();
}

void fSHAREDUpdater::enableCommands(bool enabled) {
    QWidget* const focused = focusWidget();
    for (QPushButton* const button :
         {m_ui->cmdCheckAgain, m_ui->cmdShowDetail, m_ui->cmdDownload, m_ui->cmdDownloadInstall}) {
        button->setEnabled(enabled);
    }
    if (!enabled) {
        m_pressed = focused;
        m_standIn = focusWidget();
    } else if (m_pressed && focused == m_standIn) { // the user took it nowhere else
        m_pressed->setFocus();
    }
}

Canvas& fSHAREDUpdater::picStatus() {
    return *m_ui->picStatus;
}

} // namespace vantor
