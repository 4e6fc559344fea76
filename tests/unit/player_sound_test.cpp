// MP3 frames, WAV files, the queue of decoded sound, and sound without clicks.
#include "PlayerBytes.h"
#include "player/AudioFrames.h"
#include "player/Headroom.h"
#include "player/SmoothSound.h"
#include "player/WavFile.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>

using namespace quillon;
using namespace std::chrono_literals;

namespace {

ByteView View(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

TEST(Mp3Header, IsParsed) {
    const std::pair<const char*, std::optional<FrameFormat>> rows[] = {
        {"\xFF\xFB\x90\x40", FrameFormat{FrameCoding::Mp3, 44100, 2, 128000, 1152, 417}},
        {"\xFF\xFB\x92\x40", FrameFormat{FrameCoding::Mp3, 44100, 2, 128000, 1152, 418}}, // padded
        {"\xFF\xFA\xE4\xC0", FrameFormat{FrameCoding::Mp3, 48000, 1, 320000, 1152, 960}},
        {"\xFF\xFB\x18\x40", FrameFormat{FrameCoding::Mp3, 32000, 2, 32000, 1152, 144}},
        {"\xFF\xF3\x40\xC0", FrameFormat{FrameCoding::Mp3, 22050, 1, 32000, 576, 104}},
        {"\xFF\xF3\xE4\x40", FrameFormat{FrameCoding::Mp3, 24000, 2, 160000, 576, 480}},
        {"\xFF\xE3\x18\xC0", FrameFormat{FrameCoding::Mp3, 8000, 1, 8000, 576, 72}}, // MPEG 2.5
        {"\xFF\xE3\x20\x40", FrameFormat{FrameCoding::Mp3, 11025, 2, 16000, 576, 104}},
        {"\xFF\xFB\x00\x40", {}}, // free format
        {"\xFF\xFB\xF0\x40", {}}, // no such bit rate
        {"\xFF\xFB\x9C\x40", {}}, // no such sample rate
        {"\xFF\xFD\x90\x40", {}}, // layer II
        {"\xFF\xEB\x90\x40", {}}, // no such version
        {"\xFF\xFB\x90\x42", {}}, // no such emphasis
        {"\xFF\x7B\x90\x40", {}},
        {"\x7F\xFB\x90\x40", {}},
    };
    for (const auto& [bytes, format] : rows) EXPECT_EQ(ParseMp3Header(View({bytes, 4})), format) << bytes;
    EXPECT_FALSE(ParseMp3Header(View("\xFF\xFB\x90")));
}

TEST(AdtsHeader, IsParsed) {
    const std::pair<const char*, std::optional<FrameFormat>> rows[] = {
        {"\xFF\xF1\x50\x80\x2E\x7F\xFC", FrameFormat{FrameCoding::Aac, 44100, 2, 0, 1024, 371}},
        {"\xFF\xF8\x5C\x40\x2E\x7F\xFD", FrameFormat{FrameCoding::Aac, 22050, 1, 0, 2048, 371}},
        {"\xFF\xF1\x40\x83\xFF\xFF\xFC", FrameFormat{FrameCoding::Aac, 96000, 2, 0, 1024, 8191}},
        {"\xFF\xF1\x70\x40\x01\x1F\xFC", FrameFormat{FrameCoding::Aac, 7350, 1, 0, 1024, 8}},
        {"\xFF\xF1\x70\x40\x01\xE0\xFC", FrameFormat{FrameCoding::Aac, 7350, 1, 0, 1024, 15}},
        {"\xFF\xF1\x70\x40\x00\xFF\xFC", {}}, // shorter than its header
        {"\xFF\xF1\x74\x40\x2E\x7F\xFC", {}}, // no such rate
        {"\xFF\xF1\x10\x80\x2E\x7F\xFC", {}}, // main profile
        {"\xFF\xF1\x51\x80\x2E\x7F\xFC", {}}, // six channels
        {"\xFF\xF1\x50\x00\x2E\x7F\xFC", {}}, // channels not given
        {"\xFF\xF3\x50\x80\x2E\x7F\xFC", {}}, // MP3's layer
    };
    for (const auto& [bytes, format] : rows) {
        const std::string header(bytes, 7);
        EXPECT_EQ(ParseAdtsHeader(View(header)), format) << format.has_value();
        EXPECT_FALSE(ParseAdtsHeader(View(header).first(6)));
    }
}

/// The sample rates of the frames found, in kHz, when the bytes come in pieces of `step`.
std::string Found(std::string_view bytes, std::size_t step) {
    AudioFrames frames;
    std::string found;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(step, bytes.size()))) {
        frames.Feed(View(bytes.substr(0, step)));
        while (const auto frame = frames.Next()) {
            EXPECT_TRUE(ParseMp3Header(frame->bytes) == frame->format ||
                        ParseAdtsHeader(frame->bytes) == frame->format);
            EXPECT_EQ(frame->bytes.size(), frame->format.frame_bytes);
            found += std::to_string(frame->format.sample_rate / 1000) + " ";
        }
    }
    return found;
}

