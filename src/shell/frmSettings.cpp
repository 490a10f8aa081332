#include "shell/frmSettings.h"

#include "core/settings_keys.h"
#include "core/tables.h"
#include "foundation/disk.h"
#include "foundation/host.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "platform/file_dialogs.h"
#include "shell/application_settings.h"
#include "shell/path_label.h"
#include "ui_frmSettings.h"

namespace vantor {

namespace {

constexpr std::string_view moduleName = "frmSettings";
/// Modes in the order of the indexed controls.
constexpr std::array<int, 2> modes = {2, 4};

std::string pathOf(const PathLabel& label) {
    return fromQString(label.text());
}

/// Puts the folder that the user chooses into the label; a cancel leaves it.
void pickFolder(PathLabel& label) {
    const std::string path = askforfspath(pathOf(label));
    if (!path.empty()) {
        label.setPath(toQString(path));
    }
}

void pickFile(PathLabel& label, std::string_view title) {
    const std::string file = askforFilename(title, pathOf(label));
    if (!file.empty()) {
        label.setPath(toQString(file));
    }
}

/// Room for a sign and two or three digits.
void narrow(QLineEdit& box) {
    const QFontMetrics metrics = box.fontMetrics();
    const int rest = box.sizeHint().width() - metrics.horizontalAdvance(QString(17, QLatin1Char('x')));
    box.setFixedWidth(metrics.horizontalAdvance(QLatin1String("-0000")) + std::max(rest, metrics.averageCharWidth()));
}

} // namespace

std::string askforfspath(std::string_view start) noexcept {
    const StandardTrap trap{"function askforfspath$", "modAskForFSPath"};
    for (;;) {
        std::string path;
        const bool asked = trap([&] {
            cSharedFileSel selection;
            selection.DefaultPath(start);
            selection.SetCaption("Please locate the Flight Sim folder");
            selection.GetPath();
            path = selection.Cancelled() ? std::string() : selection.Path() + "\\";
        });
        if (!asked || path.empty()) {
            return {};
        }
        if (FolderExists(path + "Aircraft")) {
            return path;
        }
        trap(&Host::message, host(), "I can't see an Aircraft folder in that location.");
    }
}

frmSettings::frmSettings(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmSettings>()) {
    m_ui->setupUi(this);
    m_ui->layoutForm->setSpacing(fontMetrics().height() * 3 / 4);
    narrow(*m_ui->txtGMTHour);
    narrow(*m_ui->txtGMTMin);
    m_aircraft = {
        keys::aircraftTxt, {m_ui->lblAircraft0, m_ui->lblAircraft1}, {m_ui->cmdPickAircraft0, m_ui->cmdPickAircraft1}};
    m_airports = {
        keys::airportsTxt, {m_ui->lblAirports0, m_ui->lblAirports1}, {m_ui->cmdPickAirports0, m_ui->cmdPickAirports1}};
    m_flightplans = {keys::flightplansTxt,
                     {m_ui->lblFlightplans0, m_ui->lblFlightplans1},
                     {m_ui->cmdPickFlightplans0, m_ui->cmdPickFlightplans1}};
    connectControls();
    Form_Load();
}

frmSettings::~frmSettings() = default;

void frmSettings::connectControls() {
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmSettings::cmdOK_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmSettings::cmdCancel_Click);
    connect(m_ui->cmdGetFS2k2Path, &QPushButton::clicked, this, &frmSettings::cmdGetFS2k2Path_Click);
    connect(m_ui->cmdGetFS2k4Path, &QPushButton::clicked, this, &frmSettings::cmdGetFS2k4Path_Click);
    for (std::size_t index = 0; index < modes.size(); ++index) {
        connect(m_aircraft.buttons.at(index), &QPushButton::clicked, this,
                [this, index] { cmdPickAircraft_Click(index); });
        connect(m_airports.buttons.at(index), &QPushButton::clicked, this,
                [this, index] { cmdPickAirports_Click(index); });
        connect(m_flightplans.buttons.at(index), &QPushButton::clicked, this,
                [this, index] { cmdPickFlightplans_Click(index); });
    }
}

