#pragma once

#include "runtime/ErrorTrap.h"

#include <string>

namespace quillon {

/// Modal windows that ask or tell. While one is up, the program's other handlers do not run.
class Prompts {
  public:
    virtual ~Prompts() = default;

    /// Tells the user something; returns when the user has closed the box. A carriage return ends a line.
    virtual void Message(const std::string& title, const std::string& text, Icon icon) = 0;

    /// Asks for a line of text; empty when the user cancelled. A carriage return ends a line of the prompt.
    virtual std::string InputBox(const std::string& title, const std::string& prompt,
                                 const std::string& default_answer) = 0;

    /// Shows `frmMuteKey` with that option (1 to 4) selected, 0 for none. Returns the option that the user set,
    /// 0 when the dialog was closed without setting one.
    virtual int MuteKeyDialog(int option) = 0;
};

} // namespace quillon
