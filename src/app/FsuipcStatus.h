#pragma once

#include "simlink/FsuipcClient.h"
#include "simlink/RadioReadout.h"
#include "state/ProgramState.h"

namespace quillon {

/// The status dialog of the simulator link.
class FsuipcStatus {
  public:
    FsuipcStatus(ProgramState& state, FsuipcClient& link, RadioReadout& readout)
        : state_(state), link_(link), readout_(readout) {}

    /// Reads the four radios and shows them with the module's version and the simulator's name; says why when
    /// there is no link. The followed radio's offset is the last one's afterwards, until the next tick sets it.
    void mnuFSUPIC_Click();

    void Command1_Click() { state_.fsuipcStatus.Visible = false; }

  private:
    std::string Radios();
    std::string Trouble() const;

    ProgramState& state_;
    FsuipcClient& link_;
    RadioReadout& readout_;
};

} // namespace quillon
