// Views: the chart window, driven by clicks.
#include "platform/picture_box.h"
#include "support/fixture.h"
#include "support/form_driver.h"
#include "support/traffic.h"
#include "views/frmChart.h"

#include <QLabel>
#include <QPushButton>

namespace vantor::test {
namespace {

class ChartFormTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        addLegs({makeLeg("AAAA", "BBBB", "06:00:00")});
        addSchedule("AC#1,N1,100%,WEEK,IFR", {makeWeeklyLeg(1, "BBBB", "AAAA", "18:00:00")});
    }

    // Where a colour stands in the chart; null when it doesn't.
    static QRect extent(QDialog& form, QRgb colour) {
        return extentOf(control<PictureBox>(form, "picChart").surface().toImage(),
                        [&](QRgb pixel) { return pixel == colour; });
    }

    // Shows the chart of an airport and hands it to `user`.
    static void show(std::string_view icao, const std::function<void(QDialog&)>& user) {
        frmChart chart(nullptr);
        const Expectation expected = expectDialog("frmChart", [&](QDialog& form) {
            user(form);
            if (form.isVisible()) {
                click(form, "cmdExit");
            }
        });
        chart.showchart(icao);
    }

    const QRgb red = qRgb(255, 0, 0);
    const QRgb blue = qRgb(0, 0, 255);
};

TEST_F(ChartFormTest, ShowsTheAirportDailyAndADayOfTheListDrawsAnew) {
    show("AAAA - Some & Where", [&](QDialog& form) {
        EXPECT_EQ(control<QLabel>(form, "lblTraffic").text(), QStringLiteral("AAAA - Some & Where"));
        auto& days = control<ComboBox>(form, "cmbDay");
        EXPECT_EQ(days.text(), "Daily");
        EXPECT_FALSE(extent(form, red).isNull());
        EXPECT_TRUE(extent(form, blue).isNull());
        pickRow(days, 2); // Monday is day 1
        EXPECT_TRUE(extent(form, red).isNull());
        EXPECT_FALSE(extent(form, blue).isNull());
        pickRow(days, 1);
        EXPECT_TRUE(extent(form, blue).isNull());
        pickRow(days, 0);
        EXPECT_FALSE(extent(form, red).isNull());
    });
}

TEST_F(ChartFormTest, FollowsTheSizeOfTheWindowOnTheSameDay) {
    show("AAAA", [&](QDialog& form) {
        pickRow(control<ComboBox>(form, "cmbDay"), 2);
        const QRect before = extent(form, blue);
        form.resize(form.width() * 2, form.height());
        ASSERT_TRUE(waitFor([&] { return extent(form, blue).x() > before.x() * 3 / 2; }));
        EXPECT_TRUE(extent(form, red).isNull());
    });
}

} // namespace
} // namespace vantor::test
