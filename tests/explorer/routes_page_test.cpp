// Explorer: the page of the routes, driven by mouse and keys.
#include "explorer/frmRoutes.h"
#include "explorer/frmRoutesMap.h"
#include "support/form_driver.h"

#include <QPrinter>

namespace vantor::test {
namespace {

class RoutesPageTest : public Fixture {
  protected:
    void SetUp() override {
        addAirport("EGLL", "London <Heathrow>", 51.47F, -0.45F);
        addAirport("KJFK", "New York", 40.64F, -73.78F);
        addAirport("LFPG", "Paris", 49.01F, 2.55F);
        addAircraft("AC#1", "Jumbo");
        addLegs({makeLeg("EGLL", "KJFK"), makeLeg("KJFK", "EGLL"), makeLeg("EGLL", "LFPG")});
        page.resize(800, 600);
        page.setLegs(
            3,
            [](std::size_t i) {
                return LegId{1, static_cast<std::int32_t>(i) + 1};
            },
            false);
        page.show();
        EXPECT_TRUE(waitFor([&] { return page.isCounted(); }));
    }

    [[nodiscard]] RoutesMap& map() { return control<RoutesMap>(page, "map"); }
    // Where the airport of a number, by importance, stands in the map.
    [[nodiscard]] QPoint placeOf(std::size_t airport) {
        const FlatPoint place = map().view().toWindow(map().scene().places()[airport]);
        return QPointF(place.x, place.y).toPoint();
    }
    // The pointer goes by whole pixels.
    static bool isAt(QPoint place, QPoint expected) { return (place - expected).manhattanLength() <= 2; }
    [[nodiscard]] QString tipAt(QPoint place) {
        QHelpEvent event(QEvent::ToolTip, place, map().mapToGlobal(place));
        QApplication::sendEvent(&map(), &event);
        return QToolTip::text();
    }

    frmRoutes page;
};

TEST_F(RoutesPageTest, TellsAndTakesWhatIsPointedAt) {
    EXPECT_EQ(control<QLabel>(page, "lblSummary").text(), QStringLiteral("2 routes, 3 airports, 21 flights a week"));
    QSignalSpy wanted(&page, &frmRoutes::filterWanted);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_TRUE(map().rect().contains(placeOf(i)));
        QTest::mouseClick(&map(), Qt::LeftButton, {}, placeOf(i));
    }
    QTest::mouseClick(&map(), Qt::LeftButton, {}, QPoint(5, 5)); // the open sea
    EXPECT_EQ(wanted, QList<QVariantList>(
                          {{QStringLiteral("at=EGLL")}, {QStringLiteral("at=KJFK")}, {QStringLiteral("at=LFPG")}}));
    EXPECT_TRUE(tipAt(placeOf(0)).contains(QStringLiteral("London &lt;Heathrow&gt;<br>14 departures and 7 arrivals")));
    std::vector<FlatPoint> line;
    map().scene().line(0, 1e9, line);
    const FlatPoint middle = map().view().toWindow(line[line.size() / 2]);
    EXPECT_TRUE(tipAt(QPointF(middle.x, middle.y).toPoint()).contains(QStringLiteral("EGLL - KJFK, 2,99")));

    // The same by keys: the airports in the window by their importance.
    pressKey(map(), Qt::Key_PageDown);
    pressKey(map(), Qt::Key_PageDown);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("KJFK - New York")));
    pressKey(map(), Qt::Key_Return);
    EXPECT_EQ(wanted.last(), QVariantList({QStringLiteral("at=KJFK")}));
    pressKey(map(), Qt::Key_PageUp);
    pressKey(map(), Qt::Key_Enter);
    EXPECT_EQ(wanted.last(), QVariantList({QStringLiteral("at=EGLL")}));
}

TEST_F(RoutesPageTest, MovesByMouseAndKeys) {
    const MapView all = map().view();
    const QPoint paris = placeOf(2);
    QWheelEvent wheel(paris, map().mapToGlobal(paris), {}, QPoint(0, 240), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&map(), &wheel);
    EXPECT_DOUBLE_EQ(map().view().scale, all.scale * 2);
    EXPECT_TRUE(isAt(placeOf(2), paris));
    const QPoint to = paris + QPoint(40, 30);
    QSignalSpy wanted(&page, &frmRoutes::filterWanted);
    QTest::mousePress(&map(), Qt::LeftButton, {}, paris);
    for (const QPoint& at : {paris + QPoint(20, 15), to}) {
        QMouseEvent move(QEvent::MouseMove, at, map().mapToGlobal(at), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&map(), &move);
    }
    QTest::mouseRelease(&map(), Qt::LeftButton, {}, to);
    EXPECT_TRUE(isAt(placeOf(2), to));
    EXPECT_TRUE(wanted.isEmpty()); // a drag that begins on an airport takes none
    QTest::mouseDClick(&map(), Qt::LeftButton, {}, to + QPoint(30, 30));
    EXPECT_TRUE(isAt(placeOf(2) + QPoint(30, 30), {map().width() / 2, map().height() / 2}));

    const MapView before = map().view();
    pressKey(map(), Qt::Key_Plus);
    pressKey(map(), Qt::Key_Right);
    pressKey(map(), Qt::Key_Down);
    EXPECT_GT(map().view().scale, before.scale);
    EXPECT_GT(map().view().centre.x, before.centre.x);
    EXPECT_GT(map().view().centre.y, before.centre.y);
    pressKey(map(), Qt::Key_Minus);
    pressKey(map(), Qt::Key_Left);
    pressKey(map(), Qt::Key_Up);
    EXPECT_NEAR(map().view().scale, before.scale, 1e-6);
    click(page, "cmdZoomOut");
    EXPECT_NEAR(map().view().scale, before.scale / 2, 1e-6);
    pressKey(map(), Qt::Key_Home);
    EXPECT_EQ(map().view(), all);
    page.resize(1000, 500);
    EXPECT_TRUE(waitFor([&] { return map().view().width == map().width(); }));
}

TEST_F(RoutesPageTest, SavesAndPrintsWhatItShows) {
    control<QComboBox>(page, "cmbColour").setCurrentIndex(1);
    const std::vector<std::pair<QString, std::string_view>> names{{QStringLiteral("a"), "a.png"},
                                                                  {QStringLiteral("b.svg"), "b.svg"}};
    for (const auto& [typed, saved] : names) {
        const Expectation expected =
            expectDialog("fileDialog", [&, &name = typed](QDialog& dialog) { enterFileName(dialog, name); });
        click(page, "cmdSavePicture");
        ASSERT_TRUE(exists(saved));
    }
    const QImage picture(QString::fromStdString((folder() / "a.png").string()));
    EXPECT_EQ(picture.size(), map().size() * 2);
    const QRect routes = extentOf(picture, [](QRgb pixel) { return qBlue(pixel) - qRed(pixel) > 80; });
    EXPECT_GT(routes.width(), picture.width() / 2);
    EXPECT_TRUE(contains(readFile("b.svg"), ">Jumbo</text>"));

    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    EXPECT_EQ(faultOf([&] { page.print(printer); }), "482 Printer error");
    printer.setOutputFileName(QString::fromStdString((folder() / "c.pdf").string()));
    page.print(printer);
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
    EXPECT_TRUE(readFile("c.pdf").starts_with("%PDF"));
}

} // namespace
} // namespace vantor::test
