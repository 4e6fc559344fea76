#pragma once

#include "playback/SimWatch.h"
#include "ports/AnsiCodePage.h"
#include "ports/Background.h"
#include "ports/Clock.h"
#include "ports/Dialogs.h"
#include "ports/Display.h"
#include "ports/FeedProbe.h"
#include "ports/FolderLister.h"
#include "ports/Keyboard.h"
#include "ports/LiveFeed.h"
#include "ports/Printer.h"
#include "ports/Prompts.h"
#include "ports/RegionalSettings.h"
#include "ports/Shell.h"
#include "ports/SoundDevices.h"
#include "ports/UserFiles.h"
#include "runtime/Files.h"
#include "simlink/SimInquiry.h"

#include <deque>
#include <functional>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillon {

/// Keeps what the user was told.
class FakePrompts : public Prompts {
  public:
    struct Shown {
        std::string title;
        std::string text;
        Icon icon;

        bool operator==(const Shown&) const = default;
        friend std::ostream& operator<<(std::ostream& out, const Shown& shown) {
            return out << shown.title << ": " << shown.text << " (icon " << static_cast<int>(shown.icon) << ")";
        }
    };

    void Message(const std::string& title, const std::string& text, Icon icon) override {
        messages.push_back({title, text, icon});
        if (meanwhile) meanwhile();
    }
    std::string InputBox(const std::string&, const std::string& prompt,
                         const std::string& default_answer) override {
        asked = {prompt, default_answer};
        return answer;
    }
    bool Confirm(const std::string& title, const std::string& text, Choices offered) override {
        questions.push_back(title + ": " + text);
        choices.push_back(offered);
        return yes;
    }
    std::string BrowseFile(const std::string&, const std::string& pattern, const std::string& folder) override {
        asked = {pattern, folder};
        return answer;
    }
    ErrorTrap::Report AsReport() {
        return [this](const auto& title, const auto& text, Icon icon) { Message(title, text, icon); };
    }

    std::vector<Shown> messages;
    std::string answer;                        ///< what the user will type
    std::pair<std::string, std::string> asked; ///< prompt and default answer of the last question
    std::vector<std::string> questions;
    std::vector<Choices> choices;    ///< of each
    bool yes = true;                 ///< the answer to them
    std::function<void()> meanwhile; ///< what happens while a box is up
};

class FakeDialogs : public Dialogs {
  public:
    std::optional<int> MuteKey(int key) override {
        shown_key = key;
        return set_key;
    }
    bool About() override { return true; }
    std::string ProgramFolders(const Folders& folders) override { return folders.DataPath; }

    int shown_key = -1; ///< of the mute key's dialog
    std::optional<int> set_key;
};

/// Keeps what went to the recycle bin.
class FakeUserFiles : public UserFiles {
  public:
    void Delete2Recycle(const std::string& path) override {
        bin.push_back(ReadFile(path));
        DeleteFileAt(path);
    }
    bool SetFileDateTime(const std::string& path, TimePoint) override {
        stamped = path;
        return true;
    }

    std::vector<std::string> bin;
    std::string stamped;
};

/// Time that passes only where the program waits.
class FakeClock : public Clock {
  public:
    TimePoint Now() override { return now; }
    std::chrono::milliseconds Uptime() override { return passed; }
    void Sleep(std::chrono::milliseconds time) override {
        now += time;
        passed += time;
    }
    bool ServeEvents(std::chrono::milliseconds time) override {
        Sleep(time);
        return !events || events();
    }

    TimePoint now{std::chrono::hours(1)};
    std::chrono::milliseconds passed{0};
    std::function<bool()> events; ///< what happens in each slice of a wait; false: the program is ending
};

/// Does its work at once, or holds it until Finish.
class FakeBackground : public Background {
  public:
    void Start(std::function<void()> work, std::function<void()> done) override {
        if (fails) throw std::bad_alloc();
        jobs_.push_back({std::move(work), std::move(done)});
        if (!held) Finish();
    }
    bool Busy() override { return !jobs_.empty(); }
    void Finish() {
        while (!jobs_.empty()) {
            const auto [work, done] = std::move(jobs_.front());
            jobs_.pop_front();
            work();
            done();
        }
    }

