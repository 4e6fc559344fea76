#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace quillon {

/// The head of a server's reply, taken in pieces of any size. Servers of live audio answer "HTTP/1.x 200 OK" or
/// "ICY 200 OK", end lines with or without a carriage return and put a blank behind a header's colon or not.
class HttpReply {
  public:
    enum class Progress { Head, Complete, Malformed };

    static constexpr std::size_t MaximumHead = 65536;

    /// Takes bytes as they come. Malformed: this is no such reply, or its head goes on after MaximumHead bytes.
    /// Not to be called again after anything but Head.
    Progress Feed(std::string_view bytes);

    /// What follows is meaningful once the head is complete.
    int Status() const { return status_; }

    /// The value of the header of that name (in lower case), empty without one; the first counts.
    std::string Header(const std::string& name) const;

    /// The content type in lower case, without parameters.
    std::string ContentType() const;

    /// The bytes that came behind the head.
    std::string TakeBody() { return std::move(buffer_); }

  private:
    bool TakeStatusLine(std::string_view line);
    void TakeHeaderLine(std::string_view line);
    bool StartsLikeAReply() const;

    std::string buffer_;
    std::size_t taken_ = 0; // bytes of finished lines
    int status_ = 0;
    std::map<std::string, std::string> headers_;
};

} // namespace quillon
