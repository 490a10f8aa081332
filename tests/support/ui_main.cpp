// The main function of the form tests: an application without a screen.
#include "support/form_driver.h"

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    const vantor::test::DialogWatch watch;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