    bool held = false;
    bool fails = false;

  private:
    std::deque<std::pair<std::function<void()>, std::function<void()>>> jobs_;
};

/// Lists when it is asked for the result, unless it is held.
class FakeFolderLister : public FolderLister {
  public:
    void Begin(const std::string& folder) override {
        asked = folder;
        ++listings;
    }
    std::optional<FolderContent> Result() override {
        if (held || asked.empty()) return std::nullopt;
        const std::string folder = std::exchange(asked, "");
        return FolderContent{FolderExists(folder), WaveFilesIn(folder)};
    }

    bool held = false;
    int listings = 0;
    std::string asked;
};

/// Asks and goes on at once, in a program that ends with its simulator.
struct FakeInquiry : SimInquiry, SimPresence {
    void Ask(std::function<void()> question, std::function<void()> then) override { question(), then(); }
    bool Gone() override { return false; }
    bool Back() override { return true; }
};

/// Plays at once whatever it is given, and reports the states of the real players.
class FakePlayer : public FeedPlayer {
  public:
    void SetUrl(const std::string& new_url) override {
        url = new_url;
        if (!url.empty()) urls.push_back(url);
        state = url.empty() ? Undefined : Playing;
    }
    PlayState State() override { return state; }
    void Play() override {
        if (!url.empty()) state = Playing;
    }
    void Pause() override {
        if (state == Playing) state = Paused;
    }
    void FadeOut() override {
        ++fades;
        Pause();
    }
    void Stop() override { state = Stopped; }
    void SetVolume(int new_volume) override { volume = new_volume; }
    std::string Title() const override { return title; }
    FeedCondition Condition() const override { return condition; }
    void Reload() override { ++reloads; }
    void SetUserAgent(const std::string& text) override { user_agent = text; }
    void SetFileServers(const FileServers& servers) override { file_servers = servers; }

    std::string url;
    std::vector<std::string> urls; ///< all it was given
    PlayState state = Undefined;
    int volume = -1;
    int fades = 0;
    std::string title;
    FeedCondition condition;
    int reloads = 0;
    FileServers file_servers;
    std::string user_agent;
};

class FakeKeyboard : public Keyboard {
  public:
    bool IsDown(int virtual_key) override { return down == virtual_key || held_too == virtual_key; }
    bool IsInBox() override { return in_box; }
    bool IsOrWasDown(int virtual_key) override {
        return std::exchange(was_down, 0) == virtual_key || IsDown(virtual_key);
    }

    int down = 0;     ///< the key that is held, 0 for none
    int held_too = 0; ///< with it
    bool in_box = false;
    int was_down = 0; ///< the key that was held just before
};

class FakeDisplay : public Display {
  public:
    void Repaint() override {
        if (painted) painted();
    }

    std::function<void()> painted;
};

class FakeRegionalSettings : public RegionalSettings {
  public:
    std::optional<std::string> Read(Separator separator) override {
        return separator == Separator::Decimal ? decimal : thousand;
    }
    void Write(Separator separator, const std::string& text) override {
        (separator == Separator::Decimal ? decimal : thousand) = text;
        ++writes;
    }

    std::string decimal = ".";
    std::string thousand = ",";
    int writes = 0;
};

class FakeShell : public Shell {
  public:
    std::string ApplicationDataFolder() override { return application_data; }
    std::string ProgramFolder() override { return program_folder; }
    bool OpenAddress(const std::string& address) override {
        opened.push_back(address);
        if (meanwhile) meanwhile();
        return opens;
    }
    std::unique_ptr<StartedProgram> Start(const std::string& program, const std::string& file) override {
        struct Ended : StartedProgram {
            explicit Ended(const bool& has_ended) : has_ended_(has_ended) {}
            bool HasEnded() override { return has_ended_; }
            const bool& has_ended_;
        };
        opened.push_back(program + " " + file);
        if (meanwhile) meanwhile();
        return std::make_unique<Ended>(ended);
    }
    void CopyText(const std::string& text) override { opened.push_back(text); }
    void PlaySoundFile(const std::string& path) override { opened.push_back(path); }

