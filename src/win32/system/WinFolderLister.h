#pragma once

#include "ports/FolderLister.h"

#include <memory>
#include <vector>

namespace quillon {

/// Lists each folder on a thread of its own, which may outlive this object. A folder whose listing is still
/// under way is not listed a second time.
class WinFolderLister : public FolderLister {
  public:
    void Begin(const std::string& folder) override;
    std::optional<FolderContent> Result() override;

  private:
    struct Listing;

    std::vector<std::shared_ptr<Listing>> under_way_;
    std::shared_ptr<Listing> wanted_;
};

} // namespace quillon
