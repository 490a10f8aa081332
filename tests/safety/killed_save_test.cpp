// A program that is killed in the middle of saving.
// What stands is the old file or the new one, and what it left behind is nothing that a reader would take.
#include "core/flightplans_writer.h"
#include "core/tables.h"
#include "foundation/text.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <chrono>
#include <csignal>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vantor {
namespace {

constexpr int kills = 100;
constexpr std::int32_t manySchedules = 300;

class KilledSave : public test::Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        for (std::int32_t recnum = 1; recnum <= manySchedules; ++recnum) {
            test::addSchedule("AC#" + std::to_string(recnum) + ",N1,100%,24HR,IFR",
                              test::loopOver({"KSEA", "KPDX", "KSFO", "KLAX", "KSAN", "KDEN"}));
        }
    }
    // Saves all schedules, or half of them.
    void save(bool all) const {
        schedulecount = all ? manySchedules : manySchedules / 2;
        savesc(path("Flightplans.txt"));
    }
    std::string saved(bool all) const {
        save(all);
        return readFile("Flightplans.txt");
    }
    // A process that saves the one and the other until it is killed. The alarm is for a test that ends before.
    pid_t startSaving() const {
        const pid_t child = ::fork();
        if (child == 0) {
            ::alarm(60);
            for (bool all = true;; all = !all) {
                save(all);
            }
        }
        return child;
    }
};

// Other moments with every --gtest_repeat --gtest_shuffle --gtest_random_seed=SEED, the same without.
TEST_F(KilledSave, LeavesTheOldFileOrTheNewOne) {
    const std::string half = saved(false);
    const auto start = std::chrono::steady_clock::now();
    const std::string whole = saved(true);
    const auto oneSave = std::chrono::steady_clock::now() - start;

    std::mt19937 random(static_cast<unsigned>(::testing::UnitTest::GetInstance()->random_seed()));
    std::uniform_real_distribution<double> moment(0, 4);
    int inside = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const pid_t child = startSaving();
        ASSERT_GT(child, 0);
        std::this_thread::sleep_for(oneSave * moment(random));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string left = readFile("Flightplans.txt");
        ASSERT_TRUE(left == half || left == whole) << "kill " << kill << " left " << left.size() << " bytes";
        inside += exists("Flightplans.txt.~new") ? 1 : 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder())) {
            ASSERT_TRUE(entry.path().filename() == "Flightplans.txt" ||
                        lower(entry.path().extension().string()) != ".txt")
                << entry.path() << " would be taken for traffic";
        }
    }
    RecordProperty("kills_inside_a_save", inside);
    EXPECT_GT(inside, 0);
    EXPECT_EQ(saved(true), whole);
    EXPECT_FALSE(exists("Flightplans.txt.~new"));
}

} // namespace
} // namespace vantor
