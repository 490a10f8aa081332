// Views: a timetable printed to a PDF file and read back, and the buttons of the main window.
#include "core/combo_rows.h"
#include "platform/printer_choice.h"
#include "shell/schedule_print.h"
#include "shell/view_commands.h"
#include "support/main_window.h"

#include <QPrinter>

namespace vantor::test {
namespace {

class PrintingTest : public WindowFixture {
  protected:
#ifdef _WIN32
    void SetUp() override {
        WindowFixture::SetUp();
        GTEST_SKIP() << "nothing reads the pages back there, and the dialog is the system's own";
    }
#endif
    [[nodiscard]] QString pdf() const {
        return QString::fromStdString((folder() / "schedule.pdf").string());
    }

    void printToPdf(QPrinter& printer) const {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdf());
        printer.setPageSize(QPageSize(QPageSize::A4));
    }

    // What a tool that reads PDF files tells.
    static QString told(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished()) << "is " << program.toStdString() << " installed?";
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    // An edge of a word, in points, as a listing of all words' bounds tells it.
    static double edgeOf(const QString& bounds, const char* word, const char* edge) {
        const auto at = bounds.indexOf(QLatin1String(word));
        EXPECT_GE(at, 0) << word;
        const QString name = QLatin1String(edge) + QStringLiteral("=\"");
        const auto from = bounds.lastIndexOf(name, at) + name.size();
        return bounds.mid(from, bounds.indexOf(QLatin1Char('"'), from) - from).toDouble();
    }

    // The lines of each page.
    [[nodiscard]] std::vector<QStringList> pages() const {
        std::vector<QStringList> result;
        QStringList texts = told(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf(), QStringLiteral("-")})
                                .split(QLatin1Char('\f'));
        texts.removeLast(); // each page ends in a form feed
        for (const QString& text : texts) {
            QStringList lines = text.split(QLatin1Char('\n'));
            std::ranges::for_each(lines, [](QString& line) { line = line.trimmed(); });
            lines.removeAll(QString());
            result.push_back(lines);
        }
        return result;
    }
};

TEST_F(PrintingTest, ALongTimetableRunsOverAsManyPagesAsItNeeds) {
    SchedulePrintout printout{"Schedule for Perth, Western Australia", {}};
    QStringList expected{QStringLiteral("Schedule for Perth, Western Australia")};
    for (int i = 1; i <= 200; ++i) {
        printout.rows.push_back("Flight " + std::to_string(i) + " to Pearce");
        expected.append(toQString(printout.rows.back()));
    }
    QPrinter printer(QPrinter::HighResolution);
    printToPdf(printer);
    printer.setPageOrientation(QPageLayout::Landscape); // taken back: it prints upright
    printSchedule(printer, printout);
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Portrait);

    const std::vector<QStringList> printed = pages();
    // A page of 297 mm takes about 59 rows of 12 points.
    ASSERT_EQ(printed.size(), 4U);
    EXPECT_EQ(printed[0] + printed[1] + printed[2] + printed[3], expected);
    EXPECT_EQ(printed[1].size(), printed[2].size());
    EXPECT_NEAR(static_cast<double>(printed[1].size()), 58, 3);
}

TEST_F(PrintingTest, ARowWiderThanThePageIsSetNarrower) {
    QPrinter printer(QPrinter::HighResolution);
    printToPdf(printer);
    printSchedule(printer, {"Schedule of X", {"12:30 >D> " + std::string(150, 'W') + " end", "\tshort"}});
    const QString bounds = told(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf(), QStringLiteral("-")});
    EXPECT_LT(edgeOf(bounds, ">end<", "xMax"), 595.0); // points of an A4 page
    // The tab ahead of a row of the gate table is as wide as eight blanks.
    EXPECT_NEAR(edgeOf(bounds, ">short<", "xMin") - edgeOf(bounds, ">Schedule</word>", "xMin"), 24.0, 1.0);
}

TEST_F(PrintingTest, TheMainWindowPrintsWhatItsListShows) {
    writeFile("Vantor2.ini", "FSMODE, 2 \r\n");
    frmMain& window = open();
    window.formLoad();
    addAircraft("AC#1", "\"Boeing 737-400\"");
    addAirport("YPPH", "Perth, Western Australia");
    addAirport("YPEA", "Pearce");
    addLegs({makeLeg("YPEA", "YPPH", "11:00:00"), makeLeg("YPPH", "YPEA", "12:30:00")});
    const auto& print = control<QPushButton>(window, "cmdPrint");
    ListBox& rows = list("List2");
    EXPECT_FALSE(print.isEnabled());
    window.show();
    rows.setEnabled(false);
    combo("cmbICAO").setRows(airportRows());
    combo("cmbICAO").setCurrentRow(0);
    press("cmdTimeTable");
    EXPECT_EQ(window.lists().timetableicao(), "YPPH");
    EXPECT_TRUE(rows.isEnabled());
    ASSERT_EQ(rows.rowCount(), 3);
    EXPECT_EQ(rows.rowText(1), "12:30 >D> Flight 1 to Pearce  AC: \"Boeing 737-400\"");
    EXPECT_EQ(rows.rowText(2), "");

    press("cmdGates"); // leaves the timetable's airport as it was
    EXPECT_EQ(rows.rowCount(), 183);
    EXPECT_TRUE(print.isEnabled());
    window.views().displaytimetable("ypph - Perth");

    printToPdf(currentPrinter());
    press("cmdPrint", "printDialog", [](QDialog& asked) {
        EXPECT_EQ(asked.windowTitle(), QStringLiteral("Schedule"));
        asked.reject(); // a cancel does not stop the printing
    });
    EXPECT_EQ(pages(), (std::vector<QStringList>{{QStringLiteral("Schedule for Perth, Western Australia"),
                                                  QStringLiteral("11:00 <A< Flight 1 from Pearce AC: Boeing 737-400"),
                                                  QStringLiteral("12:30 >D> Flight 1 to Pearce AC: Boeing 737-400")}}));

    // A job that the printer refuses leaves its description in the log.
    currentPrinter().setOutputFileName(QStringLiteral("/no/such/folder/schedule.pdf"));
    press("cmdPrint", "printDialog", [](QDialog& asked) { asked.reject(); });
    EXPECT_EQ(logTexts().back(), "Printer error");
    window.lists().settimetableicao("");
    EXPECT_FALSE(print.isEnabled());
}

} // namespace
} // namespace vantor::test