    std::string application_data;
    std::string program_folder = "C:\\Quillon\\";
    std::vector<std::string> opened;
    bool opens = true;
    bool ended = true;               ///< the started program
    std::function<void()> meanwhile; ///< what happens while one is opened or started
};

/// Keeps the pages it is given.
class FakePrinter : public Printer {
  public:
    bool ShowPrinter() override { return chosen; }
    std::unique_ptr<PrintJob> StartJob(const std::string&, int) override {
        pages.clear();
        return std::make_unique<Job>(*this);
    }
    struct Job : PrintJob {
        explicit Job(FakePrinter& printer) : printer_(printer) {}
        bool PrintPage(const PrintedPage& page) override {
            printer_.pages.push_back(page);
            if (printer_.pages.size() == printer_.fails_at) throw RuntimeError{PrinterError, "On fire"};
            return printer_.pages.size() != printer_.cancelled_at;
        }
        bool Finish() override {
            if (printer_.fails_at == printer_.pages.size() + 1) throw RuntimeError{PrinterError, "On fire"};
            return printer_.finished = true;
        }
        FakePrinter& printer_;
    };
    bool chosen = true;                         ///< in the print dialog
    std::size_t fails_at = 0, cancelled_at = 0; ///< page, counted from 1
    std::vector<PrintedPage> pages;
    bool finished = false;
};

class FakeSoundDevices : public SoundDevices {
  public:
    std::vector<SoundDevice> List() override { return list; }
    void Use(const std::string& id) override { used = id; }
    bool IsMissing() override { return missing; }

    std::vector<SoundDevice> list{{"{1}", "Speakers"}, {"{2}", "Headset"}};
    std::string used = "nothing yet";
    bool missing = false;
};

/// Keeps the addresses that are being tried; answers when told to.
class FakeProbe : public FeedProbe {
  public:
    std::unique_ptr<FeedTry> Start(const std::string& address, const std::string&,
                                   const FileServers&) override {
        return std::make_unique<Try>(*this, address);
    }
    struct Try : FeedTry {
        Try(FakeProbe& probe, const std::string& address) : probe_(probe), address_(address) {
            probe_.trying.insert(address_);
        }
        ~Try() override { probe_.trying.erase(address_); }
        std::optional<FeedAnswer> Answer() override {
            const auto found = probe_.answers.find(address_);
            return found == probe_.answers.end() ? std::nullopt : std::optional(found->second);
        }
        FakeProbe& probe_;
        std::string address_;
    };

    std::set<std::string> trying;
    std::map<std::string, FeedAnswer> answers;
};

/// Latin-1 with the euro sign at 80.
class FakeCodePage : public AnsiCodePage {
  public:
    std::string Decode(std::string_view bytes) override {
        std::string text;
        for (const char byte : bytes) text += Character(static_cast<unsigned char>(byte));
        return text;
    }

    std::optional<std::string> Encode(std::string_view text) override {
        std::string bytes;
        while (!text.empty()) {
            unsigned byte = 0;
            while (byte < 256 && !text.starts_with(Character(byte))) ++byte;
            if (byte == 256) return std::nullopt;
            bytes += static_cast<char>(byte);
            text.remove_prefix(Character(byte).size());
        }
        return bytes;
    }

  private:
    static std::string Character(unsigned byte) {
        const unsigned code = byte == 0x80 ? 0x20AC : byte;
        if (code < 0x80) return {static_cast<char>(code)};
        const char last = static_cast<char>(0x80U | (code & 0x3FU));
        if (code < 0x800) return {static_cast<char>(0xC0U | code >> 6U), last};
        return {static_cast<char>(0xE0U | code >> 12U), static_cast<char>(0x80U | (code >> 6U & 0x3FU)), last};
    }
};

} // namespace quillon
