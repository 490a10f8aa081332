// A download whose file meets a fault of the disk, at every call.
#include "support/disk_faults.h"
#include "support/fixture.h"
#include "update/scripted_control.h"
#include "update/transfer.h"

#include <cerrno>

namespace vantor {
namespace {

using test::DiskCall;
using test::DiskFault;
using DownloadFaults = test::Fixture;

TEST_F(DownloadFaults, LeaveNoHalfAFileAndTheNextAttemptGoesWell) {
    const std::string body(20000, 'x'); // in many chunks and buffers
    test::TransferScript script;
    script.replies["http://h/f"] = {body};
    cSHAREDInternet internet(std::make_unique<test::ScriptedControl>(script));
    for (const auto& [call, error] : {std::pair(DiskCall::Open, EROFS), std::pair(DiskCall::Write, ENOSPC),
                                      std::pair(DiskCall::Sync, EIO), std::pair(DiskCall::Rename, EACCES)}) {
        bool met = true;
        for (int n = 1; met; ++n) {
            SCOPED_TRACE("fault " + std::to_string(n) + " of call " + std::to_string(static_cast<int>(call)));
            bool got = false;
            {
                const DiskFault fault(call, n, error);
                got = internet.GetFile("http://h/f", path("f.exe"), false, true, true);
                met = fault.met();
            }
            ASSERT_TRUE(met || n > 1);
            const bool folderFlush = call == DiskCall::Sync && n == 2;
            EXPECT_EQ(got, !met || folderFlush);
            EXPECT_EQ(exists("f.exe"), got);
            EXPECT_FALSE(exists("f.exe.~new"));
        }
        EXPECT_EQ(readFile("f.exe"), body);
    }
}

} // namespace
} // namespace vantor
