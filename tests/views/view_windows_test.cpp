// Views: the windows of the chart and the map, driven by clicks and drags.
#include "platform/picture_box.h"
#include "support/form_driver.h"
#include "views/frmChart.h"
#include "views/frmMap.h"

namespace vantor::test {
namespace {

constexpr QRgb red = qRgb(255, 0, 0);
constexpr QRgb green = qRgb(0, 255, 0);
constexpr QRgb blue = qRgb(0, 0, 255);

PictureBox& picture(QDialog& form) {
    return *form.findChild<PictureBox*>();
}

// Where a colour stands in the picture; null when it doesn't.
QRect extent(QDialog& form, QRgb colour) {
    return extentOf(picture(form).surface().toImage(), [&](QRgb pixel) { return pixel == colour; });
}

// Hands the window that `open` shows to `user` and leaves it by its button.
void show(std::string_view name, const std::function<void()>& open, const std::function<void(QDialog&)>& user) {
    const Expectation expected = expectDialog(name, [&](QDialog& form) {
        user(form);
        click(form, "cmdExit");
        EXPECT_FALSE(form.isVisible());
    });
    open();
}

using ChartFormTest = Fixture;

TEST_F(ChartFormTest, DrawsTheDayOfTheListAndFollowsTheWindow) {
    addLegs({makeLeg("AAAA", "BBBB", "06:00:00")});
    addSchedule("AC#1,N1,100%,WEEK,IFR", {makeWeeklyLeg(1, "BBBB", "AAAA", "18:00:00")});
    frmChart chart(nullptr);
    show(
        "frmChart", [&] { chart.showchart("AAAA - Some & Where"); },
        [](QDialog& form) {
            EXPECT_EQ(control<QLabel>(form, "lblTraffic").text(), QStringLiteral("AAAA - Some & Where"));
            auto& days = control<ComboBox>(form, "cmbDay");
            EXPECT_EQ(days.text(), "Daily");
            // Which days show a red bar and which a blue one; Monday is day 1.
            std::string seen;
            for (int row = 7; row >= 0; --row) {
                pickRow(days, row);
                seen += extent(form, red).isNull() ? "" : days.text() + " departures ";
                seen += extent(form, blue).isNull() ? "" : days.text() + " arrivals ";
            }
            EXPECT_EQ(seen, "Mon Only arrivals Daily departures ");
            pickRow(days, 2);
            const QRect before = extent(form, blue);
            form.resize(form.width() * 2, form.height());
            ASSERT_TRUE(waitFor([&] { return extent(form, blue).x() > before.x() * 3 / 2; }));
            EXPECT_TRUE(extent(form, red).isNull());
        });
}

class MapFormTest : public Fixture {
  protected:
    void SetUp() override {
        addAirport("AAAA", "A", 0, 0);
        addAirport("BBBB", "B", 60, 120);
        addLegs({makeLeg("AAAA", "BBBB")});
    }

    // Shows the map of AAAA and hands it to `user`.
    static void showMap(const std::function<void(QDialog&)>& user) {
        frmMap map(nullptr);
        map.loadmap(0);
        show(
            "frmMap", [&] { map.exec(); }, user);
    }

    static QWidget& frameOf(QDialog& form) { return control<QWidget>(form, "picFrame"); }

    // `held` is what is down after the event.
    static void mouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButtons held) {
        const Qt::MouseButton cause = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, widget.mapToGlobal(at), cause, held, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
};

TEST_F(MapFormTest, DrawsTheChosenAirportAndFollowsTheWindow) {
    showMap([&](QDialog& form) {
        EXPECT_EQ(form.windowTitle(), QStringLiteral("Map (Not much use yet!)")); // meant
        const auto resize = [&](int height, int buttons) {
            form.resize(800, height);
            return waitFor([&] { return control<QWidget>(form, "cmdExit").y() == buttons; });
        };
        ASSERT_TRUE(resize(700, 640));
        EXPECT_EQ(frameOf(form).geometry(), QRect(7, 7, 780, 620));
        EXPECT_EQ(picture(form).geometry(), QRect(0, 0, 780, 620));
        for (const char* name : {"cmdZoomIn", "cmdZoomOut", "cmbAirports"}) {
            EXPECT_EQ(control<QWidget>(form, name).y(), 640) << name;
        }
        EXPECT_FALSE(extent(form, green).isNull());

        auto& airportList = control<ComboBox>(form, "cmbAirports");
        EXPECT_EQ(airportList.text(), "AAAA - A");
        pickRow(airportList, 1);
        EXPECT_TRUE(extent(form, green).isNull());
        EXPECT_TRUE(extent(form, red).isNull()); // the very first leg has no leg before it
        EXPECT_TRUE(airportList.isEnabled());
        EXPECT_EQ(form.focusWidget(), &airportList);
    });
    EXPECT_EQ(actionText(1), "");
}

TEST_F(MapFormTest, DragMovesWithinItsLimitsAndZoomUndoesIt) {
    showMap([&](QDialog& form) {
        PictureBox& map = picture(form);
        mouse(map, QEvent::MouseButtonPress, {100, 100}, Qt::LeftButton);
        mouse(map, QEvent::MouseMove, {60, 60}, Qt::LeftButton);
        EXPECT_EQ(map.pos(), QPoint(-13, -20)); // 200 across and 300 down
        mouse(map, QEvent::MouseButtonRelease, {60, 60}, Qt::NoButton);
        mouse(map, QEvent::MouseMove, {80, 80}, Qt::NoButton);
        EXPECT_EQ(map.pos(), QPoint(-13, -20));
        for (const char* button : {"cmdZoomIn", "cmdZoomOut"}) {
            map.move(-13, -20);
            click(form, button);
            EXPECT_EQ(map.geometry(), QRect(QPoint(0, 0), frameOf(form).size())) << button;
            EXPECT_FALSE(extent(form, green).isNull());
        }
        mouse(map, QEvent::MouseButtonPress, {100, 100}, Qt::LeftButton);
    });
    // The second drag ends with the window.
    EXPECT_EQ(recorder.pointers, (std::vector{Pointer::SizeAll, Pointer::Normal, Pointer::SizeAll, Pointer::Normal}));
}

} // namespace
} // namespace vantor::test
