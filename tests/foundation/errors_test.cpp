// Numbered errors, the mapping of the system's failures to them, and the standard trap.
#include "foundation/log.h"
#include "foundation/trap.h"
#include "support/expect_error.h"
#include "support/fixture.h"

#include <cerrno>
#include <new>
#include <stdexcept>
#include <system_error>

namespace vantor {
namespace {

using test::errorOf;

class Errors : public test::Fixture {};

TEST_F(Errors, SystemFailuresAndStandardExceptionsBecomeNumbers) {
    // Those that no test of the files meets on a real disk.
    EXPECT_EQ(errorFromErrno(EMFILE).number(), 67);
    EXPECT_EQ(errorFromErrno(EACCES).number(), 75);
    EXPECT_EQ(errorFromErrno(EROFS).number(), 75);
    EXPECT_EQ(errorFromErrno(ENOSPC).description(), "Disk full");
    EXPECT_EQ(errorOf([] { throw std::bad_alloc(); }), 7);
    EXPECT_EQ(errorOf([] { throw std::length_error("x"); }), 7);
    EXPECT_EQ(errorOf([] { throw std::out_of_range("x"); }), 9);
    EXPECT_EQ(errorOf([] { throw std::system_error(std::make_error_code(std::errc::no_space_on_device)); }), 61);
    EXPECT_EQ(errorOf([] { throw std::runtime_error("x"); }), 51);
    EXPECT_EQ(errorOf([] { throw 5; }), 51);
    EXPECT_EQ(errorText(23000), "Application-defined or object-defined error");
}

TEST_F(Errors, TheTrapNotesTheFaultAndTheNextStatementRuns) {
    const StandardTrap trap{"sub cmdcompile_click", "frmMain"};
    int value = 1;
    EXPECT_FALSE(trap([&] {
        throw Error(ErrorCode::SubscriptOutOfRange);
        value = 2;
    }));
    EXPECT_TRUE(trap([&] { value += 10; }));
    EXPECT_EQ(value, 11);
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub cmdcompile_click of module frmMain");
    EXPECT_EQ(actionText(2), "");
}

TEST_F(Errors, ATrapHoldsWhenTheLogIsOutOfReach) {
    std::filesystem::create_directory(folder() / "log.txt");
    const StandardTrap trap{"sub x", "m"};
    for (int fault = 1; fault <= 3 * recentActions; ++fault) {
        trap([&] { throw Error(1000 + fault, "Fault"); });
    }
    EXPECT_EQ(newestAction(), "Fault(1120) in sub x of module m");
}

} // namespace
} // namespace vantor
