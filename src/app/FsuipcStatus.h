#pragma once

#include "simlink/FsuipcClient.h"
#include "simlink/RadioReadout.h"
#include "state/Forms.h"
#include "state/PlaybackState.h"

namespace quillon {

/// The status dialog of the simulator link.
class FsuipcStatus {
  public:
    FsuipcStatus(frmShow_FSUIPC& form, RadioState& radio, FsuipcClient& link, RadioReadout& readout)
        : form_(form), radio_(radio), link_(link), readout_(readout) {}

    /// Reads the four radios and shows them with the module's version and the simulator's name; says why if
    /// there is no link. Leaves the last radio's offset as the followed one's until the next tick sets it.
    void mnuFSUPIC_Click();

    void Command1_Click() { form_.Visible = false; }

  private:
    std::string Radios();
    std::string Trouble() const;

    frmShow_FSUIPC& form_;
    RadioState& radio_;
    FsuipcClient& link_;
    RadioReadout& readout_;
};

} // namespace quillon