TEST(AudioFrames, AreFoundBetweenOtherData) {
    const std::string tag =
        std::string("ID3\x04\x00\x00\x00\x00\x03\x74", 10) + Frames(1) + std::string(83, 'x');
    const std::string lone_header("\xFF\xFB\x90\x40", 4);
    const std::pair<std::string, std::string> rows[] = {
        {Frames(3), "44 44 44 "},
        {"", ""},
        {Frames(3).substr(100), "44 44 "},                // joined in mid-frame
        {Frames(2) + Frames(1).substr(0, 300), "44 44 "}, // cut in mid-frame
        {tag + Frames(2), "44 44 "},                      // the frame inside the tag does not count
        {tag + tag + Frames(2), "44 44 "},
        {Frames(2) + tag + Frames(2), "44 44 44 44 "},
        {"here it is none: " + tag.substr(0, 10) + Frames(2), "44 44 "},
        {lone_header + std::string(700, 'x') + Frames(2), "44 44 "}, // no frame follows
        {Frames(2) + "garbage" + lone_header + "more" + Frames(2), "44 44 44 44 "},
        {Frames(2) + SlowFrames(2) + Frames(2), "44 44 22 22 44 44 "}, // change of format
        {lone_header + std::string(413, 'x') + SlowFrames(2), "22 22 "},
        {tag + AacFrames(3), "48 48 48 "},
        {AacFrames(3).substr(100) + "garbage" + AacFrames(2), "48 48 48 48 "},
        {AacFrames(2) + Frames(2) + AacFrames(2), "48 48 44 44 48 48 "},
    };
    for (const auto& [bytes, found] : rows)
        for (const std::size_t step : {1U, 3U, 100U, 100000U}) EXPECT_EQ(Found(bytes, step), found) << step;
}

TEST(AudioFrames, CountSkippedBytes) {
    AudioFrames frames;
    frames.Feed(View(std::string(70000, 'x')));
    EXPECT_FALSE(frames.Next());
    EXPECT_GT(frames.Skipped(), 69000U);
    frames.Feed(View(Frames(2)));
    EXPECT_TRUE(frames.Next());
    EXPECT_EQ(frames.Skipped(), 0U);
}

struct Heard {
    bool good = true;
    PcmFormat format;
    Samples samples;
};

Heard ReadWav(std::string_view bytes, std::size_t step, WavFile::OpenDecoder open = {}) {
    WavFile file(std::move(open));
    Heard heard;
    for (; !bytes.empty() && heard.good; bytes.remove_prefix(std::min(step, bytes.size())))
        heard.good = file.Feed(View(bytes.substr(0, step)), heard.samples);
    heard.format = file.Format();
    return heard;
}

TEST(WavFile, IsReadAs16BitSamples) {
    const std::string extensible =
        Chunk("fmt ", FormatChunk(0xFFFE, 1, 8000, 16).substr(8) + std::string(8, '\0') + LittleEndian(1, 2) +
                          std::string(14, '\x7F'));
    const std::string odd_chunk = Chunk("LIST", "odd");
    const std::string mono16 = FormatChunk(1, 1, 22050, 16);
    const std::string two = LittleEndian(0x8001FFFE, 4); // -2 and -32767
    const std::tuple<const char*, std::string, PcmFormat, Samples> rows[] = {
        {"16 bits", Riff(mono16 + Chunk("data", two)), {22050, 1}, {-2, -32767}},
        {"8 bits",
         Riff(FormatChunk(1, 1, 8000, 8) + Chunk("data", {"\x00\x80\xFF", 3})),
         {8000, 1},
         {-32768, 0, 32512}},
        {"24 bits",
         Riff(FormatChunk(1, 2, 48000, 24) + Chunk("data", "\x99\x02\x01\x99\xFE\xFF")),
         {48000, 2},
         {258, -2}},
        {"32 bits", Riff(FormatChunk(1, 1, 96000, 32) + Chunk("data", "\x99\x99\x02\x01")), {96000, 1}, {258}},
        {"extensible", Riff(extensible + Chunk("data", two)), {8000, 1}, {-2, -32767}},
        {"odd chunk first",
         Riff(odd_chunk + mono16 + odd_chunk + Chunk("data", two)),
         {22050, 1},
         {-2, -32767}},
        {"chunk behind", Riff(mono16 + Chunk("data", two) + odd_chunk + odd_chunk), {22050, 1}, {-2, -32767}},
        {"data cut short",
         Riff(mono16 + "data" + LittleEndian(0xFFFFFFFF, 4) + two + "x"),
         {22050, 1},
         {-2, -32767}},
        {"half a sample", Riff(mono16 + Chunk("data", two + "x") + odd_chunk), {22050, 1}, {-2, -32767}},
    };
    for (const auto& [name, bytes, format, samples] : rows) {
        for (const std::size_t step : {1U, 5U, 1000U}) {
            const Heard heard = ReadWav(bytes, step);
            EXPECT_TRUE(heard.good) << name;
            EXPECT_EQ(heard.format, format) << name;
            EXPECT_EQ(heard.samples, samples) << name << ", " << step;
        }
    }
}

