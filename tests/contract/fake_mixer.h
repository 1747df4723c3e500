// The audio mixer of a module, played by the test. Every structure that is sent is compared byte by byte.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "frame/values/winapi.h"
#include "support/import_patch.h"

namespace vorla::test {

/// A structure as bytes, written field by field.
class Bytes {
public:
    Bytes& dword(DWORD value) { return add(&value, sizeof value); }
    Bytes& pointer(const void* value) { return add(&value, sizeof value); }
    Bytes& zeros(std::size_t count) {
        bytes_.resize(bytes_.size() + count);
        return *this;
    }
    void expectIn(const void* structure, const char* what) const {
        EXPECT_EQ(0, std::memcmp(bytes_.data(), structure, bytes_.size())) << what;
    }
    std::size_t size() const { return bytes_.size(); }

private:
    Bytes& add(const void* value, std::size_t size) {
        const auto start = static_cast<const char*>(value);
        bytes_.insert(bytes_.end(), start, start + size);
        return *this;
    }

    std::vector<char> bytes_;
};

/// Lines and controls are put in by the test. The log gets one line for each call: "open", "line 4 by 3",
/// "control 50030001 of 5", "get 7", "set 7 to 100", "close".
class FakeMixer {
public:
    struct Control {
        DWORD id, multipleItems, value;
    };

    FakeMixer(HMODULE module, std::vector<std::string>& log)
        : log_(log),
          open_(module, "winmm.dll", "mixerOpen"),
          close_(module, "winmm.dll", "mixerClose"),
          line_(module, "winmm.dll", "mixerGetLineInfoA"),
          controls_(module, "winmm.dll", "mixerGetLineControlsA"),
          get_(module, "winmm.dll", "mixerGetControlDetailsA"),
          set_(module, "winmm.dll", "mixerSetControlDetails") {
        open_.answer(
            [this](LPHMIXER mixer, UINT device, DWORD_PTR callback, DWORD_PTR instance, DWORD flags) {
                EXPECT_EQ(0u, device);
                EXPECT_EQ(0u, callback);
                EXPECT_EQ(0u, instance);
                EXPECT_EQ(0u, flags);
                log_.push_back("open");
                lastLine_ = 0;  // a new object has looked up no line
                if (fails()) return MMRESULT{MMSYSERR_BADDEVICEID};
                *mixer = handle();
                ++openMixers;
                return MMRESULT{MMSYSERR_NOERROR};
            });
        close_.answer([this](HMIXER mixer) {
            EXPECT_EQ(handle(), mixer);
            log_.push_back("close");
            --openMixers;
            return MMRESULT{MMSYSERR_NOERROR};
        });
        line_.answer(
            [this](HMIXEROBJ mixer, LPMIXERLINEA line, DWORD flags) { return onLine(mixer, *line, flags); });
        controls_.answer([this](HMIXEROBJ mixer, LPMIXERLINECONTROLSA asked, DWORD flags) {
            return onControls(mixer, *asked, flags);
        });
        get_.answer([this](HMIXEROBJ mixer, LPMIXERCONTROLDETAILS details, DWORD flags) {
            EXPECT_EQ(0u, flags);
            expectHandle(mixer);
            const auto& control = byId(details->dwControlID);
            expectDetails(*details, 1, 0);
            EXPECT_EQ(0, *static_cast<LONG*>(details->paDetails));
            log_.push_back("get " + std::to_string(control.id));
            if (fails()) return MMRESULT{MMSYSERR_ERROR};
            *static_cast<DWORD*>(details->paDetails) = control.value;
            return MMRESULT{MMSYSERR_NOERROR};
        });
        set_.answer([this](HMIXEROBJ mixer, LPMIXERCONTROLDETAILS details, DWORD flags) {
            EXPECT_EQ(0u, flags);
            expectHandle(mixer);
            auto& control = byId(details->dwControlID);
            const bool stereo = details->cChannels == 2;
            expectDetails(*details, stereo ? 2 : 1, stereo ? control.multipleItems : 0);
            const auto values = static_cast<const LONG*>(details->paDetails);
            log_.push_back("set " + std::to_string(control.id) + " to " + std::to_string(values[0]) +
                           (stereo ? " and " + std::to_string(values[1]) : ""));
            if (fails()) return MMRESULT{MMSYSERR_ERROR};
            control.value = static_cast<DWORD>(values[0]);
            return MMRESULT{MMSYSERR_NOERROR};
        });
    }

    /// The line of a type has this number.
    FakeMixer& line(DWORD component, DWORD number) {
        lines_[component] = number;
        return *this;
    }
    FakeMixer& control(DWORD line, DWORD type, Control control) {
        byLine_[{line, type}] = control;
        return *this;
    }
    DWORD& value(DWORD line, DWORD type) { return byLine_[{line, type}].value; }

