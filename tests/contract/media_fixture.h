// VorlaMultiMedia, called late-bound, with devices and waits that the test plays.
#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "contract/component.h"
#include "support/import_patch.h"

namespace vorla::test {

using Log = std::vector<std::string>;

/// The media devices and the waits of a module. Every command and wait goes to the log: "play SonWav",
/// "status SonWav volume [128]" for a command with room for that much of an answer, "Sleep 1".
class FakeDevices {
public:
    struct Answer {
        MCIERROR code;
        std::string text;
    };

    explicit FakeDevices(HMODULE module, Log& log)
        : log_(log),
          commands_(module, "winmm.dll", "mciSendStringA"),
          waits_(module, "kernel32.dll", "Sleep", reinterpret_cast<void*>(&slept)) {
        current_ = this;
        commands_.answer([this](LPCSTR command, LPSTR reply, UINT room, HWND window) {
            EXPECT_EQ(nullptr, window) << command;
            return answered(command, reply, room);
        });
    }
    ~FakeDevices() { current_ = nullptr; }

    /// What a command gets; without it, success and an empty text.
    FakeDevices& answer(const std::string& command, const std::string& text) {
        answers_[command] = {0, text};
        return *this;
    }
    FakeDevices& fail(const std::string& command, MCIERROR code = MCIERR_INVALID_DEVICE_ID) {
        answers_[command] = {code, ""};
        return *this;
    }
    /// A failure that leaves a text behind.
    FakeDevices& fail(const std::string& command, MCIERROR code, const std::string& text) {
        answers_[command] = {code, text};
        return *this;
    }
    /// The `number`-th command from now (1 is the next) fails.
    void failCommand(int number) { failing_ = count_ + number; }
    int commandCount() const { return count_; }
    void reset() {
        answers_.clear();
        failing_ = 0;
    }

    /// Runs in the middle of each command.
    std::function<void(const std::string&)> onCommand;

private:
    static void WINAPI slept(DWORD milliseconds) {
        current_->log_.push_back("Sleep " + std::to_string(milliseconds));
    }

    MCIERROR answered(const std::string& command, LPSTR reply, UINT room) {
        log_.push_back(reply ? command + " [" + std::to_string(room) + "]" : command);
        if (onCommand) onCommand(command);
        if (++count_ == failing_) return MCIERR_DEVICE_NOT_READY;
        const auto found = answers_.find(command);
        const auto answer = found == answers_.end() ? Answer{0, ""} : found->second;
        if (reply) {
            // A text that fills the room has no NUL at its end.
            std::memcpy(reply, answer.text.c_str(), std::min<std::size_t>(room, answer.text.size() + 1));
        }
        return answer.code;
    }

    static inline FakeDevices* current_ = nullptr;
    Log& log_;
    std::map<std::string, Answer> answers_;
    int count_ = 0, failing_ = 0;
    Intercept<decltype(mciSendStringA), FakeDevices> commands_;
    ImportPatch waits_;
};

/// Files of the test: every path exists but those in `missing`, paths with a backslash at their end are
/// folders, and short forms are in capitals.
class FakeFiles {
public:
    explicit FakeFiles(HMODULE module)
        : attributes_(module, "kernel32.dll", "GetFileAttributesA"),
          shortForms_(module, "kernel32.dll", "GetShortPathNameA") {
        attributes_.answer([this](LPCSTR path) -> DWORD {
            if (missing.contains(path)) return INVALID_FILE_ATTRIBUTES;
            return std::string(path).ends_with('\\') ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
        });
        shortForms_.answer([this](LPCSTR path, LPSTR buffer, DWORD room) -> DWORD {
            if (missing.contains(path)) return 0;
            std::string form(path);
            if (const auto found = shortForms.find(form); found != shortForms.end()) form = found->second;
            for (char& c : form)
                if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
            if (form.size() >= room) return static_cast<DWORD>(form.size() + 1);
            std::memcpy(buffer, form.c_str(), form.size() + 1);
            return static_cast<DWORD>(form.size());
        });
    }

    std::set<std::string> missing;
    std::map<std::string, std::string> shortForms;

private:
    Intercept<decltype(GetFileAttributesA), FakeFiles> attributes_;
    Intercept<decltype(GetShortPathNameA), FakeFiles> shortForms_;
};

class MultiMedia : public testing::Test {
protected:
    static constexpr std::uint16_t classNumber = 10;

    Outcome call(const wchar_t* name, Arguments arguments = {}) {
        return invoke(object.get(), name, std::move(arguments));
    }
    /// The log of one call.
    Log sentBy(const wchar_t* name, Arguments arguments = {}) {
        log.clear();
        outcome = call(name, std::move(arguments));
        return log;
    }
    void expect(const Variant& expected, const std::string& what = {}) {
        expectResult(outcome, expected, what);
    }

    const Component component;
    const HMODULE module = component.module();
    Log log;
    Outcome outcome;
    FakeDevices devices{module, log};
    FakeFiles files{module};
    const Dispatch object = component.create(classNumber);
};

/// Two logs joined.
inline Log operator+(Log first, const Log& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// The log of a fade or ramp of a device: levels from `from` on, `step` apart, with a wait after each.
inline Log levels(const std::string& alias, int from, int step, int count, int wait) {
    Log log;
    for (int i = 0; i < count; ++i) {
        log.push_back("setaudio " + alias + " volume to " + std::to_string(from + i * step));
        log.push_back("Sleep " + std::to_string(wait));
    }
    return log;
}

}  // namespace vorla::test
