#pragma once

#include "runtime/RuntimeError.h"

#include <functional>
#include <map>
#include <string>

namespace quillon {

enum class Icon { Information, Exclamation, Critical };

/// The program's one error trap: runs a procedure and turns an error that escapes from it into the report the
/// user sees. A report word for word equal to the procedure's last one is not shown again until the procedure
/// has once ended without error, so that a fault which comes back every second means one message.
class ErrorTrap {
  public:
    /// Shows a report: its title, text and icon. Modal.
    using Report = std::function<void(const std::string& title, const std::string& text, Icon icon)>;

    /// `startup_step` is the step text that the procedures keep up to date; `message_text` receives each
    /// report's text: the step, a carriage return, "Error ", the number, a blank and the description.
    ErrorTrap(std::string& startup_step, std::string& message_text, Report report)
        : startup_step_(startup_step), message_text_(message_text), report_(std::move(report)) {}

    /// Returns whether the procedure ended without error. `title` names the procedure in its reports.
    bool Run(const std::string& title, Icon icon, const std::function<void()>& procedure);

    /// The same for what the user has asked for just now, who is told of a failure each time.
    bool RunCommand(const std::string& title, Icon icon, const std::function<void()>& procedure) {
        last_report_.erase(title);
        return Run(title, icon, procedure);
    }

    /// What the running procedure does just now; quoted in its report.
    std::string& StartupStep() { return startup_step_; }

    /// Forgets the step and the last report's text.
    void ClearTexts() {
        startup_step_.clear();
        message_text_.clear();
    }

  private:
    void Caught(const std::string& title, Icon icon, const RuntimeError& error);

    std::string& startup_step_;
    std::string& message_text_;
    Report report_;
    std::map<std::string, std::string> last_report_; // by title
};

} // namespace quillon