TEST(WavFile, RejectsWhatCannotBePlayed) {
    const std::pair<const char*, std::string> rows[] = {
        {"other form", "RIFF\x04\x01\x01\x01"
                       "AVI " +
                           FormatChunk(1, 1, 8000, 16)},
        {"no codec", Riff(FormatChunk(7, 1, 8000, 8))},
        {"three channels", Riff(FormatChunk(1, 3, 8000, 16))},
        {"no channels", Riff(FormatChunk(1, 0, 8000, 16))},
        {"12 bits", Riff(FormatChunk(1, 1, 8000, 12))},
        {"rate 0", Riff(FormatChunk(1, 1, 0, 16))},
        {"rate too high", Riff(FormatChunk(1, 1, 0xFFFFFFFF, 16))},
        {"short format", Riff(Chunk("fmt ", "\x01"))},
        {"data first", Riff(Chunk("data", "xx") + FormatChunk(1, 1, 8000, 16))},
    };
    for (const auto& [name, bytes] : rows) EXPECT_FALSE(ReadWav(bytes, 1000).good) << name;
}

/// Decodes anything; a block becomes one sample, its size.
class AnyCodec : public SoundDecoder {
  public:
    bool Decode(ByteView bytes, Samples& samples) override {
        if (!bytes.empty()) samples.push_back(static_cast<std::int16_t>(bytes.size()));
        return true;
    }
    PcmFormat Format() const override { return {}; }
};

/// A file with 200 bytes of sound.
std::string Coded(unsigned kind, unsigned channels, unsigned block, unsigned bits, const std::string& extra) {
    return Riff(Chunk("fmt ", LittleEndian(kind, 2) + LittleEndian(channels, 2) + LittleEndian(8000, 4) +
                                  LittleEndian(1, 4) + LittleEndian(block, 2) + LittleEndian(bits, 2) + extra) +
                Chunk("data", std::string(200, 'x')));
}

TEST(WavFile, GivesCodecsWholeBlocksOfConsistentFormats) {
    const auto extra = [](unsigned samples, unsigned rest = 0) {
        return LittleEndian(2 + rest, 2) + LittleEndian(samples, 2) + std::string(rest, '\7');
    };
    const std::string factors = LittleEndian(32, 2) + LittleEndian(2 * (50 - 7) + 2, 2) + LittleEndian(7, 2);
    const std::string all_factors = factors + std::string(28, 'x');
    const std::tuple<const char*, std::string, int> rows[] = {
        {"mu-law", Coded(7, 1, 1, 8, ""), 200},
        {"A-law", Coded(6, 2, 2, 8, LittleEndian(99, 2)), 200}, // declares more bytes than there are
        {"A-law, odd block", Coded(6, 2, 1, 8, ""), 0},
        {"ADPCM", Coded(2, 1, 50, 4, all_factors), 200},
        {"ADPCM, factors missing", Coded(2, 1, 50, 4, factors), 0},
        {"ADPCM, more samples than bytes", Coded(2, 1, 48, 4, all_factors), 0},
        {"IMA", Coded(0x11, 2, 72, 4, extra(65)), 144},
        {"IMA, no samples", Coded(0x11, 2, 72, 4, extra(0)), 0},
        {"IMA, small block", Coded(0x11, 2, 8, 4, extra(1)), 0},
        {"GSM", Coded(0x31, 1, 65, 0, extra(320)), 195},
        {"MP3", Coded(0x55, 1, 1152, 0, extra(1, 10)), 200},
        {"MP3 and more", Coded(0x55, 1, 1152, 0, extra(1, 10) + "more"), 200},
        {"MP3, cut short", Coded(0x55, 1, 1152, 0, extra(1, 9)), 0},
        {"other", Coded(0x22, 1, 32, 1, ""), 192},
        {"other, no block", Coded(0x22, 1, 0, 1, ""), 0},
    };
    for (const auto& [name, bytes, taken] : rows) {
        for (const std::size_t step : {7U, 1000U}) {
            const Heard heard = ReadWav(bytes, step, [](const WaveFormat& format) {
                EXPECT_EQ(format.header.size(), 18U + format.header[16]) << "extra bytes";
                return std::make_unique<AnyCodec>();
            });
            EXPECT_EQ(heard.good, taken > 0) << name;
            EXPECT_EQ(std::accumulate(heard.samples.begin(), heard.samples.end(), 0), taken) << name << step;
        }
    }
}

