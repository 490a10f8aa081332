#include "shell/fSHAREDErrorRpt.h"

#include "foundation/disk.h"
#include "foundation/host.h"
#include "foundation/native_path.h"
#include "foundation/text.h"
#include "foundation/text_files.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "ui_fSHAREDErrorRpt.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QTextDocument>

namespace vantor {

namespace {

constexpr std::string_view moduleName = "fSHAREDErrorRpt";

std::string inProgramFolder(std::string_view name) {
    return programFolder() + "\\" + std::string(name);
}

// A box's text with the line ends of the program's texts. The raw text, since the plain one turns no-break spaces into
// blanks.
std::string textOf(const QPlainTextEdit* box) {
    QString text = box->document()->toRawText();
    for (const QChar end : {QChar(QChar::ParagraphSeparator), QChar(QChar::LineSeparator)}) {
        text.replace(end, QLatin1String("\r\n"));
    }
    return fromQString(text);
}

} // namespace

void showErrorReport(std::string_view text, std::string_view topic) {
    QWidget* const modal = QApplication::activeModalWidget();
    fSHAREDErrorRpt form(modal != nullptr ? modal : QApplication::activeWindow());
    form.ShowError(text, topic);
}

fSHAREDErrorRpt::fSHAREDErrorRpt(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::fSHAREDErrorRpt>()) {
    m_ui->setupUi(this);
    connect(m_ui->cmdEmail, &QPushButton::clicked, this, &fSHAREDErrorRpt::cmdEmail_Click);
    connect(m_ui->cmdViewReport, &QPushButton::clicked, this, &fSHAREDErrorRpt::cmdViewReport_Click);
    connect(m_ui->cmdViewLog, &QPushButton::clicked, this, &fSHAREDErrorRpt::cmdViewLog_Click);
    connect(m_ui->cmdShowComments, &QPushButton::clicked, this, &fSHAREDErrorRpt::cmdShowComments_Click);
    connect(m_ui->cmdHelp, &QPushButton::clicked, this, &fSHAREDErrorRpt::cmdHelp_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &fSHAREDErrorRpt::cmdExit_Click);
    connect(m_ui->txtUserMessage, &QPlainTextEdit::textChanged, this, [this] { m_commentsChanged = true; });
    m_ui->txtUserMessage->viewport()->installEventFilter(this);
    Form_Load();
}

fSHAREDErrorRpt::~fSHAREDErrorRpt() = default;

void fSHAREDErrorRpt::Form_Load() noexcept {
    // An ampersand of the folder's name is no mnemonic.
    m_ui->Frame2->setTitle(toQString(replaceAll(inProgramFolder("log.txt"), "&", "&&")));
    m_ui->txtLog->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont)); // the log has columns
    const QFontMetrics metrics = fontMetrics();
    m_ui->txtError->setFixedHeight(metrics.height() * 5);
    m_ui->txtUserMessage->setMinimumHeight(metrics.height() * 5);
    m_ui->txtLog->setMinimumHeight(metrics.height() * 10);
    m_ui->txtError->setMinimumWidth(metrics.averageCharWidth() * 80);
}

void fSHAREDErrorRpt::ShowError(std::string_view text, std::string_view topic) noexcept {
    const StandardTrap trap{"sub showerror", moduleName};
    m_topic = topic;
    m_ui->txtError->setPlainText(toQString(text));
    MakeClean();
    trap(&fSHAREDErrorRpt::showLog, this);
    trap(&fSHAREDErrorRpt::exec, this);
}

void fSHAREDErrorRpt::showLog() {
    std::string log = "No log file";
    if (FileExists(inProgramFolder("log.txt"))) {
        log.clear();
        LoadTextFile(inProgramFolder("log.txt"), log);
    }
    m_ui->txtLog->setPlainText(toQString(log));
}

bool fSHAREDErrorRpt::eventFilter(QObject* watched, QEvent* event) {
    // Quirk: a mere click into the box counts as a comment.
    if (watched == m_ui->txtUserMessage->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const bool left = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
        m_commentsChanged = m_commentsChanged || left;
    }
    return QDialog::eventFilter(watched, event);
}

ErrorReport fSHAREDErrorRpt::report() const {
    ErrorReport result{textOf(m_ui->txtError), std::nullopt, textOf(m_ui->txtLog)};
    if (m_commentsChanged) {
        result.comments = textOf(m_ui->txtUserMessage);
    }
    return result;
}

void fSHAREDErrorRpt::cmdEmail_Click() noexcept {
    const StandardTrap trap{"sub cmdemail_click", moduleName};
    trap(websitevisit, mailRequest(report()));
}

void fSHAREDErrorRpt::cmdViewReport_Click() noexcept {
    const StandardTrap trap{"sub cmdviewreport_click", moduleName};
    WriteTextFile(inProgramFolder("fulllog.txt"), reportPreview(report()));
    trap(&Host::viewTextFile, host(), inProgramFolder("fulllog.txt"));
}

void fSHAREDErrorRpt::cmdViewLog_Click() noexcept {
    m_ui->Frame2->show();
    m_ui->txtLog->setFocus();
    m_ui->cmdViewLog->hide();
}

void fSHAREDErrorRpt::cmdShowComments_Click() noexcept {
    m_ui->Frame3->show();
    m_ui->txtUserMessage->setFocus();
    m_ui->cmdShowComments->hide();
}

void fSHAREDErrorRpt::cmdHelp_Click() noexcept {
    // There is no help on a topic: the button does nothing.
}

void fSHAREDErrorRpt::cmdExit_Click() noexcept {
    close();
}

void fSHAREDErrorRpt::done(int result) {
    // Every way out comes by here: the button, Escape and the window's own control.
    const StandardTrap trap{"sub form_queryunload", moduleName};
    QDialog::done(result);
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
    m_closed = true;
}

} // namespace vantor
