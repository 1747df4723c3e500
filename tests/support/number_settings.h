// The user's number and date settings, changed for the length of a test.
#pragma once

#include <gtest/gtest.h>

#include "frame/values/winapi.h"

namespace vorla::test {

/// One of the user's settings has another value as long as this lives (LOCALE_SDECIMAL, LOCALE_SSHORTDATE,
/// ...). The value before comes back; what else the user has changed stays.
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
