// Playlists: what is one, what it lists, and where its entries lead.
#include "player/ContentKind.h"
#include "player/LocalEntry.h"
#include "player/Playlists.h"
#include "player/Reach.h"

#include <gtest/gtest.h>
#include <sstream>

using namespace quillon;

namespace {

std::string Joined(const Entries& entries) {
    std::string text;
    for (const std::string& entry : entries) text += (text.empty() ? "" : " | ") + entry;
    return text;
}

TEST(Playlists, AreReadByContentOrElseByName) {
    const std::tuple<const char*, std::string, const char*, const char*> rows[] = {
        {"m3u", "#EXTM3U\r\n#EXTINF:-1,Tower\r\nhttp://h/a?x=1&y=2\r\n\r\n  b.mp3 \r\n", "",
         "http://h/a?x=1&y=2 | b.mp3"},
        {"plain list with old line ends", "http://h/a\rhttp://h/b\r", "x.m3u", "http://h/a | http://h/b"},
        {"last line without end", "a.mp3\nb.mp3", "x.m3u", "a.mp3 | b.mp3"},
        {"mark in front", "\xEF\xBB\xBFhttp://h/a\n", "x.m3u", "http://h/a"},
        {"Latin-1", "T\xFCrme.mp3", "x.m3u", "T\xC3\xBCrme.mp3"},
        {"m3u named pls", "#EXTM3U\nhttp://h/a\n", "x.pls", "http://h/a"},
        {"pls", "[Playlist]\nnumberofentries=2\nFile1=http://h/a?b=c\nTitle1=A\nLength1=-1\nVersion=2\n", "",
         "http://h/a?b=c"},
        {"pls in any order and case", "[playlist]\r\nfile10=c\r\nFILE2 = b\r\nFile1=a\r\nFile2=twice\r\n", "",
         "a | b | c"},
        {"pls without a head", "File1=http://h/a\nFilex=no\n=\n", "x.pls?y", "http://h/a"},
        {"asx",
         "<ASX version=\"3.0\">\n<!-- <ref href=\"no\"/> -->\n<Entry><Ref\n  HREF = 'http://h/a?x=1&amp;y=2' />"
         "</Entry><entryref href=\"b.asx\"/><Reference href=\"no\"/></ASX>",
         "", "http://h/a?x=1&y=2 | b.asx"},
        {"asx with a bare &", "<asx><ref href=\"http://h/a?x=1&y=2&copy;=3\"></asx>", "",
         "http://h/a?x=1&y=2&copy;=3"},
        {"asx without quotes", "<asx><ref href=http://h/a ></asx>", "", "http://h/a"},
        {"wpl",
         "<?wpl version=\"1.0\"?>\r\n<smil><head><title>T</title></head><body><seq>\r\n"
         "<media src=\"..\\Sounds\\A &amp; B &#x2192;&#252;.mp3\" tid=\"{1}\"/>\r\n<media tid=\"2>1\" "
         "src=\"b.wav\"/></seq></body></smil>",
         "", "..\\Sounds\\A & B \xE2\x86\x92\xC3\xBC.mp3 | b.wav"},
        {"wpl by name", "<playlist><media src='a'/></playlist>", "C:\\x.WPL", "a"},
        {"xspf",
         "<?xml version=\"1.0\"?><playlist xmlns=\"http://xspf.org/ns/0/\"><location>no</location><trackList>"
         "<track><title>x</title><LOCATION> http://h/a?x=1&amp;y=2 </LOCATION></track><!-- "
         "<location>no</location> -->"
         "<track><location>b.mp3</location></track></trackList></playlist>",
         "", "http://h/a?x=1&y=2 | b.mp3"},
        {"xspf cut short", "<trackList><location>http://h/a</location><location>b", "x.xspf", "http://h/a | b"},
        {"unknown markup", "<html><a href=\"http://h/a\">x</a></html>", "x.m3u", ""},
        {"cut short", "<asx><ref href=\"http://h/a\"/><ref href=\"http://h/b", "", "http://h/a | http://h/b"},
    };
    for (const auto& [rule, text, name, entries] : rows)
        EXPECT_EQ(Joined(ReadPlaylist(text, name)), entries) << rule;
}

TEST(Playlists, EntriesAreResolved) {
    const std::array<const char*, 3> rows[] = {
        {"http://h:81/radio/x.pls?y=z", "b.mp3", "http://h:81/radio/b.mp3"},
        {"http://h/radio/x.pls", "/b c", "http://h/b%20c"},
        {"https://h/x.m3u", "//i/b", "https://i/b"},
        {"http://h/x.m3u", "https://i/b", "https://i/b"},
        {"http://h/x.m3u", "C:\\Windows\\a.wav", "none"},
        {"http://h/x.m3u", "file:///C:/a.wav", "none"},
        {"http://h/x.m3u", "mms://i/b", "none"},
        {"C:\\Lists\\x.wpl", "..\\b.mp3", "C:\\Lists\\..\\b.mp3"},
        {"C:/Lists/x.wpl", "b.mp3", "C:/Lists/b.mp3"},
        {"x.m3u", "b.mp3", "b.mp3"},
        {"C:\\Lists\\x.m3u", "D:\\b.mp3", "D:\\b.mp3"},
        {"C:\\Lists\\x.m3u", "\\\\server\\b.mp3", "\\\\server\\b.mp3"},
        {"C:\\Lists\\x.m3u", "http://h/b", "http://h/b"},
        {"C:\\Lists\\x.m3u", "file://nas/My%20Sounds/b.mp3", "\\\\nas/My Sounds/b.mp3"},
        {"C:\\Lists\\x.m3u", "file://localhost/C:/b.mp3", "C:/b.mp3"},
        {"C:\\Lists\\x.m3u", "file://C:/b.mp3", "C:/b.mp3"},
        {"C:\\Lists\\x.m3u", "file:///C:/My%20Sounds/b%.mp3", "C:/My Sounds/b%.mp3"},
    };
    for (const auto& [from, entry, address] : rows)
        EXPECT_EQ(ResolveEntry(from, entry).value_or("none"), address) << entry;
}

TEST(LocalEntry, OpensFilesOnlyWhereTheUserHasSomethingToDoWith) {
    using enum SilenceCause;
    const std::tuple<std::string_view, SilenceCause, const char*> rows[] = {
        {"C:\\Lists\\b.mp3", None, ""},
        {"/lists/b.mp3", None, ""},
        {"\\\\NAS\\music\\b.mp3", None, ""},
        {"//own/music/b.mp3", None, ""},
        {"\\\\stranger\\music\\b.mp3", ForeignServer, "stranger"},
        {"/\\stranger/b.mp3", ForeignServer, "stranger"},
        {"\\/\\stranger@SSL@443\\b.mp3", ForeignServer, "stranger@ssl@443"},
        {"\\\\nas\\pipe\\x", Device, ""},
        {"\\\\.\\PhysicalDrive0", Device, ""},
        {"//?/C:/b.mp3", Device, ""},
        {"C:\\Lists\\nul.mp3", Device, ""},
        {"C:con", Device, ""},
        {"Com1 .wav", Device, ""},
        {"C:\\Lists\\b.mp3:hidden", Device, ""},
        {"C:\\Lists\\COMPASS.mp3", None, ""},
        {"C:\\pipe\\com.mp3", None, ""},
        {std::string_view("C:\\a.mp3\0.txt", 13), ControlCharacters, ""},
    };
    for (const auto& [path, cause, about] : rows)
        EXPECT_EQ(RefusalOf(path, "\\\\OWN\\lists\\x.m3u", {"nas"}), (SilenceReason{cause, about})) << path;
}

TEST(PrivateAddress, IsOneThatTheInternetDoesNotReach) {
    const auto is_private = [](const std::string& numbers) {
        std::istringstream text(numbers);
        std::vector<std::uint8_t> bytes;
        for (int number = 0; text >> number; text.get()) bytes.push_back(static_cast<std::uint8_t>(number));
        return IsPrivateAddress(bytes);
    };
    const std::string mapped = "0.0.0.0.0.0.0.0.0.0.255.255.", middle = ".0.0.0.0.0.0.0.0.0.0.0.0.0.";
    for (const char* own : {"0.0.0.0", "0.255.255.255", "10.0.0.0", "10.255.255.255", "100.64.0.0",
                            "100.127.255.255", "127.0.0.0", "127.255.255.255", "169.254.0.0", "169.254.255.255",
                            "172.16.0.0", "172.31.255.255", "192.168.0.0", "192.168.255.255"})
        EXPECT_TRUE(is_private(own) && is_private(mapped + own)) << own;
    for (const char* far : {"1.0.0.0", "9.255.255.255", "11.0.0.0", "100.63.255.255", "100.128.0.0",
                            "126.255.255.255", "128.0.0.0", "169.253.255.255", "169.255.0.0", "172.15.255.255",
                            "172.32.0.0", "192.167.255.255", "192.169.0.0"})
        EXPECT_FALSE(is_private(far) || is_private(mapped + far)) << far;
    for (const char* own : {"0.0", "252.0", "253.255", "254.128", "254.191"})
        EXPECT_TRUE(is_private(own + middle + "1")) << own;
    EXPECT_TRUE(is_private("0.0" + middle + "0"));
    for (const char* far : {"32.1", "251.255", "254.0", "254.192"})
        EXPECT_FALSE(is_private(far + middle + "1")) << far;
}

TEST(ContentKind, IsDetectedByFirstBytesAndAnnouncement) {
    using enum ContentKind;
    const std::tuple<std::string, ContentKind, ContentKind> rows[] = {
        {"\xFF\xFB\x90\x40", Frames, Frames},
        {"ID3\x04", Frames, Frames},
        {"RIFF", Wav, Wav},
        {"<ASX", Playlist, Playlist},
        {"\xEF\xBB\xBF\r\n #EXTM3U", Playlist, Playlist},
        {"[playlist]", Playlist, Playlist},
        {"http", Frames, Playlist},
        {"<!DOCTYPE html>", WebPage, WebPage},
        {"ADIF", Unsupported, Unsupported},
        {"V\xE0\x02..V\xE0\x02", Unsupported, Unsupported}, // LATM
        {"V\xE0\x02..V\xE0", Unknown, Unknown},
        {"V\xE0\x02..\xFF\xE0\x02", Frames, Playlist},
        {"\r\n\r\n#E", Unknown, Unknown},
        {"", Unknown, Unknown},
    };
    for (const auto& [text, unannounced, announced] : rows) {
        const ByteView bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
        EXPECT_EQ(KindOf(bytes, false), unannounced) << text;
        EXPECT_EQ(KindOf(bytes, true), announced) << text;
    }
    EXPECT_TRUE(AnnouncesPlaylist("", "C:\\Lists\\A.WPL"));
    EXPECT_TRUE(AnnouncesPlaylist("text/plain", "/listen.pls?id=1"));
    EXPECT_TRUE(AnnouncesPlaylist("audio/x-mpegurl", "/listen"));
    EXPECT_FALSE(AnnouncesPlaylist("audio/mpeg", "/listen.m3u"));
    EXPECT_FALSE(AnnouncesPlaylist("", "/listen?next=a.pls"));
}

} // namespace
