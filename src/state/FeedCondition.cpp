#include "state/FeedCondition.h"

#include <algorithm>
#include <iterator>

namespace quillon {

namespace {

struct Row {
    SilenceCause Cause;
    const char* Words; // "%" is what it is about
};
constexpr Row Table[] = {
    {SilenceCause::None, ""},
    {SilenceCause::NoAddress, "The line has no address"},
    {SilenceCause::UnknownProtocol, "Must begin with http:// or https://"},
    {SilenceCause::BadAddress, "This is no address of a server"},
    {SilenceCause::UnplayableProtocol, "Quillon cannot play that"},
    {SilenceCause::ControlCharacters, "The playlist's entry has control characters"},
    {SilenceCause::Device, "The playlist leads to a device, not to a file"},
    {SilenceCause::ForeignServer, "The playlist leads to %, which no feed names"},
    {SilenceCause::NoSuchFile, "There is no such file"},
    {SilenceCause::NoSuchFolder, "Cannot reach %"},
    {SilenceCause::NoRecordings, "No recordings in %"},
    {SilenceCause::ServerNotFound, "Server not found"},
    {SilenceCause::ConnectionRefused, "The server takes no connections"},
    {SilenceCause::NoConnectionInTime, "No answer within ten seconds"},
    {SilenceCause::UselessAnswer, "The server answers nothing of use"},
    {SilenceCause::NoAnswerInTime, "Connected, but no answer within ten seconds"},
    {SilenceCause::NoAnswer, "No answer"},
    {SilenceCause::UnknownIssuer, "The server's certificate is from an unknown issuer"},
    {SilenceCause::CertificateExpired, "The server's certificate is not valid today"},
    {SilenceCause::CertificateOfAnother, "The server's certificate is for another name"},
    {SilenceCause::CertificateInvalid, "The server's certificate is not valid"},
    {SilenceCause::LeavesEncryption, "Refused: a redirect from https to http"},
    {SilenceCause::PrivateAddress, "Refused: it leads into a private network"},
    {SilenceCause::RedirectsInCircles, "Redirects in circles or to nowhere (%)"},
    {SilenceCause::WantsPassword, "The server wants a password (%)"},
    {SilenceCause::Refused, "The server refuses it (%)"},
    {SilenceCause::NoSuchFeed, "The server says: no such feed (%)"},
    {SilenceCause::GoneForGood, "The server says: gone for good (%)"},
    {SilenceCause::ServerTrouble, "The server has trouble (%)"},
    {SilenceCause::OtherStatus, "The server sends no sound (%)"},
    {SilenceCause::WebPage, "A web page, not sound"},
    {SilenceCause::SendsNothing, "The server answers, but sends nothing"},
    {SilenceCause::NotPlayable, "Nothing that Quillon can play"},
    {SilenceCause::NoDecoder, "No decoder for %"},
    {SilenceCause::CodingRefused, "This coding of waves is not taken from servers"},
    {SilenceCause::EmptyPlaylist, "The playlist is empty"},
    {SilenceCause::PlaylistsTooDeep, "Playlists within playlists, too deep"},
    {SilenceCause::Dropped, "The connection was lost"},
    {SilenceCause::Stalled, "The server has stopped sending"},
    {SilenceCause::TooSlow, "The sound comes too slowly"},
    {SilenceCause::NoSoundDevice, "No sound device"},
    {SilenceCause::NoRoom, "The system has no room to try it"},
};

constexpr bool IsInOrder() {
    for (std::size_t row = 0; row < std::size(Table); ++row)
        if (static_cast<std::size_t>(Table[row].Cause) != row) return false;
    return std::size(Table) == static_cast<std::size_t>(SilenceCause::NoRoom) + 1;
}
static_assert(IsInOrder());

} // namespace

std::string WordsOf(const SilenceReason& reason) {
    std::string words = Table[static_cast<std::size_t>(reason.Cause)].Words;
    if (const std::size_t place = words.find('%'); place != words.npos) words.replace(place, 1, reason.About);
    return words;
}

std::string WordsOf(const FeedCondition& condition) {
    std::string words = WordsOf(condition.Silence);
    const auto add = [&words](const std::string& more) { words += (words.empty() ? "" : ", ") + more; };
    if (condition.NextTry) add("next try in " + std::to_string(condition.NextTry->count()) + " s");
    if (condition.NotEncrypted) add(NotEncryptedWords);
    return words;
}

} // namespace quillon
