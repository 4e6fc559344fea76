#pragma once

#include "simlink/FsuipcClient.h"
#include "simlink/RadioReadout.h"
#include "simlink/SimInquiry.h"
#include "state/Forms.h"
#include "state/PlaybackState.h"

#include <array>
#include <string>

namespace quillon {

/// The status dialog of the simulator link.
class FsuipcStatus {
  public:
    FsuipcStatus(frmShow_FSUIPC& form, RadioState& radio, FsuipcClient& link, RadioReadout& readout,
                 SimInquiry& inquiry)
        : form_(form), radio_(radio), link_(link), readout_(readout), inquiry_(inquiry) {}

    /// Reads the four radios and shows them with the module's version and the simulator's name; says why if
    /// there is no link. Leaves the last radio's offset as the followed one's until the next tick sets it.
    void mnuFSUPIC_Click();

    void Command1_Click() { form_.Visible = false; }

  private:
    struct Answer {
        std::int32_t version = 0;
        std::uint32_t simulator = 0; ///< 0: there is no link
        std::uint32_t trouble = 0;   ///< the system's error
        std::array<std::string, 4> radios;
    };

    Answer AskNow();
    void Show(const Answer& answer);

    frmShow_FSUIPC& form_;
    RadioState& radio_;
    FsuipcClient& link_;
    RadioReadout& readout_;
    SimInquiry& inquiry_;
};

} // namespace quillon
