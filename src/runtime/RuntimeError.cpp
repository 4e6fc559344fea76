#include "runtime/RuntimeError.h"

namespace quillon {

namespace {

const char* Describe(ErrorNumber number) {
    switch (number) {
    case InvalidCall:
        return "Invalid procedure call or argument";
    case Overflow:
        return "Overflow";
    case OutOfMemory:
        return "Out of memory";
    case SubscriptOutOfRange:
        return "Subscript out of range";
    case DivisionByZero:
        return "Division by zero";
    case TypeMismatch:
        return "Type mismatch";
    case InternalError:
        return "Internal error";
    case FileNotFound:
        return "File not found";
    case DeviceIoError:
        return "Device I/O error";
    case DiskFull:
        return "Disk full";
    case PermissionDenied:
        return "Permission denied";
    case PathFileAccessError:
        return "Path/File access error";
    case PathNotFound:
        return "Path not found";
    case PrinterError:
        return "Printer error";
    }
    return "Application-defined or object-defined error";
}

} // namespace

RuntimeError DescribedError(ErrorNumber number) {
    return {number, Describe(number)};
}

void Raise(ErrorNumber number) {
    throw DescribedError(number);
}

} // namespace quillon
