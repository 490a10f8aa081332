// Views: the map window, driven by clicks and drags.
#include "foundation/log.h"
#include "platform/picture_box.h"
#include "support/fixture.h"
#include "support/form_driver.h"
#include "support/traffic.h"
#include "views/frmMap.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>

namespace vantor::test {
namespace {

class MapFormTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        addAirport("AAAA", "A", 0, 0);
        addAirport("BBBB", "B", 60, 120);
        addLegs({makeLeg("AAAA", "BBBB")});
    }

    // Shows the map with an airport picked and hands it to `user`.
    static void show(int index, const std::function<void(QDialog&)>& user) {
        frmMap map(nullptr);
        map.loadmap(index);
        const Expectation expected = expectDialog("frmMap", [&](QDialog& form) {
            user(form);
            click(form, "cmdExit");
            EXPECT_FALSE(form.isVisible());
        });
        map.exec();
    }

    static PictureBox& mapOf(QDialog& form) { return control<PictureBox>(form, "picMap"); }
    static QWidget& frameOf(QDialog& form) { return control<QWidget>(form, "picFrame"); }

    static bool hasColour(QDialog& form, QRgb colour) {
        return !extentOf(mapOf(form).surface().toImage(), [&](QRgb pixel) { return pixel == colour; }).isNull();
    }

    static void mouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button,
                      Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, widget.mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }

    const QRgb green = qRgb(0, 255, 0);
    const QRgb red = qRgb(255, 0, 0);
};

TEST_F(MapFormTest, DrawsTheChosenAirportAndAnotherOneOnItsClick) {
    show(0, [&](QDialog& form) {
        EXPECT_EQ(form.windowTitle(), QStringLiteral("Map (Not much use yet!)")); // meant
        auto& airportList = control<ComboBox>(form, "cmbAirports");
        EXPECT_EQ(airportList.text(), "AAAA - A");
        EXPECT_TRUE(hasColour(form, green));
        pickRow(airportList, 1);
        EXPECT_FALSE(hasColour(form, green));
        EXPECT_FALSE(hasColour(form, red)); // the very first leg has no leg before it
        EXPECT_TRUE(airportList.isEnabled());
        EXPECT_EQ(form.focusWidget(), &airportList);
    });
    EXPECT_EQ(actionText(1), "");
}

TEST_F(MapFormTest, LayoutAndMapFollowTheWindow) {
    show(0, [&](QDialog& form) {
        form.resize(800, 700);
        ASSERT_TRUE(waitFor([&] { return frameOf(form).width() == 800 - 20; }));
        EXPECT_EQ(frameOf(form).geometry(), QRect(7, 7, 780, 620));
        EXPECT_EQ(mapOf(form).geometry(), QRect(0, 0, 780, 620));
        for (const char* name : {"cmdExit", "cmdZoomIn", "cmdZoomOut", "cmbAirports"}) {
            EXPECT_EQ(control<QWidget>(form, name).y(), 640) << name;
        }
        EXPECT_TRUE(hasColour(form, green));
        form.resize(800, 133); // 1995 twips: too low for the frame, which stays
        ASSERT_TRUE(waitFor([&] { return control<QWidget>(form, "cmdExit").y() == 73; }));
        EXPECT_EQ(frameOf(form).height(), 620);
        form.resize(800, 700);
        ASSERT_TRUE(waitFor([&] { return control<QWidget>(form, "cmdExit").y() == 640; }));
    });
}

TEST_F(MapFormTest, TheWindowsEndIsTheDragsEnd) {
    show(0, [&](QDialog& form) {
        mouse(mapOf(form), QEvent::MouseButtonPress, {100, 100}, Qt::LeftButton, Qt::LeftButton);
    });
    ASSERT_EQ(recorder.pointers.size(), 2U);
    EXPECT_EQ(recorder.pointers.back(), Pointer::Normal);
}

TEST_F(MapFormTest, DragMovesWithinItsLimitsAndZoomUndoesIt) {
    show(0, [&](QDialog& form) {
        PictureBox& map = mapOf(form);
        mouse(map, QEvent::MouseButtonPress, {100, 100}, Qt::LeftButton, Qt::LeftButton);
        ASSERT_FALSE(recorder.pointers.empty());
        EXPECT_EQ(recorder.pointers.back(), Pointer::SizeAll);
        mouse(map, QEvent::MouseMove, {110, 105}, Qt::NoButton, Qt::LeftButton);
        EXPECT_EQ(map.pos(), QPoint(7, 7)); // 100 twips
        mouse(map, QEvent::MouseMove, {60, 60}, Qt::NoButton, Qt::LeftButton);
        EXPECT_EQ(map.pos(), QPoint(-13, -20)); // 200 across and 300 down
        mouse(map, QEvent::MouseButtonRelease, {60, 60}, Qt::LeftButton, Qt::NoButton);
        EXPECT_EQ(recorder.pointers.back(), Pointer::Normal);
        mouse(map, QEvent::MouseMove, {80, 80}, Qt::NoButton, Qt::NoButton);
        EXPECT_EQ(map.pos(), QPoint(-13, -20));
        for (const char* button : {"cmdZoomIn", "cmdZoomOut"}) {
            map.move(-13, -20);
            click(form, button);
            EXPECT_EQ(map.geometry(), QRect(QPoint(0, 0), frameOf(form).size())) << button;
            EXPECT_TRUE(hasColour(form, green));
        }
    });
}

} // namespace
} // namespace vantor::test