void frmSettings::Form_Load() {
    m_ui->lblFS2k2Path->setPath(toQString(sget(keys::fs2k2Path, fs2k2path).text()));
    m_ui->lblFS2k4Path->setPath(toQString(sget(keys::fs2k4Path, fs2k4path).text()));
    const GmtBoxes boxes = gmtBoxes(gmtoffset);
    m_ui->txtGMTHour->setText(toQString(boxes.hour));
    m_ui->txtGMTMin->setText(toQString(boxes.minute));
    for (std::size_t index = 0; index < modes.size(); ++index) {
        const TrafficFiles files = defaultFiles(modes.at(index));
        const auto show = [&](const FileRow& row, const std::string& file) {
            row.labels.at(index)->setPath(toQString(sget(keys::forMode(row.key, modes.at(index)), file).text()));
        };
        show(m_aircraft, files.aircraft);
        show(m_airports, files.airports);
        show(m_flightplans, files.flightplans);
    }
}

void frmSettings::cmdOK_Click() {
    const StandardTrap trap{"sub cmdok_click", moduleName};
    bool usable = true;
    trap.set(usable, &frmSettings::checkGmtBoxes, this);
    if (!usable) {
        return;
    }
    const GmtBoxes boxes{fromQString(m_ui->txtGMTHour->text()), fromQString(m_ui->txtGMTMin->text())};
    trap.set(gmtoffset, gmtOffsetOf, boxes);
    storeControls();
    savesettings(settingsFile());
    readsettings();
    accept();
}

bool frmSettings::checkGmtBoxes() {
    GmtBoxes boxes{fromQString(m_ui->txtGMTHour->text()), fromQString(m_ui->txtGMTMin->text())};
    completeGmtBoxes(boxes);
    m_ui->txtGMTHour->setText(toQString(boxes.hour));
    m_ui->txtGMTMin->setText(toQString(boxes.minute));
    const std::optional<GmtFault> fault = gmtFault(boxes);
    if (!fault) {
        return true;
    }
    host().message(fault->message);
    QLineEdit* box = fault->inMinutes ? m_ui->txtGMTMin : m_ui->txtGMTHour;
    box->setFocus();
    box->selectAll();
    return false;
}

void frmSettings::storeControls() {
    sset(keys::gmtOffset, gmtoffset);
    sset(keys::fs2k2Path, pathOf(*m_ui->lblFS2k2Path));
    sset(keys::fs2k4Path, pathOf(*m_ui->lblFS2k4Path));
    for (std::size_t index = 0; index < modes.size(); ++index) {
        for (const FileRow* row : {&m_aircraft, &m_airports, &m_flightplans}) {
            sset(keys::forMode(row->key, modes.at(index)), pathOf(*row->labels.at(index)));
        }
    }
}

void frmSettings::cmdCancel_Click() {
    reject();
}

void frmSettings::cmdGetFS2k2Path_Click() {
    const StandardTrap trap{"sub cmdgetfs2k2path_click", moduleName};
    trap(pickFolder, *m_ui->lblFS2k2Path);
}

void frmSettings::cmdGetFS2k4Path_Click() {
    const StandardTrap trap{"sub cmdgetfs2k4path_click", moduleName};
    trap(pickFolder, *m_ui->lblFS2k4Path);
}

void frmSettings::cmdPickAircraft_Click(std::size_t index) {
    const StandardTrap trap{"sub cmdpickaircraft_click", moduleName};
    trap(pickFile, *m_aircraft.labels.at(index), "Select your aircraft.txt file");
}

void frmSettings::cmdPickAirports_Click(std::size_t index) {
    const StandardTrap trap{"sub cmdpickairports_click", moduleName};
    trap(pickFile, *m_airports.labels.at(index), "Select your airports.txt file");
}

void frmSettings::cmdPickFlightplans_Click(std::size_t index) {
    const StandardTrap trap{"sub cmdpickflightplans_click", moduleName};
    trap(pickFile, *m_flightplans.labels.at(index), "Select your flightplans.txt file");
}

} // namespace vantor
