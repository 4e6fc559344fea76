#pragma once

namespace quillon {

/// Keeps a flag set until the end of a block, however the block ends.
class WhileSet {
  public:
    explicit WhileSet(bool& flag) : flag_(flag) { flag_ = true; }
    ~WhileSet() { flag_ = false; }
    WhileSet(const WhileSet&) = delete;
    WhileSet& operator=(const WhileSet&) = delete;

  private:
    bool& flag_;
};

} // namespace quillon
