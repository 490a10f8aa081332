// Platform: the Qt side of the program.
// The choice of a printer, which holds for the rest of the run.
#include "platform/printer_choice.h"

#include "foundation/trap.h"
#include "platform/code_page.h"

#include <QCoreApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <memory>
#include <optional>
#include <string>

namespace vantor {

namespace {

std::unique_ptr<QPrinter>& printer() {
    static std::unique_ptr<QPrinter> kept;
    return kept;
}

void dropPrinter() {
    printer().reset(); // a printer must not outlive the application that knows its driver
}

} // namespace

void storedefaultprinter() noexcept {
    static std::optional<std::string> defaultPrinter;
    if (!defaultPrinter) {
        defaultPrinter = fromQString(QPrinterInfo::defaultPrinterName());
    }
}

void chooseprinter(QWidget* owner, std::string_view title) noexcept {
    const StandardTrap trap{"sub chooseprinter", "mSHAREDPrinter"};
    storedefaultprinter();
    QPrintDialog dialog(&currentPrinter(), owner);
    dialog.setObjectName(QStringLiteral("printDialog"));
    dialog.setWindowTitle(toQString(title));
    trap(&QPrintDialog::exec, &dialog);
}

QPrinter& currentPrinter() {
    if (!printer()) {
        printer() = std::make_unique<QPrinter>(QPrinter::HighResolution);
        qAddPostRoutine(dropPrinter);
    }
    return *printer();
}

} // namespace vantor
