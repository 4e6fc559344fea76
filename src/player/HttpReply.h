#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace quillon {

/// Parses the head of a server's reply, in pieces of any size. Streaming servers answer "HTTP/1.x 200 OK" or
/// "ICY 200 OK", end lines with or without a carriage return, and may omit the blank after a header's colon.
class HttpReply {
  public:
    enum class Progress { Head, Complete, Malformed };

    static constexpr std::size_t MaximumHead = 65536;

    /// Takes bytes as they arrive. Malformed if this is not such a reply, or its head exceeds MaximumHead
    /// bytes. Must not be called again after Complete or Malformed.
    Progress Feed(std::string_view bytes);

    // The following are valid once the head is complete.

    int Status() const { return status_; }

    /// The value of the first header of that name (lower case); empty if there is none.
    std::string Header(const std::string& name) const;

    /// The content type in lower case, without parameters.
    std::string ContentType() const;

    /// The bytes that followed the head.
    std::string TakeBody() { return std::move(buffer_); }

  private:
    bool TakeStatusLine(std::string_view line);
    void TakeHeaderLine(std::string_view line);
    bool StartsLikeAReply() const;

    std::string buffer_;
    std::size_t taken_ = 0; // bytes of complete lines
    int status_ = 0;
    std::map<std::string, std::string> headers_;
};

} // namespace quillon
