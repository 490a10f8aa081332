// Test support: faults of the disk, each at a chosen call.
// The calls that the program makes to the C library stand in disk_faults.cpp and fail on order.
#pragma once

#include <functional>

namespace vantor::test {

/// The calls that can be made to fail.
enum class DiskCall {
    Open,   ///< fopen, to read and to write
    Read,   ///< fread: the file's device is gone from here on, error EIO
    Write,  ///< fwrite: the disk is full from here on, error ENOSPC when the buffer goes out
    Sync,   ///< fsync
    Rename, ///< rename
};

/// While it lives, the n-th call of one kind (from 1) meets a fault. One at a time.
class DiskFault {
  public:
    /// The call fails with an errno. Read and Write fail with their own, whatever `error`.
    DiskFault(DiskCall call, int n, int error);
    /// Something happens just ahead of the call, which then runs.
    DiskFault(DiskCall call, int n, std::function<void()> happens);
    DiskFault(const DiskFault&) = delete;
    DiskFault& operator=(const DiskFault&) = delete;
    ~DiskFault();

    /// Whether there were so many calls.
    [[nodiscard]] bool met() const;
};

} // namespace vantor::test
