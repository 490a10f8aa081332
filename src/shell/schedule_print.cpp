#include "shell/schedule_print.h"

#include "foundation/error.h"
#include "foundation/text.h"
#include "platform/code_page.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>

#include <string_view>

namespace vantor {

namespace {

constexpr int headingPoints = 14;
constexpr int rowPoints = 12;
// The rows of the gate table begin with a tab.
constexpr std::string_view tabStop = "        ";

Error printerError() {
    return {482, "Printer error"};
}

// The face that the pages are set in, or one of the same widths where it is missing.
QFont pageFont(int points, bool bold) {
    QFont font;
    font.setFamilies({QStringLiteral("Times New Roman"), QStringLiteral("Liberation Serif"), QStringLiteral("Tinos"),
                      QStringLiteral("Nimbus Roman")});
    font.setStyleHint(QFont::Serif);
    font.setPointSize(points);
    font.setBold(bold);
    return font;
}

// Sets line below line and goes on to a new page when one is full.
class Page {
  public:
    explicit Page(QPrinter& printer) : m_printer(printer) {
        // Without a printer the pages would go to a file without a name.
        const bool nowhere = printer.outputFormat() == QPrinter::PdfFormat && printer.outputFileName().isEmpty();
        if (!printer.isValid() || nowhere || !m_painter.begin(&printer)) {
            throw printerError();
        }
        m_size = m_painter.viewport().size();
    }

    void setFont(const QFont& font) {
        m_painter.setFont(font);
        m_lineHeight = QFontMetricsF(font, &m_printer).lineSpacing();
    }

    void line(std::string_view text) {
        if (m_top > 0 && m_top + m_lineHeight > m_size.height()) {
            if (!m_printer.newPage()) {
                throw printerError();
            }
            m_top = 0;
        }
        draw(toQString(replaceAll(text, "\t", tabStop)));
        m_top += m_lineHeight;
    }

    void end() {
        const bool ended = m_painter.end();
        const QPrinter::PrinterState state = m_printer.printerState();
        if (!ended || state == QPrinter::Error || state == QPrinter::Aborted) {
            throw printerError();
        }
    }

  private:
    void draw(const QString& text) {
        constexpr int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine;
        const QRectF place(0, m_top, m_size.width(), m_lineHeight);
        const double width = m_painter.boundingRect(place, flags | Qt::TextDontClip, text).width();
        m_painter.save();
        if (width > m_size.width()) {
            m_painter.scale(m_size.width() / width, 1);
        }
        m_painter.drawText(place, flags | Qt::TextDontClip, text);
        m_painter.restore();
    }

    QPrinter& m_printer;
    QPainter m_painter;
    QSizeF m_size;
    double m_top = 0;
    double m_lineHeight = 0;
};

} // namespace

void printSchedule(QPrinter& printer, const SchedulePrintout& printout) {
    printer.setPageOrientation(QPageLayout::Portrait);
    printer.setDocName(toQString(printout.heading));
    Page page(printer);
    page.setFont(pageFont(headingPoints, true));
    page.line(printout.heading);
    page.line("");
    page.setFont(pageFont(rowPoints, false));
    for (const std::string& row : printout.rows) {
        page.line(row);
    }
    page.end();
}

} // namespace vantor