    /// The `number`-th call from now that can fail does so.
    void failCall(int number) { failing_ = count_ + number; }

    int openMixers = 0;

private:
    static HMIXER handle() { return reinterpret_cast<HMIXER>(static_cast<ULONG_PTR>(0x4711)); }
    bool fails() { return ++count_ == failing_; }

    void expectHandle(HMIXEROBJ mixer) {
        EXPECT_EQ(openMixers > 0 ? handle() : nullptr, reinterpret_cast<HMIXER>(mixer));
    }

    static std::string hex(DWORD number) {
        char digits[16];
        std::snprintf(digits, sizeof digits, "%lx", number);
        return digits;
    }

    MMRESULT onLine(HMIXEROBJ mixer, MIXERLINEA& line, DWORD flags) {
        expectHandle(mixer);
        // A line that was looked up before left its number.
        Bytes expected;
        constexpr bool is32 = sizeof(void*) == 4;
        expected.dword(is32 ? 168 : 172).dword(0).dword(0).dword(lastLine_).dword(0).pointer(nullptr);
        expected.dword(line.dwComponentType).dword(0).dword(0).dword(0).zeros(16 + 64).zeros(48);
        EXPECT_EQ(is32 ? 168u : 172u, expected.size());
        expected.expectIn(&line, "MIXERLINE");
        log_.push_back("line " + hex(line.dwComponentType) + " by " + std::to_string(flags));
        if (fails()) return MIXERR_INVALLINE;
        if (flags == 2) return MMSYSERR_NOERROR;
        const auto found = lines_.find(line.dwComponentType);
        if (found == lines_.end()) return MIXERR_INVALLINE;
        line.dwLineID = lastLine_ = found->second;
        return MMSYSERR_NOERROR;
    }

    MMRESULT onControls(HMIXEROBJ mixer, MIXERLINECONTROLSA& asked, DWORD flags) {
        expectHandle(mixer);
        EXPECT_EQ(2u, flags);
        Bytes expected;
        constexpr bool is32 = sizeof(void*) == 4;
        expected.dword(is32 ? 24 : 28).dword(lastLine_).dword(asked.dwControlType).dword(1).dword(148);
        expected.pointer(asked.pamxctrl);
        EXPECT_EQ(is32 ? 24u : 28u, expected.size());
        expected.expectIn(&asked, "MIXERLINECONTROLS");
        Bytes().zeros(148).expectIn(asked.pamxctrl, "MIXERCONTROL");
        log_.push_back("control " + hex(asked.dwControlType) + " of " + std::to_string(asked.dwLineID));
        if (fails()) return MIXERR_INVALCONTROL;
        const auto found = byLine_.find({asked.dwLineID, asked.dwControlType});
        if (found == byLine_.end()) return MIXERR_INVALCONTROL;
        asked.pamxctrl->cbStruct = 148;
        asked.pamxctrl->dwControlID = found->second.id;
        asked.pamxctrl->cMultipleItems = found->second.multipleItems;
        return MMSYSERR_NOERROR;
    }

    static void expectDetails(const MIXERCONTROLDETAILS& details, DWORD channels, DWORD multipleItems) {
        Bytes expected;
        constexpr bool is32 = sizeof(void*) == 4;
        expected.dword(is32 ? 24 : 32).dword(details.dwControlID).dword(channels).dword(multipleItems);
        expected.zeros(is32 ? 0 : 4).dword(4).pointer(details.paDetails);
        EXPECT_EQ(is32 ? 24u : 32u, expected.size());
        expected.expectIn(&details, "MIXERCONTROLDETAILS");
    }

    Control& byId(DWORD id) {
        for (auto& [place, control] : byLine_)
            if (control.id == id) return control;
        ADD_FAILURE() << "no control " << id;
        static Control none{};
        return none;
    }

    std::vector<std::string>& log_;
    std::map<DWORD, DWORD> lines_;
    std::map<std::pair<DWORD, DWORD>, Control> byLine_;
    DWORD lastLine_ = 0;
    int count_ = 0, failing_ = 0;
    Intercept<decltype(mixerOpen), FakeMixer> open_;
    Intercept<decltype(mixerClose), FakeMixer> close_;
    Intercept<decltype(mixerGetLineInfoA), FakeMixer> line_;
    Intercept<decltype(mixerGetLineControlsA), FakeMixer> controls_;
    Intercept<decltype(mixerGetControlDetailsA), struct GetTag> get_;
    Intercept<decltype(mixerSetControlDetails), struct SetTag> set_;
};

}  // namespace vorla::test
