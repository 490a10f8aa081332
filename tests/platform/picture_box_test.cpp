// Tests of the Qt side of the program.
// The picture box: twips to pixels, colours with red in the low byte, and what stays on the surface.
#include "platform/picture_box.h"
#include "support/form_driver.h"

#include <gtest/gtest.h>
#include <limits>

namespace vantor {
namespace {

constexpr Colour red = 0x0000FF;
constexpr Colour blue = 0xFF0000;
constexpr Colour white = 0xFFFFFF;

class PictureBoxTest : public testing::Test {
  protected:
    PictureBoxTest() {
        box.resize(100, 60);
        box.setBackColour(white);
        box.clear();
    }

    [[nodiscard]] QRgb pixel(int x, int y) { return box.surface().toImage().pixel(x, y); }
    /// Where anything but white stands.
    [[nodiscard]] QRect ink() {
        return test::extentOf(box.surface().toImage(), [](QRgb pixel) { return pixel != qRgb(255, 255, 255); });
    }

    PictureBox box;
};

TEST_F(PictureBoxTest, SizesAreInTwipsWithTheBorderOutside) {
    box.setFrameStyle(QFrame::Panel | QFrame::Sunken);
    box.setLineWidth(2);
    EXPECT_EQ(box.innerWidth(), 1500 - 4 * 15);
    EXPECT_EQ(box.innerHeight(), 900 - 4 * 15);
    EXPECT_EQ(box.outerWidth(), 1500);
    EXPECT_EQ(box.outerHeight(), 900);
}

TEST_F(PictureBoxTest, BoxesFillWholePixelsBetweenTheirCorners) {
    box.fillBox(150, 150, 300, 225, red);
    EXPECT_EQ(pixel(10, 10), qRgb(255, 0, 0));
    EXPECT_EQ(pixel(19, 14), qRgb(255, 0, 0));
    EXPECT_EQ(ink(), QRect(10, 10, 10, 5));
    box.clear();
    box.fillBox(300, 225, 150, 150, blue); // the corners the other way round
    EXPECT_EQ(pixel(10, 10), qRgb(0, 0, 255));
    EXPECT_EQ(ink(), QRect(10, 10, 10, 5));
    box.clear();
    box.fillBox(150, 150, 300, 150, red);
    EXPECT_TRUE(ink().isEmpty()); // a count of 0 has no bar
}

TEST_F(PictureBoxTest, DrawingFarOutsideOrNowhereIsHarmless) {
    box.fillBox(-1e12, -1e12, 1e12, 1e12, red);
    EXPECT_EQ(ink(), QRect(0, 0, 100, 60));
    const double nowhere = std::numeric_limits<double>::quiet_NaN();
    box.drawLine(nowhere, nowhere, 1e300, 75, blue);
    box.drawText(nowhere, 1e300, "far");
    box.fillBox(1e12, 1e12, 2e12, 2e12, red);
    PictureBox tiny;
    tiny.resize(0, 0);
    tiny.clear();
    tiny.drawLine(0, 0, 100, 100, red);
    EXPECT_EQ(tiny.surface().size(), QSize(1, 1));
}

TEST_F(PictureBoxTest, LinesAndTextsGoWhereTheyAreTold) {
    box.drawLine(0, 450, 1500, 450, blue);
    EXPECT_EQ(pixel(50, 30), qRgb(0, 0, 255));
    box.clear();
    box.setTextColour(red);
    box.setFontSize(12);
    const double width = box.textWidth("M");
    const double height = box.textHeight("M");
    box.drawText(750, 300, "M");
    ASSERT_FALSE(ink().isEmpty());
    const QRect told(48, 18, static_cast<int>(width / 15) + 5, static_cast<int>(height / 15) + 5);
    EXPECT_TRUE(told.contains(ink()));
    box.setFontSize(24);
    EXPECT_NEAR(box.textHeight("M"), 2 * height, 45);
}

TEST_F(PictureBoxTest, ContentSurvivesPaintingAndGrowing) {
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
    int resizes = 0;
    QObject::connect(&box, &PictureBox::resized, &box, [&] { ++resizes; });
    box.fillBox(0, 0, 150, 150, red);
    box.repaint();
    EXPECT_EQ(box.grab().toImage().pixel(5, 5), qRgb(255, 0, 0));
    box.resize(120, 80);
    EXPECT_EQ(resizes, 1);
    EXPECT_EQ(box.surface().size(), QSize(120, 80));
    EXPECT_EQ(ink(), QRect(0, 0, 10, 10));
}

TEST_F(PictureBoxTest, APictureStandsInPlaceOfTheDrawing) {
    QPixmap picture(10, 10);
    picture.fill(Qt::green);
    box.setPicture(picture);
    EXPECT_EQ(box.grab().toImage().pixel(50, 30), qRgb(0, 255, 0));
    box.setPicture({});
    EXPECT_EQ(box.grab().toImage().pixel(50, 30), qRgb(255, 255, 255));
    QPalette palette = box.palette();
    palette.setColor(QPalette::Window, QColor(10, 20, 30));
    box.setPalette(palette);
    box.useSystemColours(); // wipes the surface
    EXPECT_EQ(pixel(50, 30), qRgb(10, 20, 30));
}

TEST_F(PictureBoxTest, MouseAndKeysClick) {
    box.show();
    int clicks = 0;
    QObject::connect(&box, &PictureBox::clicked, &box, [&] { ++clicks; });
    QTest::mousePress(&box, Qt::LeftButton);
    EXPECT_EQ(clicks, 0);
    QTest::mouseRelease(&box, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    QTest::mouseRelease(&box, Qt::LeftButton, {}, QPoint(500, 500));
    QTest::mouseClick(&box, Qt::RightButton);
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(&box, Qt::Key_Space);
    QTest::keyClick(&box, Qt::Key_X);
    EXPECT_EQ(clicks, 2);
}

} // namespace
} // namespace vantor
