#include "runtime/ErrorTrap.h"

#include <new>
#include <stdexcept>

namespace quillon {

bool ErrorTrap::Run(const std::string& title, Icon icon, const std::function<void()>& procedure) {
    try {
        procedure();
        last_report_.erase(title);
        return true;
    } catch (const RuntimeError& error) {
        Caught(title, icon, error);
    } catch (const std::bad_alloc&) {
        Caught(title, icon, DescribedError(OutOfMemory));
    } catch (const std::length_error&) { // asked for more than there can be
        Caught(title, icon, DescribedError(OutOfMemory));
    } catch (...) {
        Caught(title, icon, DescribedError(InternalError));
    }
    return false;
}

void ErrorTrap::Caught(const std::string& title, Icon icon, const RuntimeError& error) {
    message_text_ = startup_step_ + "\rError " + std::to_string(error.Number) + " " + error.Description;
    std::string& last = last_report_[title];
    if (last == message_text_) return;
    last = message_text_;
    report_(title, message_text_, icon);
}

} // namespace quillon
