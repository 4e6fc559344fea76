#pragma once

#include "runtime/ErrorTrap.h"

#include <string>

namespace quillon {

/// The answers that a question offers. No is always the one that Enter gives.
enum class Choices { YesNo, YesNoCancel };

/// Modal windows that ask or tell. While one is up, the program's other handlers do not run.
class Prompts {
  public:
    virtual ~Prompts() = default;

    /// Tells the user something; returns when the user has closed the box. A carriage return ends a line.
    virtual void Message(const std::string& title, const std::string& text, Icon icon) = 0;

    /// Asks a question; returns whether the answer was Yes. A carriage return ends a line.
    virtual bool Confirm(const std::string& title, const std::string& text, Choices choices) = 0;

    /// Asks for a line of text; empty when the user cancelled. A carriage return ends a line of the prompt.
    virtual std::string InputBox(const std::string& title, const std::string& prompt,
                                 const std::string& default_answer) = 0;

    /// Asks for an existing file whose name fits the pattern ("*.wav"), which is shown under its description.
    /// Returns its path, empty when the user cancelled.
    virtual std::string BrowseFile(const std::string& description, const std::string& pattern) = 0;
};

} // namespace quillon
