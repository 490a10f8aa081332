// Test support: a disk that is full after some bytes, for the tests of what a failed save leaves behind.
// It limits the size of files of the whole process, so that every file system answers as a full one does.
#pragma once

#include <csignal>
#include <cstdint>
#ifndef _WIN32
#include <sys/resource.h>
#endif

namespace vantor::test {

#ifndef _WIN32
class FullDisk {
  public:
    /// No file grows beyond `bytes` until the object goes or release is called.
    explicit FullDisk(std::uint64_t bytes) {
        m_signal = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        release();
        std::signal(SIGXFSZ, m_signal);
    }
    /// Space was cleared.
    void release() { setrlimit(RLIMIT_FSIZE, &m_before); }

  private:
    rlimit m_before{};
    void (*m_signal)(int) = nullptr;
};
#endif

} // namespace vantor::test
