// The code page at Qt's edge, and the Qt host: boxes and their answers, the pointer's balance, event pumps, the
// locale's words.
#include "support/form_driver.h"

namespace vantor {
namespace {

using test::answerBoxes;

TEST(CodePageTest, EveryByteComesBackAndForeignLettersBecomeQuestionMarks) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all.push_back(static_cast<char>(byte));
    }
    EXPECT_EQ(fromQString(toQString(all)), all);
    EXPECT_EQ(toQString("Z\xFCrich \x80"), QStringLiteral(u"Z\u00FCrich \u20AC"));
    EXPECT_EQ(fromQString(QStringLiteral(u"\u0416-\u4E2D-ok")), "?-?-ok");
}

class QtHostTest : public testing::Test {
  protected:
    QtHost qtHost;
    QObject looker;
};

TEST_F(QtHostTest, BoxesShowPlainTextAndGiveTheButton) {
    const auto boxes = answerBoxes({{"<b>Z\xFCrich</b> & \"C:\\x\""},
                                    {"Sure?", QMessageBox::Yes},
                                    {"Sure?", QMessageBox::No},
                                    {"Sure?", QMessageBox::NoButton}});
    qtHost.message("<b>Z\xFCrich</b> & \"C:\\x\"");
    // The watch serves each box after this look at it.
    bool looked = false;
    QTimer::singleShot(0, &looker, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        looked = true;
        EXPECT_EQ(box->objectName(), QStringLiteral("questionBox"));
        EXPECT_EQ(box->windowTitle(), QStringLiteral("Vantor"));
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::No));
    });
    EXPECT_TRUE(qtHost.askYesNo("Sure?"));
    EXPECT_TRUE(looked);
    EXPECT_FALSE(qtHost.askYesNo("Sure?"));
    EXPECT_FALSE(qtHost.askYesNo("Sure?")); // Escape
    EXPECT_EQ(boxText("Disk full:\rtry again\r\nor not\n"), QStringLiteral("Disk full:\ntry again\nor not\n"));
}

TEST_F(QtHostTest, NormalAlwaysBringsTheArrowBack) {
    const auto shape = [] {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        return cursor == nullptr ? Qt::ArrowCursor : cursor->shape();
    };
    for (const Pointer pointer : {Pointer::SizeAll, Pointer::Busy, Pointer::Busy}) {
        qtHost.setPointer(pointer);
    }
    const auto boxes = answerBoxes({{"stop", QMessageBox::Ok}});
    Qt::CursorShape overTheBox = Qt::WaitCursor;
    QTimer::singleShot(0, &looker, [&] { overTheBox = shape(); });
    qtHost.message("stop");
    EXPECT_EQ(overTheBox, Qt::ArrowCursor);
    EXPECT_EQ(shape(), Qt::WaitCursor);
    qtHost.setPointer(Pointer::Normal);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(QtHostTest, TheGeneralFormLeavesOutAnEmptyDateOrTime) {
    const QLocale locale = QLocale::system();
    const std::string date = fromQString(locale.toString(QDate(2003, 5, 28), QLocale::ShortFormat));
    const double day = dayNumber({2003, 5, 28});
    const std::string time = qtHost.generalDateTime(0.5);
    EXPECT_NE(time.find("12"), std::string::npos);
    EXPECT_EQ(qtHost.generalDateTime(day), date);
    EXPECT_EQ(qtHost.generalDateTime(day + 0.5), date + " " + time);
    EXPECT_FALSE(qtHost.generalDateTime(0.0).empty());
    EXPECT_EQ(qtHost.generalDateTime(day - 1e-6), date); // shown to the second: midnight of the next day
    EXPECT_EQ(qtHost.weekdayName(1), fromQString(locale.standaloneDayName(Qt::Sunday)));
#ifdef Q_OS_WIN
    ASSERT_TRUE(qtHost.systemVersion());
    EXPECT_GE(qtHost.systemVersion()->major, 10) << "the manifest is missing";
#endif
}

TEST_F(QtHostTest, TheLongTimeLeavesNothingOfTheTimeZone) {
    const QTime time(13, 5, 9);
    for (const auto& [name, shown] : {std::pair{"en_US", "1:05:09 PM"},
                                      {"es_ES", "13:05:09"},
                                      {"be_BY", "13:05:09"},
                                      {"fr_CA", "13 h 05 min 09 s"},
                                      {"nn_NO", "kl. 13:05:09"}}) {
        EXPECT_EQ(longTime(QLocale(QLatin1String(name)), time), QLatin1String(shown)) << name;
    }
}

TEST_F(QtHostTest, AMailCutInTheMiddleOfAnEscapeKeepsTheOthers) {
    const std::string_view front = "mailto:a@b.c?subject=Bug%20Report&body=100%25 of";
    for (const auto& [end, sent] : {std::pair{"%0D%0A", "%0D%0A"}, {"%0D%0", "%0D%250"}, {"%0D%", "%0D%25"}}) {
        EXPECT_EQ(addressUrl(std::string(front) + end + "&attachment=\"\"").toEncoded().toStdString(),
                  std::string("mailto:a@b.c?subject=Bug%20Report&body=100%25%20of") + sent + "&attachment=%22%22");
    }
}

} // namespace
} // namespace vantor
