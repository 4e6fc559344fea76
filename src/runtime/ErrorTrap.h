#pragma once

#include "runtime/RuntimeError.h"

#include <functional>
#include <map>
#include <string>

namespace quillon {

enum class Icon { Information, Exclamation, Critical };

/// The program's one error trap: runs a procedure and shows the user a report of any exception that
/// escapes from it.
/// The procedure's last report is not repeated until the procedure has succeeded, so that an error that recurs
/// every second means one message.
class ErrorTrap {
  public:
    /// Shows a report: its title, text and icon. Modal.
    using Report = std::function<void(const std::string& title, const std::string& text, Icon icon)>;

    /// `startup_step` says what the procedures are doing and is kept up to date by them; `message_text`
    /// receives each report's text: the step, a carriage return, "Error ", the number, a blank and the
    /// description.
    ErrorTrap(std::string& startup_step, std::string& message_text, Report report)
        : startup_step_(startup_step), message_text_(message_text), report_(std::move(report)) {}

    /// Returns whether the procedure succeeded. `title` names the procedure in its reports.
    bool Run(const std::string& title, Icon icon, const std::function<void()>& procedure);

    /// The same for a command of the user's, whose every failure is reported.
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
