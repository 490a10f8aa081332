// The picture box: twips to pixels, colours with red in the low byte, and what stays on the surface.
#include "platform/picture_box.h"
#include "support/form_driver.h"

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

TEST_F(PictureBoxTest, DrawsInTwipsOnWholePixels) {
    box.fillBox(150, 150, 300, 225, red);
    EXPECT_EQ(pixel(19, 14), qRgb(255, 0, 0));
    EXPECT_EQ(ink(), QRect(10, 10, 10, 5));
    box.clear();
    box.fillBox(300, 225, 150, 150, blue); // the corners the other way round
    EXPECT_EQ(pixel(10, 10), qRgb(0, 0, 255));
    EXPECT_EQ(ink(), QRect(10, 10, 10, 5));
    box.clear();
    box.fillBox(150, 150, 300, 150, red);
    EXPECT_TRUE(ink().isEmpty()); // a count of 0 has no bar
    box.drawLine(0, 450, 1500, 450, blue);
    EXPECT_EQ(pixel(50, 30), qRgb(0, 0, 255));
    box.clear();
    box.setTextColour(red);
    box.setFontSize(12);
    const double height = box.textHeight("M");
    box.drawText(750, 300, "M");
    ASSERT_FALSE(ink().isEmpty());
    const QRect told(48, 18, static_cast<int>(box.textWidth("M") / 15) + 5, static_cast<int>(height / 15) + 5);
    EXPECT_TRUE(told.contains(ink()));
    box.setFontSize(24);
    EXPECT_NEAR(box.textHeight("M"), 2 * height, 45);
    const double nowhere = std::numeric_limits<double>::quiet_NaN();
    box.drawLine(nowhere, nowhere, 1e300, 75, blue); // harmless, as is all that is far outside
    box.drawText(nowhere, 1e300, "far");
    box.fillBox(-1e12, -1e12, 1e12, 1e12, red);
    EXPECT_EQ(ink(), QRect(0, 0, 100, 60));
    box.setFrameStyle(QFrame::Panel | QFrame::Sunken);
    box.setLineWidth(2);
    EXPECT_EQ(QSizeF(box.innerWidth(), box.innerHeight()), QSizeF(1440, 840));
    EXPECT_EQ(QSizeF(box.outerWidth(), box.outerHeight()), QSizeF(1500, 900));
}

TEST_F(PictureBoxTest, ShowsWhatWasDrawnAlsoWhenItGrewOrAPictureInItsPlace) {
    box.show();
    int resizes = 0;
    QObject::connect(&box, &PictureBox::resized, &box, [&] { ++resizes; });
    box.fillBox(0, 0, 150, 150, red);
    EXPECT_EQ(box.grab().toImage().pixel(5, 5), qRgb(255, 0, 0));
    box.resize(120, 80);
    EXPECT_EQ(resizes, 1);
    EXPECT_EQ(box.surface().size(), QSize(120, 80));
    EXPECT_EQ(ink(), QRect(0, 0, 10, 10));
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
    EXPECT_EQ(pixel(5, 5), qRgb(10, 20, 30));
}

TEST_F(PictureBoxTest, AReleaseOnItAndTwoKeysClick) {
    box.show();
    int clicks = 0;
    QObject::connect(&box, &PictureBox::clicked, &box, [&] { ++clicks; });
    QTest::mousePress(&box, Qt::LeftButton);
    EXPECT_EQ(clicks, 0);
    QTest::mouseRelease(&box, Qt::LeftButton);
    QTest::mouseRelease(&box, Qt::LeftButton, {}, QPoint(500, 500));
    QTest::mouseClick(&box, Qt::RightButton);
    QTest::keyClick(&box, Qt::Key_X);
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(&box, Qt::Key_Space);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(clicks, 3);
}

} // namespace
} // namespace vantor
