#include "foundation/error.h"

#include <cerrno>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace vantor {

namespace {

std::string_view errorText(ErrorCode code) noexcept {
    switch (code) {
    case ErrorCode::InvalidCall:
        return "Invalid procedure call or argument";
    case ErrorCode::Overflow:
        return "Overflow";
    case ErrorCode::OutOfMemory:
        return "Out of memory";
    case ErrorCode::SubscriptOutOfRange:
        return "Subscript out of range";
    case ErrorCode::DivisionByZero:
        return "Division by zero";
    case ErrorCode::TypeMismatch:
        return "Type mismatch";
    case ErrorCode::InternalError:
        return "Internal error";
    case ErrorCode::BadFileName:
        return "Bad file name or number";
    case ErrorCode::FileNotFound:
        return "File not found";
    case ErrorCode::DeviceIoError:
        return "Device I/O error";
    case ErrorCode::FileAlreadyExists:
        return "File already exists";
    case ErrorCode::DiskFull:
        return "Disk full";
    case ErrorCode::TooManyFiles:
        return "Too many files";
    case ErrorCode::PermissionDenied:
        return "Permission denied";
    case ErrorCode::PathFileAccess:
        return "Path/File access error";
    case ErrorCode::PathNotFound:
        return "Path not found";
    case ErrorCode::Loader:
        break;
    }
    return "Application-defined or object-defined error";
}

} // namespace

Error::Error(ErrorCode code) : Error(code, std::string(errorText(code))) {}

Error::Error(int number, std::string description) : m_number(number), m_description(std::move(description)) {}

Error::Error(ErrorCode code, std::string description) : Error(static_cast<int>(code), std::move(description)) {}

Error errorFromErrno(int value) {
    switch (value) {
    case ENOENT:
        return Error(ErrorCode::FileNotFound);
    case ENOTDIR:
        return Error(ErrorCode::PathNotFound);
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return Error(ErrorCode::DiskFull);
    case EMFILE:
    case ENFILE:
        return Error(ErrorCode::TooManyFiles);
    case EBADF:
    case EINVAL:
    case ENAMETOOLONG:
        return Error(ErrorCode::BadFileName);
    case EEXIST:
        return Error(ErrorCode::FileAlreadyExists);
    case EIO:
        return Error(ErrorCode::DeviceIoError);
    case ENOMEM:
        return Error(ErrorCode::OutOfMemory);
    default: // EACCES, EPERM, EROFS, EISDIR, EBUSY, ETXTBSY and the like
        return Error(ErrorCode::PathFileAccess);
    }
}

Error currentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::system_error& error) {
        return error.code().category() == std::generic_category() || error.code().category() == std::system_category()
                   ? errorFromErrno(error.code().default_error_condition().value())
                   : Error(ErrorCode::InternalError, error.what());
    } catch (const std::bad_alloc&) {
        return Error(ErrorCode::OutOfMemory);
    } catch (const std::length_error&) {
        return Error(ErrorCode::OutOfMemory);
    } catch (const std::out_of_range&) {
        return Error(ErrorCode::SubscriptOutOfRange);
    } catch (const std::exception& error) {
        return Error(ErrorCode::InternalError, error.what());
    } catch (...) {
        return Error(ErrorCode::InternalError);
    }
}

} // namespace vantor