TEST(PcmQueue, KeepsOrderFormatAndLength) {
    PcmQueue queue;
    queue.Push({1000, 1}, {1, 2, 3});
    queue.Push({1000, 1}, {4, 5});
    queue.Push({1000, 2}, {6, 7, 8, 9});
    EXPECT_EQ(queue.Length(), 7ms);
    EXPECT_EQ(queue.Take(4ms), (Samples{1, 2, 3, 4}));
    EXPECT_EQ(queue.Take(4ms), (Samples{5})); // never two formats in one
    EXPECT_EQ(queue.NextFormat(), (PcmFormat{1000, 2}));
    queue.KeepLatest(1ms);
    EXPECT_EQ(queue.Take(4ms), (Samples{8, 9}));
    EXPECT_TRUE(queue.Empty());
    EXPECT_EQ(queue.Length(), 0ms);
}

/// Sound at 8 kHz, where a ramp is 80 samples long, and what has been taken of it.
class Smooth : public testing::Test {
  protected:
    void Take(std::size_t count) {
        Samples room(count);
        sound.Take(room);
        taken.insert(taken.end(), room.begin(), room.end());
    }
    int LargestStep() const {
        int largest = 0;
        for (std::size_t at = 1; at < taken.size(); ++at)
            largest = std::max(largest, std::abs(taken[at] - taken[at - 1]));
        return largest;
    }
    double Loud() const {
        return static_cast<double>(std::count_if(taken.begin(), taken.end(), [](int s) { return s != 0; }));
    }

    SmoothSound sound{{8000, 1}};
    Samples taken{0};
};

TEST_F(Smooth, BeginsAndRunsOutAlongRamps) {
    sound.Push(Samples(400, 8000));
    Take(390);
    EXPECT_EQ(taken[200], 8000);
    sound.Push(Samples(100, 8000)); // just in time: it had begun to end
    Take(200);
    EXPECT_TRUE(sound.IsSilent());
    sound.Push(Samples(200, 8000));
    Take(300);
    EXPECT_LE(LargestStep(), 110);
    EXPECT_NEAR(Loud(), 700, 5);
}

TEST_F(Smooth, PausesWithinARampAndResumesInItsPlace) {
    sound.Push(Samples(1000, 8000));
    Take(300);
    sound.SetPaused(true);
    Take(500);
    EXPECT_TRUE(sound.IsSilent());
    EXPECT_NEAR(static_cast<double>(sound.Length().count()), (1000 - 380) * 125, 250);
    sound.SetPaused(false, 50ms);
    Take(200);
    EXPECT_LT(taken.back(), 4100);
    Take(500);
    EXPECT_LE(LargestStep(), 110);
    EXPECT_NEAR(Loud(), 1000, 5);
}

TEST_F(Smooth, ChangesItsVolumeAlongARamp) {
    sound.SetVolume(25); // before the first sound: from there
    sound.Push(Samples(1000, 8000));
    Take(300);
    EXPECT_EQ(taken.back(), 2000);
    sound.SetVolume(100);
    Take(300);
    EXPECT_EQ(taken.back(), 8000);
    EXPECT_LE(LargestStep(), 110);
}

TEST_F(Smooth, BeginsPausedAtOnce) {
    sound.SetPaused(true, 0ms);
    sound.Push(Samples(500, 8000));
    Take(100);
    EXPECT_EQ(Loud(), 0);
}

TEST(Headroom, GrowsWhenADeviceRunsDryAndShrinksEverMoreSlowly) {
    Headroom headroom;
    const auto length = [&headroom](Headroom::Time now) {
        headroom.PlaysOn(now);
        return headroom.Length();
    };
    headroom.RanDry(100s);
    EXPECT_EQ(length(219s), 20ms);
    headroom.FoundLeft(5ms, 219s);
    EXPECT_EQ(length(220s), 10ms);
    headroom.FoundLeft(2ms, 220s);
    EXPECT_EQ(length(339s), 20ms) << "nearly dry";
    EXPECT_EQ(length(340s), 10ms);
    for (int time = 0; time < 9; ++time) headroom.RanDry(400s);
    EXPECT_EQ(length(3999s), 160ms);
    EXPECT_EQ(length(4000s), 80ms);
}

} // namespace
