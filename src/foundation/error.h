// Foundation: what the whole program stands on and that knows nothing of traffic.
// Numbered errors, the only exception of the logic, with the run-time's own numbers and words.
#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace vantor {

/// Numbers of the run-time's own errors, and the one number that the loaders and the editor raise themselves.
enum class ErrorCode : int {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    InternalError = 51,
    BadFileName = 52,
    FileNotFound = 53,
    DeviceIoError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    TooManyFiles = 67,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    Loader = 23000,
};

/// A run-time error: its number and its description in words for the user.
class Error : public std::exception {
  public:
    /// One of the run-time's own errors, with the run-time's own words.
    explicit Error(ErrorCode code);
    Error(int number, std::string description);
    Error(ErrorCode code, std::string description);

    [[nodiscard]] int number() const noexcept { return m_number; }
    [[nodiscard]] bool is(ErrorCode code) const noexcept { return m_number == static_cast<int>(code); }
    [[nodiscard]] const std::string& description() const noexcept { return m_description; }
    [[nodiscard]] const char* what() const noexcept override { return m_description.c_str(); }

  private:
    int m_number;
    std::string m_description;
};

/// Throws an error, as a step of a trap.
[[noreturn]] inline void raiseError(const Error& error) {
    throw error;
}

/// The error for a failed call of the system: `value` is its errno.
[[nodiscard]] Error errorFromErrno(int value);

/// The exception in flight as a numbered error. Call it inside a catch block only: this is the one place where
/// exceptions of the standard library become numbered errors.
[[nodiscard]] Error currentError();

} // namespace vantor
