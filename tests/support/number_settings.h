// Changes the user's number and date settings during a test.
#pragma once

#include <gtest/gtest.h>

#include "frame/values/winapi.h"

namespace vorla::test {

/// Changes one of the user's settings (LOCALE_SDECIMAL, LOCALE_SSHORTDATE, ...) as long as this exists, and
/// then restores it. Other settings that the user has changed stay.
class ChangedSetting {
public:
    ChangedSetting(LCTYPE setting, const wchar_t* value) : setting_(setting) {
        EXPECT_NE(0, GetLocaleInfoW(LOCALE_USER_DEFAULT, setting, before_, 80));
        EXPECT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, setting, value));
    }
    ChangedSetting(const ChangedSetting&) = delete;
    ChangedSetting& operator=(const ChangedSetting&) = delete;
    ~ChangedSetting() { EXPECT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, setting_, before_)); }

private:
    LCTYPE setting_;
    wchar_t before_[80] = L"";
};

}  // namespace vorla::test
