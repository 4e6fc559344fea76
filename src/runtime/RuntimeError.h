#pragma once

#include <cstdint>
#include <string>

namespace quillon {

/// Run-time error numbers, as the user sees them in error reports.
enum ErrorNumber : std::int32_t {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    InternalError = 51, ///< whatever has no number of its own
    FileNotFound = 53,
    DeviceIoError = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76,
    PrinterError = 482,
};

/// An error that ends the running procedure; its error trap shows it.
struct RuntimeError {
    std::int32_t Number;
    std::string Description;
};

/// The error of that number with its fixed description ("Overflow", "File not found", ...).
RuntimeError DescribedError(ErrorNumber number);

/// Throws that error.
[[noreturn]] void Raise(ErrorNumber number);

} // namespace quillon
