#include "support/disk_faults.h"

#include <cerrno>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace vantor::test {

namespace {

struct Armed {
    DiskCall call = DiskCall::Open;
    int left = 0; // calls until the fault, 0 for none
    int error = 0;
    std::function<void()> happens;
};

Armed& armed() {
    static Armed fault;
    return fault;
}

// The errno that this call is to fail with, 0 when it is to run.
int faultOf(DiskCall call) {
    Armed& fault = armed();
    if (fault.left == 0 || fault.call != call || --fault.left > 0) {
        return 0;
    }
    if (fault.happens) {
        std::exchange(fault.happens, {})();
    }
    return fault.error;
}

// Puts a device in the place of an open file, so that the library meets its errors as it would meet those of a disk.
void exchangeFor(const char* device, std::FILE* file) {
    const int handle = ::open(device, O_RDWR | O_CLOEXEC);
    ::dup2(handle, ::fileno(file));
    ::close(handle);
}

// The library's own function behind the one of the same name here.
template <class Function>
Function* next(Function* /*ours*/, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

DiskFault::DiskFault(DiskCall call, int n, int error) {
    armed() = {call, n, error, {}};
}

DiskFault::DiskFault(DiskCall call, int n, std::function<void()> happens) {
    armed() = {call, n, 0, std::move(happens)};
}

DiskFault::~DiskFault() {
    armed() = {};
}

bool DiskFault::met() const {
    return armed().left == 0;
}

} // namespace vantor::test

using vantor::test::DiskCall;
using vantor::test::faultOf;

namespace {

bool fails(DiskCall call) {
    if (const int error = faultOf(call); error != 0) {
        errno = error;
        return true;
    }
    return false;
}

} // namespace

extern "C" {

std::FILE* fopen(const char* path, const char* mode) {
    static auto* const library = vantor::test::next(&fopen, "fopen");
    return fails(DiskCall::Open) ? nullptr : library(path, mode);
}

std::size_t fread(void* bytes, std::size_t size, std::size_t count, std::FILE* file) {
    if (faultOf(DiskCall::Read) != 0) {
        vantor::test::exchangeFor("/proc/self/mem", file); // nothing is mapped at its front: EIO
    }
    static auto* const library = vantor::test::next(&fread, "fread");
    return library(bytes, size, count, file);
}

std::size_t fwrite(const void* bytes, std::size_t size, std::size_t count, std::FILE* file) {
    if (faultOf(DiskCall::Write) != 0) {
        vantor::test::exchangeFor("/dev/full", file);
    }
    static auto* const library = vantor::test::next(&fwrite, "fwrite");
    return library(bytes, size, count, file);
}

int fsync(int handle) {
    static auto* const library = vantor::test::next(&fsync, "fsync");
    return fails(DiskCall::Sync) ? -1 : library(handle);
}

int rename(const char* from, const char* to) noexcept {
    static auto* const library = vantor::test::next(&rename, "rename");
    return fails(DiskCall::Rename) ? -1 : library(from, to);
}
}
