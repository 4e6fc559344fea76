#pragma once

#include "runtime/ErrorTrap.h"

#include <string>

namespace quillon {

/// The answers that a question offers. The default is No, except where it says otherwise.
enum class Choices { YesNo, YesNoCancel, YesByDefault };

/// Modal boxes. No other handler of the program runs while one is open.
class Prompts {
  public:
    virtual ~Prompts() = default;

    /// Shows a message; returns when the user has closed it. A carriage return ends a line.
    virtual void Message(const std::string& title, const std::string& text, Icon icon) = 0;

    /// Asks a question; returns whether the answer was Yes. A carriage return ends a line.
    virtual bool Confirm(const std::string& title, const std::string& text, Choices choices) = 0;

    /// Asks for a line of text; empty when the user cancelled. A carriage return ends a line of the prompt.
    virtual std::string InputBox(const std::string& title, const std::string& prompt,
                                 const std::string& default_answer) = 0;

    /// Asks for an existing file that matches the pattern ("*.wav"), which is shown by its description.
    /// Starts in `folder`, or where the system chooses if that is empty. Returns the file's path, empty if the
    /// user cancelled.
    virtual std::string BrowseFile(const std::string& description, const std::string& pattern,
                                   const std::string& folder) = 0;
};

} // namespace quillon
