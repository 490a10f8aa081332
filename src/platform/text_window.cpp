#include "platform/text_window.h"

#include "platform/code_page.h"
#include "ui_text_window.h"

#include <QClipboard>
#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>

namespace vantor {

namespace {

QString textOf(std::string_view path) {
    QFile file(toQtPath(path));
    if (!file.open(QIODevice::ReadOnly)) {
        return file.errorString();
    }
    return toQString(file.readAll().toStdString());
}

} // namespace

TextWindow::TextWindow(QWidget* owner, std::string_view file)
    : QDialog(owner), m_ui(std::make_unique<Ui::TextWindow>()) {
    m_ui->setupUi(this);
    const QString path = toQString(file);
    setWindowTitle(toQString(file.substr(file.rfind('\\') + 1)));
    m_ui->lblPath->setText(path);
    m_ui->txtText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_ui->txtText->setPlainText(textOf(file));
    connect(m_ui->cmdCopyAll, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(m_ui->txtText->toPlainText()); });
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::close);
    m_ui->txtText->setFocus();
}

TextWindow::~TextWindow() = default;

} // namespace vantor
